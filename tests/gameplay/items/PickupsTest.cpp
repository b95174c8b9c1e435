#include <gtest/gtest.h>

#include "gameplay/WeaponsFixture.h"
#include "gameplay/items/AmmoBase.h"
#include "gameplay/items/CashPickup.h"
#include "gameplay/items/Health.h"
#include "gameplay/items/QuickArmour.h"
#include "gameplay/items/ScreenWiper.h"
#include "gameplay/items/WeaponBase.h"
#include "world/movers/PainBody.h"

class PickupsTest : public WeaponsFixture {
protected:
    template <class T, class... Args>
    T* pickup(Args&&... args)
    {
        T* body = spawn(new T(std::forward<Args>(args)...), -300.0f, 8.0f);
        body->setMass(0.0f);
        return body;
    }};

TEST_F(PickupsTest, HealthHealsUpToTheMaximumAndRespawnsOnTheLevelClock)
{
    player->maxhealth = 150;
    player->health = 100;
    Health* health = pickup<Health>();
    // Only the living player collects, and walks through pickups instead of bumping into them.
    GameBody stranger;
    touch(*health, stranger);
    player->dead = true;
    touch(*health, *player);
    player->dead = false;
    EXPECT_TRUE(health->visible);
    EXPECT_FALSE(health->collidesWith(player));
    touch(*health, *player);
    EXPECT_EQ(player->health, 150);
    EXPECT_FALSE(health->visible);
    EXPECT_EQ(gameplay->getHud().lastMessage(), "Health");
    // Taken: touching again does nothing until it is back.
    player->health = 10;
    touch(*health, *player);
    EXPECT_EQ(player->health, 10);
    const float back = health->nextRespawn;
    EXPECT_FLOAT_EQ(back - levelTime(), 5000.0f);
    while (levelTime() < back)
        frame();
    frames(10);
    EXPECT_TRUE(health->visible);
    // At full health it stays where it is.
    player->health = 150;
    touch(*health, *player);
    EXPECT_TRUE(health->visible);

    // Placed by a level: the longer delay and 50.
    Health level;
    level.readAttributes({});
    EXPECT_FLOAT_EQ(level.respawnDelay, 20000.0f);
    level.readAttributes({{"RespawnDelay", "7000"}, {"amount", "25"}});
    EXPECT_FLOAT_EQ(level.respawnDelay, 7000.0f);
    EXPECT_EQ(level.amount, 25);
}

TEST_F(PickupsTest, AmmoAndWeaponPickups)
{
    AmmoBase* shells = pickup<AmmoBase>("shotgunammo");
    player->inventory.setAmmo(3, 50);
    touch(*shells, *player);
    EXPECT_TRUE(shells->visible);  // full: left in place
    player->inventory.setAmmo(3, 45);
    touch(*shells, *player);
    EXPECT_EQ(player->inventory.ammoOf(3), 50);
    EXPECT_FALSE(shells->visible);
    EXPECT_EQ(gameplay->getHud().lastMessage(), "Shells");

    WeaponBase* launcher = pickup<WeaponBase>("rocketlauncher");
    touch(*launcher, *player);
    EXPECT_TRUE(player->inventory.owns(7));
    EXPECT_EQ(player->inventory.ammoOf(6), 10);
    EXPECT_EQ(gameplay->getHud().lastMessage(), "Rocket Launcher");
}

TEST_F(PickupsTest, CashIsTakenForGoodAndArmourShardsGiven)
{
    CashPickup* cash = pickup<CashPickup>();
    cash->amount = 60;
    touch(*cash, *player);
    EXPECT_EQ(player->properties.cash, 60);
    frames(400);  // 10 s: cash never comes back
    EXPECT_FALSE(cash->visible);

    // A shard gives twenty unless the level says otherwise.
    player->armour = 0;
    touch(*pickup<QuickArmour>(), *player);
    EXPECT_EQ(player->armour, 20);
    QuickArmour level;
    level.readAttributes({{"amount", "5"}});
    EXPECT_EQ(level.amount, 5);
}

TEST_F(PickupsTest, TheScreenWiperHitsEnemiesInRangeOnly)
{
    GameBody* nearEnemy = target(-200.0f, 8.0f, 600);
    nearEnemy->setEnemy(true);
    GameBody* friendly = target(-250.0f, 8.0f, 600);
    GameBody* farEnemy = target(300.0f, 100.0f, 600);
    farEnemy->setEnemy(true);
    ScreenWiper* wiper = pickup<ScreenWiper>();
    touch(*wiper, *player);
    EXPECT_EQ(nearEnemy->health, 100);
    EXPECT_EQ(friendly->health, 600);
    EXPECT_EQ(farEnemy->health, 600);
    EXPECT_EQ(gameplay->getHud().lastMessage(), "SCREENWIPE");
}

// Whatever pain a level gives, negative included, health and armour stay
// within their caps.
TEST_F(PickupsTest, PainNeverPushesHealthOrArmourPastTheirCaps)
{
    for (int pain : {-1, -30, -2000000000, 2000000000}) {
        SCOPED_TRACE(pain);
        player->maxhealth = player->maxarmour = 100;
        player->health = 60;
        player->armour = 50;
        PainBody zone;
        zone.readAttributes({{"on", "true"}, {"pain", std::to_string(pain)}});
        for (int i = 0; i < 50; ++i) {
            player->nextpaintime = -1.0f;
            player->dying = false;
            touch(zone, *player);
            ASSERT_LE(player->health, 100);
            ASSERT_GE(player->armour, 0);
            ASSERT_LE(player->armour, 100);
        }
        if (pain < 0) {
            EXPECT_EQ(player->health, 100);
            EXPECT_EQ(player->armour, 50);
        }
    }
    player->armour = 90;
    player->addArmour(2000000000);
    EXPECT_EQ(player->armour, 100);
    player->health = 90;
    player->addHealth(2000000000);
    EXPECT_EQ(player->health, 100);
}
