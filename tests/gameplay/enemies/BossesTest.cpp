// The block boss and the destroyer; what bosses and hazards restore from a save.
#include <gtest/gtest.h>

#include <tinyxml.h>

#include "gameplay/enemies/BallOfDeath.h"
#include "gameplay/enemies/BlockBoss.h"
#include "gameplay/enemies/Destroyer.h"
#include "gameplay/enemies/ElectroGrid.h"
#include "gameplay/enemies/SpecialEnemyFixture.h"
#include "gameplay/projectiles/GrenadeProjectile.h"
#include "gameplay/projectiles/RocketProjectile.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "gameplay/weapons/ShotgunWeapon.h"
#include "world/movers/BossBlock.h"

namespace {

class BossesTest : public SpecialEnemyFixture {
protected:
    // A block at x -800 sliding towards a boss on its right at `speed`.
    BossBlock* block(int blocktype, float speed = 200.0f)
    {
        auto* b = spawn<BossBlock>(-800.0f, 300.0f);
        b->blocktype = blocktype;
        b->vel = Vector(speed, 0.0f);
        return b;
    }
};

// Every ten seconds the boss moves on to its next damage state, and every
// twenty it calls its two reinforcements in turn.
TEST_F(BossesTest, BlockBossCyclesItsDamageStatesAndCallsItsReinforcementsInTurn)
{
    loadLevel(entity("blockboss", "boss", 400, 300, attribute("adds1", "wave_a") + attribute("adds2", "wave_b"),
                     "", 64.0f));
    placePlayer(0.0f, 16.0f);
    auto* boss = find<BlockBoss>("boss");
    ASSERT_NE(boss, nullptr);
    TriggerRecorder* a = addRecorder("wave_a");
    TriggerRecorder* b = addRecorder("wave_b");
    thinkAt(*boss, 9900.0f);
    EXPECT_EQ(boss->damageState, 0);
    const char* images[] = {"data/images/blockboss1.png", "data/images/blockboss2.png",
                            "data/images/blockboss3.png"};
    const struct {
        int state;
        size_t calledA, calledB;
    } steps[] = {{1, 0, 0}, {2, 1, 0}, {0, 1, 0}, {1, 1, 1}, {2, 1, 1}, {0, 2, 1}};
    float t = 10001.0f;
    for (const auto& step : steps) {
        thinkAt(*boss, t);
        EXPECT_EQ(boss->damageState, step.state) << t;
        EXPECT_EQ(boss->texture, images[step.state]);
        EXPECT_FLOAT_EQ(boss->nextDamageSwitch, t + 10000.0f);
        ASSERT_EQ(a->activators.size(), step.calledA) << t;
        EXPECT_EQ(b->activators.size(), step.calledB) << t;
        thinkAt(*boss, t + 5000.0f);
        EXPECT_EQ(boss->damageState, step.state) << "no switch between";
        t += 10001.0f;
    }
    EXPECT_EQ(a->activators[0], boss);
    EXPECT_EQ(boss->addLevel, 1);

    // A name that finds no body, or no name at all, is harmless.
    boss->adds[1] = "nobody";
    thinkAt(*boss, 80010.0f);
    EXPECT_EQ(boss->addLevel, 0);
    boss->adds[0].clear();
    thinkAt(*boss, 100020.0f);
    EXPECT_EQ(boss->addLevel, 1);
    EXPECT_EQ(a->activators.size(), 2u);
}

TEST_F(BossesTest, BlockBossOnlyFeelsBlocksOfItsCurrentColour)
{
    placePlayer(-900.0f, 16.0f);
    auto* boss = spawn<BlockBoss>(400.0f, 300.0f, 128.0f);
    boss->showdamage = false;
    boss->takeDamage(500, 32);
    boss->takeDamage(500, 1);
    boss->takeDamage(500, -1);
    FireableWeapon::radialDamage(boss->pos, 200.0f, 0.5f, 500, 512, nullptr);
    EXPECT_EQ(boss->health, 1000) << "rockets, bullets, hazards and blasts do nothing";

    at(1000.0f);
    touch(*boss, *block(1));
    EXPECT_EQ(boss->health, 1000) << "wrong colour";
    touch(*boss, *block(0, 0.0f));
    touch(*boss, *block(0, -200.0f));
    EXPECT_EQ(boss->health, 1000) << "blocks the boss runs into or pushes away";
    touch(*boss, *block(0));
    EXPECT_EQ(boss->health, 925);
    at(1400.0f);
    touch(*boss, *block(0));
    EXPECT_EQ(boss->health, 925) << "the pain pause";

    boss->damageState = 1;
    at(1600.0f);
    touch(*boss, *block(1));
    EXPECT_EQ(boss->health, 825);
    boss->damageState = 2;
    at(2200.0f);
    touch(*boss, *block(2));
    EXPECT_EQ(boss->health, 700);
    at(3000.0f);
    boss->takeDamage(5000, BlockBoss::bossBlockDamageType);
    EXPECT_EQ(boss->lastCashDropped(), 15) << "a sure drop";
}

TEST_F(BossesTest, BlockBossFiresRocketsAndCloseUpTheShotgun)
{
    placePlayer(200.0f, 300.0f);
    auto* boss = spawn<BlockBoss>(380.0f, 300.0f, 64.0f);
    player->health = 100000;
    thinkAt(*boss, 1000.0f);
    EXPECT_EQ(count<RocketProjectile>(), 1);
    EXPECT_FLOAT_EQ(boss->shotgun->nextFireTime, 0.0f) << "180 away: beyond the shotgun's 128";
    placePlayer(300.0f, 300.0f);
    thinkAt(*boss, 1600.0f);
    EXPECT_EQ(count<RocketProjectile>(), 2);
    EXPECT_GT(boss->shotgun->nextFireTime, 1600.0f);
}

TEST_F(BossesTest, DestroyerFightsInBurstsCyclingItsWeaponsAndPatrolsOtherwise)
{
    player->health = 100000;
    placePlayer(-100.0f, 100.0f);
    auto* destroyer = spawn<Destroyer>(100.0f, 100.0f, 64.0f);
    thinkAt(*destroyer, 500.0f);
    EXPECT_TRUE(destroyer->firing);
    EXPECT_EQ(destroyer->weaponState, 0);
    EXPECT_FLOAT_EQ(destroyer->nextFireEnd, 3500.0f);
    EXPECT_EQ(count<RocketProjectile>(), 1);
    thinkAt(*destroyer, 3400.0f);
    EXPECT_TRUE(destroyer->firing);
    thinkAt(*destroyer, 3600.0f);
    EXPECT_FALSE(destroyer->firing);
    EXPECT_EQ(destroyer->weaponState, 1);
    EXPECT_FLOAT_EQ(destroyer->nextFire, 4600.0f);
    thinkAt(*destroyer, 4500.0f);
    EXPECT_FALSE(destroyer->firing) << "the pause between bursts";
    EXPECT_EQ(count<GrenadeProjectile>(), 0);
    thinkAt(*destroyer, 4700.0f);
    EXPECT_TRUE(destroyer->firing);
    EXPECT_EQ(count<GrenadeProjectile>(), 1);
    thinkAt(*destroyer, 7800.0f);
    EXPECT_EQ(destroyer->weaponState, 2);
    thinkAt(*destroyer, 8900.0f);
    EXPECT_GT(destroyer->weapons[2]->nextFireTime, 8900.0f) << "the shotgun burst";
    thinkAt(*destroyer, 12000.0f);
    EXPECT_EQ(destroyer->weaponState, 0) << "after the shotgun come rockets again";

    placePlayer(-900.0f, 16.0f);
    thinkAt(*destroyer, 12100.0f);
    EXPECT_FLOAT_EQ(destroyer->vel.x, -128.0f) << "patrols when the player is far";
    EXPECT_FLOAT_EQ(destroyer->vel.y, 0.0f);
    thinkAt(*destroyer, 14200.0f);
    EXPECT_FLOAT_EQ(destroyer->vel.x, 128.0f);
}

// Restored from a save, each shows the phase it was in; a hostile save cannot
// push the states out of range.
TEST_F(BossesTest, RestoredStatesShowAndStayInRange)
{
    BlockBoss boss;
    boss.damageState = 2;
    ElectroGrid grid;
    grid.on = true;
    BallOfDeath ball;
    ball.startpoint = Vector(10.0f, 20.0f);
    ball.startpointSet = true;
    ball.targetpos = Vector(110.0f, 20.0f);
    ball.offset = Vector(100.0f, 0.0f);
    ball.isopen = true;
    ball.isclosing = true;
    ball.xdirection = true;
    BlockBoss restoredBoss;
    ElectroGrid restoredGrid;
    BallOfDeath restoredBall;
    const std::pair<GameBody*, GameBody*> pairs[] = {
        {&boss, &restoredBoss}, {&grid, &restoredGrid}, {&ball, &restoredBall}};
    for (const auto& [from, to] : pairs) {
        TiXmlElement saved("body");
        from->writeState(&saved);
        to->readState(&saved);
    }
    restoredBall.afterTargets();
    EXPECT_EQ(restoredBoss.damageState, 2);
    EXPECT_EQ(restoredBoss.texture, "data/images/blockboss3.png");
    EXPECT_TRUE(restoredGrid.visible);
    EXPECT_TRUE(restoredBall.isclosing) << "keeps going where it was going";
    EXPECT_FALSE(restoredBall.isopening);

    TiXmlElement hostile("body");
    hostile.SetAttribute("damagestate", "7");
    hostile.SetAttribute("weaponstate", "-4");
    Destroyer destroyer;
    restoredBoss.readState(&hostile);
    destroyer.readState(&hostile);
    EXPECT_EQ(restoredBoss.damageState, 0);
    EXPECT_EQ(destroyer.weaponState, 0);
}

}
