#include <typeinfo>

#include "gameplay/GameplayFixture.h"
#include "gameplay/enemies/BlockBoss.h"
#include "gameplay/enemies/EnemyBase.h"

namespace {

class EnemyArenaTest : public GameplayFixture {
protected:
    void SetUp() override
    {
        GameplayFixture::SetUp();
        builtInWeapons(7);
        loadShipped("enemies");
    }
    int reinforcements() { return count("bacteria") + count("swarmer"); }
};

// Every body of the arena and the boss wing is a real class. The god-mode
// player sweeps them west to east, firing the chaingun and rockets all the
// way; the fight must neither crash nor breed without end.
TEST_F(EnemyArenaTest, GodModeSoakStaysBounded)
{
    for (Body* b : game->getBodies()) {
        if (b->type != "default" && b->type != "player") {
            EXPECT_NE(typeid(*b), typeid(Body)) << b->type;
        }
    }
    run("god");
    ASSERT_TRUE(player->isGodMode());
    player->inventory.giveAllWeapons();
    player->inventory.giveAllAmmo(true);
    const int startBodies = static_cast<int>(game->getBodies().size());
    const int startEnemies = count<EnemyBase>();
    EXPECT_GE(startEnemies, 40);
    int most = 0;
    for (int stepNo = 0; stepNo < 2000; ++stepNo) {
        if (stepNo % 100 == 0) {
            const float x = -200.0f + 11600.0f * static_cast<float>(stepNo) / 2000.0f;
            placePlayer(x, 40.0f);
            player->inventory.giveAllAmmo(true);
        }
        const int weapon = stepNo == 500 ? 10 : stepNo % 40 < 30 ? 5 : 7;
        player->inventory.fire(player, player->pos, Vector(1.0f, 0.0f), Player::now(), weapon);
        frame();
        most = std::max(most, static_cast<int>(game->getBodies().size()));
    }
    const int endEnemies = count<EnemyBase>();
    EXPECT_LT(most, startBodies + 600) << "bodies stay bounded";
    EXPECT_LT(endEnemies, startEnemies) << "the sweep kills enemies";
    EXPECT_FALSE(player->dead);
}

// The boss waits at home while the player is elsewhere (at the way into the
// mine field), then fights inside its arena with a bounded crowd of
// reinforcements.
TEST_F(EnemyArenaTest, BlockBossFightsOnlyInItsArenaWithBoundedReinforcements)
{
    auto* boss = byType<EnemyBase>("blockboss");
    ASSERT_NE(boss, nullptr);
    const Vector home = boss->pos;
    const int placed = reinforcements();
    const int mines = count("proxygrenade");
    run("warpto minefield");
    frames(80);
    ASSERT_FALSE(player->dead) << "the mine field's way in is clear of the mines";
    ASSERT_EQ(count("proxygrenade"), mines);
    frames(920);
    EXPECT_NEAR(boss->pos.x, home.x, 1.0f);
    EXPECT_EQ(reinforcements(), placed);

    run("god");
    run("warpto blockboss");
    int most = 0;
    float left = boss->pos.x, right = boss->pos.x;
    for (int i = 0; i < 4800; ++i) {
        // Blasts throw the player about: back into the arena now and then.
        if (i % 200 == 0)
            run("warpto blockboss");
        frame();
        most = std::max(most, reinforcements() - placed);
        left = std::min(left, boss->pos.x);
        right = std::max(right, boss->pos.x);
    }
    EXPECT_GT(most, 0) << "it called for help";
    EXPECT_LE(most, BlockBoss::maxEnemiesInArena + 3);
    EXPECT_GE(left, 9040.0f);
    EXPECT_LE(right, 10240.0f);
    EXPECT_GT(boss->health, 0);
}

}
