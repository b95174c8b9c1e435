#include "gameplay/GameplayFixture.h"
#include "gameplay/items/QuadDamage.h"

class PlayerTest : public GameplayFixture {};

TEST_F(PlayerTest, FallingOutOfTheLevelKillsAndRestartsItTwoSecondsLater)
{
    loadLevel(spawnPoint("start", -200.0f, 20.0f, true));
    frames(10);
    // The fixture floor's bottom is at -100; death comes a thousand and more below it.
    player->setPosition(Vector(2000.0f, -1000.0f));
    frames(4);
    EXPECT_FALSE(player->dead);
    player->setPosition(Vector(2000.0f, -1110.0f));
    frame();
    EXPECT_TRUE(player->dead);
    EXPECT_TRUE(player->dying);
    EXPECT_FALSE(player->visible);
    EXPECT_FALSE(player->solid);
    EXPECT_FLOAT_EQ(player->mass, 0.0f);
    EXPECT_FLOAT_EQ(player->invMass, 0.0f);
    EXPECT_FLOAT_EQ(player->restartTime, levelTime() + 2000.0f);
    const float restartAt = player->restartTime;

    // A second death while dead changes nothing.
    player->die();
    EXPECT_FLOAT_EQ(player->restartTime, restartAt);

    while (levelTime() < restartAt)
        frame();
    EXPECT_TRUE(player->dead);
    EXPECT_FALSE(game->isLevelPending());
    // The first think after the restart time asks for the level again.
    while (!game->isLevelPending() && levelTime() < restartAt + 250.0f)
        frame();
    EXPECT_TRUE(game->isLevelPending());
    EXPECT_GT(levelTime(), restartAt);
    frame();  // the pending level loads
    EXPECT_FALSE(game->isLevelPending());
    EXPECT_FALSE(player->dead);
    EXPECT_FALSE(player->dying);
    EXPECT_TRUE(player->visible);
    EXPECT_TRUE(player->solid);
    EXPECT_TRUE(player->takedamage);
    EXPECT_FLOAT_EQ(player->mass, 100.0f);
    EXPECT_FLOAT_EQ(player->invMass, 0.01f);
    EXPECT_FLOAT_EQ(player->gravitymultiplier, 1.0f);
    EXPECT_EQ(player->health, player->maxhealth);
    EXPECT_FLOAT_EQ(player->pos.x, -200.0f);
    EXPECT_LT(levelTime(), 100.0f);
}

TEST_F(PlayerTest, PowerUpsLastThirtySecondsAndKeepTheLargerFactor)
{
    loadLevel();
    QuadDamage pickup;
    touch(pickup, *player);
    EXPECT_TRUE(player->hasquad);
    EXPECT_FLOAT_EQ(player->damagefactor, 4.0f);
    EXPECT_EQ(gameplay->getHud().lastMessage(), "Quad Damage");
    frames(40);
    player->giveQuad(2.0f);
    EXPECT_FLOAT_EQ(player->damagefactor, 4.0f);
    EXPECT_FLOAT_EQ(player->quadtime, levelTime() + 30000.0f);

    player->giveInvincibility(0.25f);
    EXPECT_TRUE(player->hasinvinc);
    EXPECT_FLOAT_EQ(player->damagetakenfactor, 0.25f);
    player->health = 100;
    player->takeDamage(40, -1);
    EXPECT_EQ(player->health, 90);

    // Expiry: both end once their time has passed.
    player->quadtime = levelTime() - 1.0f;
    player->invinctime = levelTime() - 1.0f;
    frames(9);
    EXPECT_FALSE(player->hasquad);
    EXPECT_FLOAT_EQ(player->damagefactor, 1.0f);
    EXPECT_FALSE(player->hasinvinc);
    EXPECT_FLOAT_EQ(player->damagetakenfactor, 1.0f);

    player->giveCash(5);
    EXPECT_EQ(gameplay->getHud().lastMessage(), "Cash");
}
