// Bacteria, eggs and swarmers; engineers and the objectives they repair.
#include <gtest/gtest.h>

#include "gameplay/enemies/Bacteria.h"
#include "gameplay/enemies/CPU.h"
#include "gameplay/enemies/Egg.h"
#include "gameplay/enemies/Engineer.h"
#include "gameplay/enemies/HardDrive.h"
#include "gameplay/enemies/Swarmer.h"
#include "gameplay/enemies/SpecialEnemyFixture.h"
#include "render/NullRenderer.h"

namespace {

class CreaturesTest : public SpecialEnemyFixture {};

TEST_F(CreaturesTest, ASeenLevelThreeBacteriumSplitsOnceIntoTwoLevelFours)
{
    placePlayer(-900.0f, 16.0f); // beyond 290
    auto* bacterium = spawn<Bacteria>(0.0f, 16.0f);
    bacterium->applyLevel(3);
    for (float t = 100.0f; t < 10000.0f; t += 100.0f)
        thinkAt(*bacterium, t);
    EXPECT_EQ(count<Bacteria>(), 1) << "unseen, it never splits";
    placePlayer(-100.0f, 16.0f);
    thinkAt(*bacterium, 11000.0f);
    EXPECT_FLOAT_EQ(bacterium->splitTime, 14000.0f);
    thinkAt(*bacterium, 13900.0f);
    EXPECT_EQ(count<Bacteria>(), 1);
    thinkAt(*bacterium, 14100.0f);
    ASSERT_EQ(count<Bacteria>(), 2);
    EXPECT_TRUE(played(41)) << "the hatching sound";
    EXPECT_FALSE(played(33)) << "not the switch";
    for (Body* body : game->getBodies()) {
        auto* b = dynamic_cast<Bacteria*>(body);
        if (!b)
            continue;
        EXPECT_EQ(b->level, 4);
        EXPECT_EQ(b->health, 160);
        EXPECT_EQ(b->texture, "data/images/bacteria4.png");
        const float apart = b->pos.distance2D(bacterium->pos);
        if (b != bacterium) {
            EXPECT_GE(apart, 16.0f - 0.01f);
            EXPECT_LE(apart, 20.0f + 0.01f);
        }
    }
    // Level 4 is the last: seeing the player for a long time splits nothing.
    for (float t = 14200.0f; t < 30000.0f; t += 100.0f)
        for (Body* body : std::vector<Body*>(game->getBodies().begin(), game->getBodies().end()))
            if (auto* b = dynamic_cast<Bacteria*>(body))
                thinkAt(*b, t);
    EXPECT_EQ(count<Bacteria>(), 2);
}

TEST_F(CreaturesTest, EggsCrackNearThePlayerAndHatchFiveSwarmersThatBiteAndExpire)
{
    auto* egg = spawn<Egg>(0.0f, 16.0f);
    egg->applyLevel(2);
    placePlayer(-300.0f, 16.0f);
    thinkAt(*egg, 500.0f);
    EXPECT_FALSE(egg->cracked) << "300 away is beyond 200";
    placePlayer(-150.0f, 16.0f);
    thinkAt(*egg, 1000.0f);
    EXPECT_TRUE(egg->cracked);
    EXPECT_EQ(egg->texture, "data/images/eggcracked2.png");
    EXPECT_TRUE(played(40));
    thinkAt(*egg, 1950.0f);
    EXPECT_EQ(count<Swarmer>(), 0);
    thinkAt(*egg, 2050.0f);
    EXPECT_TRUE(egg->cancleanup) << "the shell is gone";
    ASSERT_EQ(count<Swarmer>(), 5);
    EXPECT_TRUE(played(41));
    Swarmer* hatched = nullptr;
    for (Body* body : game->getBodies()) {
        auto* s = dynamic_cast<Swarmer*>(body);
        if (!s)
            continue;
        hatched = s;
        EXPECT_EQ(s->level, 2);
        EXPECT_EQ(s->health, 20);
        EXPECT_TRUE(s->vel.isZero());
        EXPECT_LE(s->pos.distance2D(egg->pos), 8.01f);
        EXPECT_NEAR(s->bounds->maxX - s->bounds->minX, 8.0f, 0.01f);
        EXPECT_FLOAT_EQ(s->expireTime, 2050.0f + Swarmer::lifeMillis);
    }

    // Swarmers bite only the player, twice a second at most, and live seven seconds.
    player->health = 100;
    hatched->vel = Vector(50.0f, 0.0f);
    EXPECT_EQ(healthAfterTouches(*hatched, *player, {3000.0f, 3400.0f, 3600.0f}), (std::vector<int>{85, 85, 70}));
    EXPECT_TRUE(hatched->vel.isZero()) << "a biter stops";
    GameBody other;
    other.takedamage = true;
    at(4000.0f);
    touch(*hatched, other);
    EXPECT_EQ(other.health, 100);
    thinkAt(*hatched, 8950.0f);
    EXPECT_FALSE(hatched->cancleanup);
    thinkAt(*hatched, 9150.0f);
    EXPECT_TRUE(hatched->cancleanup);
}

// Engineers fly to the nearest objective within their search and, once
// there, repair it every half second; objectives show their health and
// explode.
TEST_F(CreaturesTest, EngineersRepairTheNearestObjectiveEveryHalfSecond)
{
    placePlayer(-300.0f, 16.0f);
    auto* engineer = spawn<Engineer>(0.0f, 100.0f);
    EXPECT_EQ(engineer->findRepairTarget(), nullptr);
    auto* far = spawn<CPU>(-90.0f, 100.0f, 32.0f);
    far->health = 20;
    thinkAt(*engineer, 500.0f);
    EXPECT_FALSE(engineer->repairing);
    EXPECT_EQ(far->health, 20);
    EXPECT_LT(engineer->vel.x, 0.0f) << "heading for it";

    auto* near = spawn<HardDrive>(40.0f, 100.0f, 32.0f);
    near->health = 20;
    near->maxhealth = far->maxhealth = 1000;
    place(engineer, 0.0f, 100.0f);
    EXPECT_EQ(engineer->findRepairTarget(), near);
    thinkAt(*engineer, 1000.0f);
    EXPECT_EQ(near->health, 70);
    EXPECT_TRUE(engineer->repairing);
    EXPECT_TRUE(engineer->vel.isZero());
    EXPECT_TRUE(played(42)) << "the player is within 512";
    thinkAt(*engineer, 1400.0f);
    EXPECT_EQ(near->health, 70);
    thinkAt(*engineer, 1600.0f);
    EXPECT_EQ(near->health, 120);
    EXPECT_EQ(far->health, 20);

    // Repairs never go past the objective's own maximum.
    HardDrive capped;
    capped.health = 80;
    capped.addHealth(Engineer::repairAmount);
    EXPECT_EQ(capped.health, 100);

    EXPECT_EQ(far->healthText(), "20/100");
    NullRenderer renderer;
    far->drawExtras(renderer);
    far->takeDamage(500, 1);
    EXPECT_TRUE(far->cancleanup);
    EXPECT_TRUE(played(0)) << "objectives explode";
    EXPECT_EQ(far->lastCashDropped(), 0);
}

}
