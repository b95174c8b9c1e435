// Electric grids and towers, the ball of death and proximity mines.
#include <gtest/gtest.h>

#include "gameplay/enemies/BallOfDeath.h"
#include "gameplay/enemies/ElectroGrid.h"
#include "gameplay/enemies/ElectroTower.h"
#include "gameplay/enemies/ProxyGrenade.h"
#include "gameplay/enemies/SpecialEnemyFixture.h"
#include "gameplay/weapons/LightningWeapon.h"
#include "render/NullRenderer.h"

namespace {

class HazardsTest : public SpecialEnemyFixture {
protected:
    ElectroGrid* grid(const std::string& attributes)
    {
        loadLevel(box("electrogrid", "grid", -40, 40, 40, 48, "mass=\"0\" solid=\"false\" entity=\"true\"",
                      attributes));
        placePlayer(-100.0f, 16.0f);
        return find<ElectroGrid>("grid");
    }
    // A sturdy GameBody of the given type at (x, y), in the world.
    GameBody* dummy(float x, float y, const std::string& type = "gamebody")
    {
        auto* body = spawn<GameBody>(x, y);
        body->type = type;
        body->takedamage = true;
        body->showdamage = false;
        body->health = body->maxhealth = 100000;
        return body;
    }
};

// Grids switch on their timers, restart a phase when triggered, and hold a
// phase whose other one lasts zero.
TEST_F(HazardsTest, GridsSwitchOnTheirTimersAndTriggersAndHoldAPhaseWithZero)
{
    ElectroGrid* g = grid(attribute("on", "true") + attribute("pain", "20") + attribute("timeon", "1000") +
                          attribute("timeoff", "500"));
    ASSERT_NE(g, nullptr);
    EXPECT_TRUE(g->on);
    thinkAt(*g, 100.0f);
    EXPECT_FALSE(g->on);
    EXPECT_FALSE(g->visible);
    EXPECT_FLOAT_EQ(g->switchTime, 600.0f);
    EXPECT_TRUE(played(39)) << "the player is within 512";
    thinkAt(*g, 500.0f);
    EXPECT_FALSE(g->on);
    thinkAt(*g, 700.0f);
    EXPECT_TRUE(g->on);
    EXPECT_TRUE(g->visible);
    EXPECT_TRUE(played(38));
    for (const RGBAColour& c : g->colours) {
        EXPECT_EQ(c.g, 222.0f);
        EXPECT_EQ(c.b, 0.0f);
    }

    // A trigger restarts the phase, once per phase.
    at(900.0f);
    g->onTriggered(nullptr);
    EXPECT_FLOAT_EQ(g->switchTime, 1900.0f);
    at(1000.0f);
    g->onTriggered(nullptr);
    EXPECT_FLOAT_EQ(g->switchTime, 1900.0f) << "once per phase";
    thinkAt(*g, 1800.0f);
    EXPECT_TRUE(g->on);
    thinkAt(*g, 2000.0f);
    EXPECT_FALSE(g->on);
    at(2100.0f);
    g->onTriggered(nullptr);
    EXPECT_FLOAT_EQ(g->switchTime, 2600.0f) << "a new phase takes a new trigger";

    for (const bool on : {true, false}) {
        ElectroGrid* held = grid(attribute("on", on ? "true" : "false") + attribute(on ? "timeoff" : "timeon", "0") +
                                 attribute("fatal", "true"));
        for (float t = 100.0f; t < 5000.0f; t += 200.0f) {
            thinkAt(*held, t);
            ASSERT_EQ(held->on, on) << t;
            ASSERT_EQ(held->visible, on) << t;
        }
        EXPECT_EQ(held->colours.front().g, 0.0f) << "fatal grids are red";
    }
}

TEST_F(HazardsTest, GridsHurtPlayersAndSwarmMembersTenTimesASecond)
{
    ElectroGrid* g = grid(attribute("on", "true") + attribute("pain", "20") + attribute("timeoff", "0"));
    player->health = 1000;
    player->maxhealth = 1000;
    EXPECT_EQ(healthAfterTouches(*g, *player, {1000.0f, 1050.0f, 1150.0f}), (std::vector<int>{980, 980, 960}));
    EXPECT_TRUE(played(37));

    GameBody* swarm = dummy(500.0f, 300.0f, "swarmmember");
    GameBody* other = dummy(520.0f, 300.0f);
    touch(*g, *swarm);
    touch(*g, *other);
    EXPECT_EQ(swarm->health, 100000 - 20);
    EXPECT_EQ(other->health, 100000);

    g->on = false;
    at(2000.0f);
    touch(*g, *player);
    EXPECT_EQ(player->health, 960) << "off grids are harmless";

    g->on = true;
    g->fatal = true;
    at(3000.0f);
    touch(*g, *swarm);
    EXPECT_EQ(swarm->health, 100000 - 20 - ElectroGrid::fatalDamage);
    NullRenderer renderer;
    g->drawExtras(renderer);
}

TEST_F(HazardsTest, TowersStrikeHalfASecondAfterSightingThePlayer)
{
    auto* tower = spawn<ElectroTower>(0.0f, 16.0f, 32.0f);
    player->health = 100000;
    player->maxhealth = 100000;
    placePlayer(-200.0f, 16.0f);
    thinkAt(*tower, 900.0f);
    EXPECT_EQ(tower->sighted, nullptr) << "200 is beyond 96";
    EXPECT_EQ(tower->texture, "data/images/electrotower1.png");

    placePlayer(-60.0f, 16.0f);
    thinkAt(*tower, 1000.0f);
    EXPECT_EQ(tower->sighted, player);
    EXPECT_FLOAT_EQ(tower->sightedTime, 1000.0f);
    EXPECT_EQ(tower->texture, "data/images/electrotowersighted1.png");
    EXPECT_LT(tower->aim.x, -0.99f);
    thinkAt(*tower, 1450.0f);
    EXPECT_FALSE(tower->weapon->firing) << "still warming up";
    thinkAt(*tower, 1550.0f);
    EXPECT_TRUE(tower->weapon->firing);
    EXPECT_FLOAT_EQ(tower->weapon->nextFireTime, 1650.0f);

    placePlayer(-300.0f, 16.0f);
    thinkAt(*tower, 1700.0f);
    EXPECT_EQ(tower->sighted, nullptr);
    EXPECT_EQ(timesPlayed(31), 1) << "one alert per sighting";
    EXPECT_EQ(tower->texture, "data/images/electrotower1.png");
    tower->step(0.025f);
    EXPECT_FALSE(tower->weapon->firing) << "the crackle stops with the beam";

    tower->takeDamage(1000, 1);
    EXPECT_TRUE(tower->cancleanup);
    EXPECT_TRUE(played(0));
}

TEST_F(HazardsTest, TheBallOfDeathShuttlesAndHurtsOnTouch)
{
    loadLevel(box("ballofdeath", "ball", -16, 200, 16, 232, "mass=\"0\" solid=\"true\" entity=\"true\"",
                  attribute("openoffset", "200,0") + attribute("speed", "400") + attribute("timeopen", "500")));
    placePlayer(-600.0f, 16.0f);
    auto* ball = find<BallOfDeath>("ball");
    ASSERT_NE(ball, nullptr);
    const float startX = ball->pos.x;
    EXPECT_TRUE(ball->isopening) << "it sets off by itself";
    float maxX = startX;
    bool cameBack = false, leftAgain = false;
    for (int i = 0; i < 160; ++i) {
        frame(25);
        maxX = std::max(maxX, ball->pos.x);
        ASSERT_LE(ball->pos.x, startX + 200.01f);
        ASSERT_GE(ball->pos.x, startX - 0.01f);
        if (maxX > startX + 199.0f && ball->pos.x < startX + 0.01f)
            cameBack = true;
        if (cameBack && ball->pos.x > startX + 50.0f)
            leftAgain = true;
    }
    EXPECT_TRUE(cameBack);
    EXPECT_TRUE(leftAgain) << "it keeps shuttling";

    player->health = 2000;
    player->maxhealth = 2000;
    EXPECT_EQ(healthAfterTouches(*ball, *player, {100000.0f, 100050.0f, 100150.0f}),
              (std::vector<int>{1500, 1500, 1000}));
    GameBody* other = dummy(600.0f, 300.0f);
    touch(*ball, *other);
    EXPECT_EQ(other->health, 100000);
}

// A mine goes off when something is within 96 and sets off its neighbours,
// but another mine alone does not set it off.
TEST_F(HazardsTest, MinesBlowUpWithin96ButIgnoreOtherMines)
{
    auto* mine = spawn<ProxyGrenade>(0.0f, 300.0f);
    spawn<ProxyGrenade>(40.0f, 300.0f);
    placePlayer(-900.0f, 16.0f);
    thinkAt(*mine, 1000.0f);
    EXPECT_FALSE(mine->exploded) << "another mine does not set it off";

    GameBody* far = dummy(-200.0f, 300.0f);
    GameBody* hidden = dummy(0.0f, 380.0f);
    hidden->notarget = true;
    thinkAt(*mine, 1100.0f);
    EXPECT_FALSE(mine->exploded);

    GameBody* near = dummy(-80.0f, 300.0f);
    thinkAt(*mine, 1200.0f);
    EXPECT_TRUE(mine->exploded);
    EXPECT_TRUE(mine->cancleanup);
    EXPECT_EQ(near->health, 100000 - ProxyGrenade::blastDamage);
    EXPECT_EQ(far->health, 100000);
    EXPECT_TRUE(played(0));
    EXPECT_EQ(count<ProxyGrenade>(), 0) << "the neighbour went up in the blast";
    mine->die();
    EXPECT_EQ(near->health, 100000 - ProxyGrenade::blastDamage) << "one blast only";
    NullRenderer renderer;
    mine->drawExtras(renderer);
}

}
