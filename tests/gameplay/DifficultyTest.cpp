#include <gtest/gtest.h>

#include <climits>

#include "console/GameVar.h"
#include "gameplay/Difficulty.h"
#include "gameplay/WeaponsFixture.h"
#include "gameplay/items/AmmoBase.h"
#include "gameplay/items/Armour.h"
#include "gameplay/items/QuickHealth.h"
#include "gameplay/items/WeaponBase.h"

TEST(DifficultyScale, RoundsHoldsSmallHitsAndSaturates)
{
    struct Case {
        int amount, level, damage, pickup;
    };
    const Case cases[] = {
        {20, Difficulty::easy, 10, 30},       {20, Difficulty::normal, 20, 20},
        {20, Difficulty::hard, 30, 15},       {1, Difficulty::easy, 1, 2},
        {1, Difficulty::hard, 2, 1},          {3, Difficulty::hard, 5, 2},
        {0, Difficulty::hard, 0, 0},          {-10, Difficulty::easy, -10, -10},
        {INT_MAX, Difficulty::hard, INT_MAX, 1610612735},
        // Out-of-range levels are held to easy and hard.
        {20, -5, 10, 30},                     {20, 9, 30, 15},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.amount) + " at level " + std::to_string(c.level));
        EXPECT_EQ(Difficulty::scaleDamageTaken(c.amount, c.level), c.damage);
        EXPECT_EQ(Difficulty::scalePickup(c.amount, c.level), c.pickup);
    }
}

class DifficultyTest : public WeaponsFixture {
protected:
    void SetUp() override
    {
        WeaponsFixture::SetUp();
        GameVar* var = createVar("difficulty", "1", "");
        var->setRange(0, 2);
    }
    void setLevel(int level) { findVar("difficulty")->setInt(level); }
};

TEST_F(DifficultyTest, DamageTakenAndPickupsFollowTheLevel)
{
    struct Case {
        int level, healthAfterHit, health, armour, shells, rockets;
    };
    // A 20 hit on 100 health; 20 health, 20 armour, 10 shells, a launcher with 10.
    const Case cases[] = {
        {Difficulty::easy, 90, 40, 30, 15, 15},
        {Difficulty::normal, 80, 30, 20, 10, 10},
        {Difficulty::hard, 70, 25, 15, 8, 8},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE("difficulty " + std::to_string(c.level));
        setLevel(c.level);
        player->health = 100;
        player->armour = 0;
        player->takeDamage(20, 1);
        EXPECT_EQ(player->health, c.healthAfterHit);

        player->maxhealth = 200;
        player->health = 10;
        QuickHealth health;
        touch(health, *player);
        EXPECT_EQ(player->health, c.health);

        player->armour = 0;
        Armour armour;
        armour.amount = 20;
        touch(armour, *player);
        EXPECT_EQ(player->armour, c.armour);

        player->inventory.setAmmo(3, 0);
        AmmoBase shells("shotgunammo");
        touch(shells, *player);
        EXPECT_EQ(player->inventory.ammoOf(3), c.shells);

        player->inventory.setAmmo(6, 0);
        WeaponBase launcher("rocketlauncher");
        touch(launcher, *player);
        EXPECT_EQ(player->inventory.ammoOf(6), c.rockets);
    }
}
