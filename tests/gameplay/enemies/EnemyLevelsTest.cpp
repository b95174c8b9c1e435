#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <tinyxml.h>

#include "gameplay/enemies/ChaingunGrunt.h"
#include "gameplay/enemies/EggLayer.h"
#include "gameplay/enemies/Friendly.h"
#include "gameplay/enemies/KamikazeGrunt.h"
#include "gameplay/enemies/MeleeGrunt.h"
#include "gameplay/enemies/PlasmaGrunt.h"
#include "gameplay/enemies/RocketGrunt.h"
#include "gameplay/enemies/SearchLight.h"
#include "gameplay/enemies/ShotgunGrunt.h"
#include "gameplay/enemies/Sniper.h"
#include "gameplay/enemies/SpawnerGrunt.h"
#include "gameplay/enemies/SwarmMember.h"
#include "gameplay/enemies/Turret.h"
#include "gameplay/weapons/ChaingunWeapon.h"
#include "gameplay/weapons/MeleeWeapon.h"
#include "gameplay/weapons/PlasmaPistolWeapon.h"
#include "gameplay/weapons/RailgunWeapon.h"
#include "gameplay/weapons/RocketWeapon.h"
#include "gameplay/weapons/ShotgunWeapon.h"
#include "world/level/GameBodyFactory.h"

namespace {

// A fresh enemy of class T placed by a level file at `level`.
template <class T>
std::unique_ptr<T> placed(int level)
{
    auto enemy = std::make_unique<T>();
    enemy->readAttributes({{"level", std::to_string(level)}});
    return enemy;
}

std::string image(int n, const char* stem) { return std::string("data/images/") + stem + std::to_string(n) + ".png"; }

TEST(EnemyLevels, PlasmaGruntKeepsLevelFourNumbersPastIt)
{
    PlasmaGrunt grunt;
    grunt.applyLevel(4);
    grunt.applyLevel(5);
    EXPECT_EQ(grunt.gun().damage, 35) << "level 5 has no row and keeps what it had";
    EXPECT_EQ(grunt.texture, image(4, "plasmaenemy"));
    EXPECT_EQ(grunt.health, 130);
}

TEST(EnemyLevels, OutOfRangeLevelsFromFilesAreClamped)
{
    GameBodyFactory factory;
    factory.registerPrototypes();
    for (const char* text : {"0", "6", "-1", "99999999999", "junk"}) {
        const int expected = std::string(text) == "6" || std::string(text) == "99999999999" ? 5 : 1;
        for (const auto& name : GameBodyFactory::typeNames()) {
            std::unique_ptr<Body> body = factory.create(name);
            auto* enemy = dynamic_cast<EnemyBase*>(body.get());
            if (!enemy)
                continue;
            enemy->readAttributes({{"level", text}});
            EXPECT_GE(enemy->level, 1) << name << " " << text;
            EXPECT_LE(enemy->level, 5) << name << " " << text;
            if (std::string(text) != "99999999999") {
                EXPECT_EQ(enemy->level, expected) << name << " " << text;
            }
            enemy->applyLevel(-7);
            EXPECT_EQ(enemy->level, 1) << name;
        }
    }
}

TEST(EnemyLevels, AnExplicitHealthBeatsTheLevelTable)
{
    ChaingunGrunt grunt;
    grunt.readAttributes({{"health", "33"}, {"level", "3"}});
    EXPECT_EQ(grunt.level, 3);
    EXPECT_EQ(grunt.health, 33);
}

template <class T>
std::unique_ptr<T> roundTrip(T& original)
{
    TiXmlElement saved("body");
    original.writeState(&saved);
    auto copy = std::make_unique<T>();
    copy->readState(&saved);
    return copy;
}

TEST(EnemySaves, ARestoredLevelRearmsTheGrunt)
{
    ChaingunGrunt grunt;
    grunt.applyLevel(3);
    auto g = roundTrip(grunt);
    EXPECT_EQ(g->level, 3);
    EXPECT_FLOAT_EQ(g->gun().delay, 200.0f) << "the weapon follows the restored level";
}

TEST(EnemyCash, AboutOneInTwentyDropsAtFivePercent)
{
    std::srand(20260);
    int drops = 0;
    const int enemies = 4000;
    for (int i = 0; i < enemies; ++i) {
        EnemyBase enemy;
        enemy.showdamage = false;
        enemy.deathEffects();
        if (enemy.lastCashDropped() > 0) {
            EXPECT_EQ(enemy.lastCashDropped(), 1);
            ++drops;
        }
    }
    EXPECT_NEAR(drops, enemies / 20, enemies / 20 / 3);

    int spawnerDrops = 0;
    for (int i = 0; i < 1000; ++i) {
        SpawnerGrunt spawner;
        spawner.showdamage = false;
        spawner.deathEffects();
        EXPECT_LE(spawner.lastCashDropped(), 2);
        spawnerDrops += spawner.lastCashDropped() > 0;
    }
    EXPECT_NEAR(spawnerDrops, 500, 80) << "spawners drop at 50 %";
    Friendly friendly;
    friendly.showdamage = false;
    for (int i = 0; i < 100; ++i) {
        friendly.deathEffects();
        EXPECT_EQ(friendly.lastCashDropped(), 0);
    }
}

}
