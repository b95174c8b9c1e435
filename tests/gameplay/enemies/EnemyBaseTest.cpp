#include <gtest/gtest.h>

#include <tinyxml.h>

#include <set>
#include <string>

#include "gameplay/enemies/EnemyBase.h"
#include "world/level/GameBodyFactory.h"

namespace {

class CountingEnemy : public EnemyBase {
public:
    void sightedChanged() override { ++changes; }
    int changes = 0;
};

TEST(EnemyBase, LevelIsClampedFromFilesSavesAndSpawners)
{
    EnemyBase enemy;
    for (const auto& [text, expected] : {std::pair{"0", 1}, {"6", 5}, {"-1", 1}, {"3", 3}}) {
        enemy.readAttributes({{"level", text}});
        EXPECT_EQ(enemy.level, expected) << text;
    }
    enemy.applyLevel(99);
    EXPECT_EQ(enemy.level, 5);

    TiXmlElement saved("body");
    enemy.setLevel(4);
    enemy.writeState(&saved);
    EnemyBase restored;
    restored.readState(&saved);
    EXPECT_EQ(restored.level, 4);
}

TEST(EnemyBase, SightingOnlyMovesWhenTheBodyChanges)
{
    CountingEnemy enemy;
    Body a, b;
    enemy.setSighted(&a);
    enemy.setSighted(&a);
    EXPECT_EQ(enemy.changes, 1);
    enemy.clearSighted();
    EXPECT_EQ(enemy.sighted, nullptr);
    EXPECT_EQ(enemy.changes, 1);
    enemy.setSighted(&b);
    EXPECT_EQ(enemy.changes, 2);
    EXPECT_EQ(enemy.sighted, &b);
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
    enemy.patrol(1.0f);
    EXPECT_FLOAT_EQ(enemy.vel.x, -64.0f);
    enemy.patrol(1000.0f);
    EXPECT_FLOAT_EQ(enemy.vel.x, -64.0f);
    enemy.patrol(2002.0f);
    EXPECT_FLOAT_EQ(enemy.vel.x, 64.0f);
    enemy.patrol(4003.0f);
    EXPECT_FLOAT_EQ(enemy.vel.x, -64.0f);
}

// Placed creatures wait for the player; only the patrolling classes set off.
TEST(EnemyBase, OnlyPatrollingEnemiesStartMoving)
{
    const std::set<std::string> patrollers = {"chaingungrunt", "plasmagrunt",  "rocketgrunt",
                                              "shotgungrunt",  "meleegrunt",   "kamikazegrunt",
                                              "sniper",        "spawnergrunt", "egglayer",
                                              "blockboss",     "destroyer"};
    GameBodyFactory factory;
    factory.registerPrototypes();
    int seen = 0;
    for (const auto& name : GameBodyFactory::typeNames()) {
        std::unique_ptr<Body> body = factory.create(name);
        const auto* enemy = dynamic_cast<const EnemyBase*>(body.get());
        if (!enemy)
            continue;
        ++seen;
        const float expected = patrollers.count(name) ? enemy->patrolSpeed : 0.0f;
        EXPECT_FLOAT_EQ(enemy->vel.x, expected) << name;
        EXPECT_FLOAT_EQ(enemy->vel.y, 0.0f) << name;
    }
    EXPECT_GT(seen, static_cast<int>(patrollers.size()));
}

}
