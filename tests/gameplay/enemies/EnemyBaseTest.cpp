#include <gtest/gtest.h>

#include <tinyxml.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "gameplay/enemies/Bacteria.h"
#include "gameplay/enemies/ChaingunGrunt.h"
#include "gameplay/enemies/EnemyBase.h"
#include "gameplay/enemies/Friendly.h"
#include "gameplay/enemies/PlasmaGrunt.h"
#include "gameplay/enemies/SpawnerGrunt.h"
#include "gameplay/weapons/ChaingunWeapon.h"
#include "gameplay/weapons/PlasmaPistolWeapon.h"
#include "world/level/GameBodyFactory.h"

namespace {

// Placed creatures wait for the player; only the patrolling classes set off.
// Levels come from level files, spawners and saves; every class holds them to
// 1..5 and lets a level file's health stand.
TEST(EnemyBase, EveryClassStartsStillUnlessItPatrolsAndClampsItsLevel)
{
    const std::set<std::string> patrollers = {"chaingungrunt", "plasmagrunt",  "rocketgrunt",
                                              "shotgungrunt",  "meleegrunt",   "kamikazegrunt",
                                              "sniper",        "spawnergrunt", "egglayer",
                                              "blockboss",     "destroyer"};
    GameBodyFactory factory;
    factory.registerPrototypes();
    const std::pair<const char*, int> rows[] = {{"3", 3}, {"0", 1}, {"-1", 1}, {"junk", 1}, {"6", 5}};
    int seen = 0;
    for (const auto& name : GameBodyFactory::typeNames()) {
        std::unique_ptr<Body> body = factory.create(name);
        auto* enemy = dynamic_cast<EnemyBase*>(body.get());
        if (!enemy)
            continue;
        ++seen;
        EXPECT_FLOAT_EQ(enemy->vel.x, patrollers.count(name) ? enemy->patrolSpeed : 0.0f) << name;
        EXPECT_FLOAT_EQ(enemy->vel.y, 0.0f) << name;
        for (const auto& [text, expected] : rows) {
            enemy->readAttributes({{"level", text}});
            EXPECT_EQ(enemy->level, expected) << name << " " << text;
        }
        enemy->readAttributes({{"level", "99999999999"}});
        EXPECT_GE(enemy->level, 1) << name;
        EXPECT_LE(enemy->level, 5) << name;
        enemy->applyLevel(-7);
        EXPECT_EQ(enemy->level, 1) << name;
        enemy->applyLevel(99);
        EXPECT_EQ(enemy->level, 5) << name;
        enemy->readAttributes({{"health", "33"}, {"level", "3"}});
        EXPECT_EQ(enemy->health, 33) << name << ": an explicit health beats the level table";
    }
    EXPECT_GT(seen, static_cast<int>(patrollers.size()));
}

// A level past a class's table keeps the last row's numbers; a level restored
// from a save rearms the grunt.
TEST(EnemyBase, LevelsPastTheTableKeepTheLastRowAndRestoredOnesRearm)
{
    Bacteria bacterium;
    bacterium.applyLevel(4);
    bacterium.applyLevel(5);
    EXPECT_EQ(bacterium.level, 5);
    EXPECT_EQ(bacterium.health, 160);
    EXPECT_EQ(bacterium.texture, "data/images/bacteria4.png");

    PlasmaGrunt grunt;
    grunt.applyLevel(4);
    grunt.applyLevel(5);
    EXPECT_EQ(grunt.gun().damage, 35);
    EXPECT_EQ(grunt.texture, "data/images/plasmaenemy4.png");
    EXPECT_EQ(grunt.health, 130);

    ChaingunGrunt saved;
    saved.applyLevel(3);
    TiXmlElement state("body");
    saved.writeState(&state);
    ChaingunGrunt restored;
    restored.readState(&state);
    EXPECT_EQ(restored.level, 3);
    EXPECT_FLOAT_EQ(restored.gun().delay, 200.0f) << "the weapon follows the restored level";
}

TEST(EnemyBase, SteeringDampsTheHorizontalPushAndCapsSpeed)
{
    Vector v;
    EnemyBase::steer(v, Vector(1.0f, 0.0f), 100.0f, 1000.0f);
    EXPECT_FLOAT_EQ(v.x, 20.0f);
    EXPECT_FLOAT_EQ(v.y, 0.0f);
    Vector w;
    EnemyBase::steer(w, Vector(0.0f, 1.0f), 500.0f, 180.0f);
    EXPECT_NEAR(w.y, 180.0f, 1e-3f);
    for (int i = 0; i < 50; ++i)
        EnemyBase::steer(w, Vector(0.6f, 0.8f), 180.0f, 180.0f);
    EXPECT_LE(w.length2D(), 180.0f + 1e-3f);
}

TEST(EnemyBase, PatrolTurnsEveryPeriodStartingLeft)
{
    EnemyBase enemy;
    for (const auto& [t, vx] : {std::pair{1.0f, -64.0f}, {1000.0f, -64.0f}, {2002.0f, 64.0f}, {4003.0f, -64.0f}}) {
        enemy.patrol(t);
        EXPECT_FLOAT_EQ(enemy.vel.x, vx) << t;
    }
}

// Of `deaths` fresh T's dying, how many dropped cash and the most one dropped.
template <class T>
std::pair<int, int> cashDrops(int deaths)
{
    int drops = 0;
    int most = 0;
    for (int i = 0; i < deaths; ++i) {
        T enemy;
        enemy.showdamage = false;
        enemy.deathEffects();
        drops += enemy.lastCashDropped() > 0;
        most = std::max(most, enemy.lastCashDropped());
    }
    return {drops, most};
}

TEST(EnemyBase, AboutOneInTwentyDropsAtFivePercent)
{
    std::srand(20260);
    const auto [drops, most] = cashDrops<EnemyBase>(4000);
    EXPECT_NEAR(drops, 200, 66);
    EXPECT_EQ(most, 1);
    const auto [spawnerDrops, spawnerMost] = cashDrops<SpawnerGrunt>(1000);
    EXPECT_NEAR(spawnerDrops, 500, 80) << "spawners drop at 50 %";
    EXPECT_EQ(spawnerMost, 2);
    EXPECT_EQ(cashDrops<Friendly>(100).first, 0);
}

}
