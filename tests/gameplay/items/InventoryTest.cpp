#include <gtest/gtest.h>

#include <tinyxml.h>

#include "gameplay/WeaponsFixture.h"

class InventoryTest : public WeaponsFixture {};

TEST_F(InventoryTest, LevelsStartWithHookPistolAndSwarmUnlimitedAndAmmoIsCappedAtTheMaximumOr999)
{
    Inventory& inv = player->inventory;
    for (int id : {1, 2, 10})
        EXPECT_TRUE(inv.owns(id)) << id;
    for (int id : {3, 4, 5, 6, 7, 8, 9, 11})
        EXPECT_FALSE(inv.owns(id)) << id;
    for (int type : {0, 1, 9})
        EXPECT_EQ(inv.ammoOf(type), Inventory::unlimited);
    EXPECT_EQ(inv.currentWeapon, 2);
    EXPECT_EQ(inv.weapon(11), nullptr);

    inv.setAmmo(3, 45);
    inv.addAmmo(3, 10);
    EXPECT_EQ(inv.ammoOf(3), 50);
    run("giveall");
    EXPECT_EQ(inv.ammoOf(3), 999);
    inv.addAmmo(3, 10);
    EXPECT_EQ(inv.ammoOf(3), 999);
    inv.addAmmo(1, 10);
    EXPECT_EQ(inv.ammoOf(1), Inventory::unlimited);
    for (int id = 1; id <= 10; ++id)
        EXPECT_TRUE(inv.owns(id));
    run("give modest");
    EXPECT_EQ(inv.ammoOf(3), 50);
    // Hostile numbers stay within bounds.
    run("give shotgunammo 2147483647");
    EXPECT_EQ(inv.ammoOf(3), 999);
    inv.addAmmo(3, 2147483647);
    EXPECT_EQ(inv.ammoOf(3), 999);
}

TEST_F(InventoryTest, ADryWeaponChangesToTheBestLoadedOneAfter800ms)
{
    Inventory& inv = player->inventory;
    for (int id : {4, 5, 7})
        inv.own(id);
    inv.setAmmo(3, 10);  // shells
    inv.setAmmo(4, 0);   // bullets: dry
    inv.setAmmo(6, 4);   // rockets
    inv.selectWeapon(5);
    frames(4);
    const float t0 = levelTime();
    GameplayInput::attack = true;
    frame();
    EXPECT_EQ(inv.bestWeapon, 7);
    EXPECT_NEAR(inv.nextNoAmmoChangeTime, t0 + 25.0f + 800.0f, 30.0f);
    const float clickAt = inv.nextNoAmmoSoundTime;
    EXPECT_GT(clickAt, t0);
    frame();
    EXPECT_FLOAT_EQ(inv.nextNoAmmoSoundTime, clickAt);  // the click waits 500 ms
    while (levelTime() < t0 + 700.0f)
        frame();
    EXPECT_EQ(inv.currentWeapon, 5);
    frames(12);
    EXPECT_EQ(inv.currentWeapon, 7);
    EXPECT_FLOAT_EQ(inv.nextNoAmmoChangeTime, 0.0f);
    GameplayInput::attack = false;
}

TEST_F(InventoryTest, WeaponSelectionStepsThroughOwnedWeaponsAndWraps)
{
    Inventory& inv = player->inventory;
    inv.selectWeapon(10);
    inv.nextWeapon();
    EXPECT_EQ(inv.currentWeapon, 1);
    inv.previousWeapon();
    EXPECT_EQ(inv.currentWeapon, 10);
    inv.previousWeapon();
    EXPECT_EQ(inv.currentWeapon, 2);
    EXPECT_TRUE(gameplay->getHud().isWeaponStripVisible());
    run("useitem railgun");  // not owned
    EXPECT_EQ(inv.currentWeapon, 2);
    run("give railgun");
    run("useitem railgun");
    EXPECT_EQ(inv.currentWeapon, 8);
    GameplayInput::nextWeaponRequested = true;
    frame();
    EXPECT_EQ(inv.currentWeapon, 10);
}

TEST_F(InventoryTest, UpgradesFollowCashOneOrSeveralThresholdsAtATime)
{
    PlayerProperties& props = player->properties;
    player->giveCash(49);
    EXPECT_EQ(props.currentLevel, 0);
    player->giveCash(1);
    EXPECT_EQ(props.currentLevel, 1);
    EXPECT_EQ(player->maxhealth, 150);
    EXPECT_EQ(gameplay->getHud().lastMessage(), "Upgraded to Level 1 : Max Health Increased");

    PlayerProperties fresh;
    fresh.cash = 40;
    EXPECT_FALSE(fresh.checkUpgrades());
    fresh.cash = 110;
    EXPECT_TRUE(fresh.checkUpgrades());
    EXPECT_EQ(fresh.currentLevel, 3);
    EXPECT_EQ(fresh.maxArmour, 150);
    EXPECT_EQ(fresh.swarmLevel, 2);
    EXPECT_EQ(fresh.cashUntilNextLevel(), 40);
    fresh.cash = 1000;
    fresh.checkUpgrades();
    EXPECT_EQ(fresh.currentLevel, 12);
    EXPECT_EQ(fresh.upgradeMessage, "Upgraded to Maximum Level 12 : Swarm Upgraded");
    EXPECT_EQ(fresh.maxHealth, 500);
    EXPECT_EQ(fresh.cashUntilNextLevel(), 0);

    run("upgrade health 6");
    EXPECT_EQ(props.healthLevel, 2);
    run("upgrade armour");
    EXPECT_EQ(props.armourLevel, 2);
    EXPECT_EQ(player->maxarmour, 150);
    run("upgrade swarm 5");
    EXPECT_EQ(props.swarmLevel, 5);
}

// Owned weapons, ammo and the weapon in hand are checked with whole-game saves.
TEST_F(InventoryTest, ASaveRederivesUpgradesAndRefusesDoctoredValues)
{
    player->giveCash(160);
    TiXmlElement element("P");
    player->writeState(&element);
    Player restored;
    restored.readState(&element);
    EXPECT_EQ(restored.properties.cash, 160);
    EXPECT_EQ(restored.properties.currentLevel, 4);
    EXPECT_EQ(restored.maxhealth, 300);
    EXPECT_EQ(restored.inventory.ammoOf(1), Inventory::unlimited);

    // A doctored save cannot smuggle in unknown ids or absurd levels.
    TiXmlElement bad("P");
    bad.SetAttribute("healthlevel", 99);
    TiXmlElement badInv("inventory");
    badInv.SetAttribute("activeweap", 77);
    TiXmlElement weapons("weapons");
    weapons.SetAttribute("w99", 1);
    badInv.InsertEndChild(weapons);
    bad.InsertEndChild(badInv);
    Player other;
    other.readState(&bad);
    EXPECT_EQ(other.properties.healthLevel, 1);
    EXPECT_EQ(other.inventory.currentWeapon, 2);
    EXPECT_FALSE(other.inventory.owns(99));
}
