#include <gtest/gtest.h>

#include <fstream>

#include "gameplay/WeaponsFixture.h"
#include "gameplay/projectiles/Gib.h"
#include "gameplay/projectiles/GrappleProjectile.h"
#include "gameplay/projectiles/GrenadeProjectile.h"
#include "gameplay/projectiles/RocketProjectile.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "gameplay/weapons/PistolWeapon.h"
#include "gameplay/weapons/ShotgunWeapon.h"
#include "gameplay/weapons/SwarmWeapon.h"
#include "gameplay/weapons/WeaponMapping.h"

class WeaponsTest : public WeaponsFixture {};

TEST_F(WeaponsTest, ShotsWaitForTheDelayAndSpendAmmoOnlyWhenFired)
{
    Inventory& inv = player->inventory;
    // The pistol (500 ms) fires at 0 and 500 but not at 400.
    EXPECT_TRUE(inv.fire(player, player->pos, Vector(1, 0), 0.0f, 2));
    EXPECT_FALSE(inv.fire(player, player->pos, Vector(1, 0), 400.0f, 2));
    EXPECT_TRUE(inv.fire(player, player->pos, Vector(1, 0), 500.0f, 2));
    EXPECT_EQ(inv.ammoOf(1), Inventory::unlimited);

    inv.own(5);
    inv.setAmmo(4, 3);
    EXPECT_TRUE(inv.fire(player, player->pos, Vector(1, 0), 1000.0f, 5));
    EXPECT_FALSE(inv.fire(player, player->pos, Vector(1, 0), 1050.0f, 5));  // too soon: no ammo spent
    EXPECT_EQ(inv.ammoOf(4), 2);
    // Not owned, or outside 1 to 11: ignored.
    EXPECT_FALSE(inv.fire(player, player->pos, Vector(1, 0), 5000.0f, 8));
    EXPECT_FALSE(inv.fire(player, player->pos, Vector(1, 0), 5000.0f, 12));
    EXPECT_EQ(WeaponMapping::byId(0), nullptr);
    EXPECT_EQ(WeaponMapping::byId(12), nullptr);
    EXPECT_EQ(WeaponMapping::idOf("bfg"), -1);
    EXPECT_EQ(WeaponMapping::idOf("railgun"), 8);

    // A level start resets the timers so a long delay never carries over.
    inv.own(10);
    EXPECT_TRUE(inv.fire(player, player->pos, Vector(1, 0), 6000.0f, 10));
    EXPECT_FALSE(inv.weapon(10)->canFire(6001.0f));
    inv.initialise();
    EXPECT_TRUE(inv.weapon(10)->canFire(0.0f));
}

TEST_F(WeaponsTest, HitscanTakesTheNearestSolidBodyAndSkipsTriggersAndTheShooter)
{
    GameBody* trigger = target(-360.0f, 8.0f);
    trigger->setTraceThrough(true);
    GameBody* ghost = target(-340.0f, 8.0f);
    ghost->solid = false;
    GameBody* near = target(-300.0f, 8.0f);
    GameBody* far = target(-250.0f, 8.0f);

    ASSERT_TRUE(fire(2));
    EXPECT_EQ(trigger->health, 1000);
    EXPECT_EQ(ghost->health, 1000);
    EXPECT_EQ(near->health, 980);
    EXPECT_EQ(far->health, 1000);
    EXPECT_EQ(player->health, 100);

    // The end point is where the shot met the body's outline.
    const FireableWeapon::Shot shot =
        FireableWeapon::hitscan(player, player->pos, player->pos + Vector(1000, 0), 0.0f, 0, 1);
    EXPECT_EQ(shot.hit, near);
    EXPECT_NEAR(shot.end.x, -308.0f, 0.5f);
    // Nothing in the way: the far point.
    const FireableWeapon::Shot miss =
        FireableWeapon::hitscan(player, player->pos, player->pos + Vector(0, 300), 0.0f, 0, 1);
    EXPECT_EQ(miss.hit, nullptr);
    EXPECT_NEAR(miss.end.y, player->pos.y + 300.0f, 0.01f);

    // Quad scales the damage and the knockback pushes what can move.
    GameBody* movable = target(-300.0f, 40.0f, 1000, 16.0f, 10.0f);
    player->giveQuad(4.0f);
    const Vector d = movable->pos - player->pos;
    ASSERT_TRUE(player->inventory.fire(player, player->pos, d * (1.0f / d.length2D()), 1000.0f, 2));
    EXPECT_EQ(movable->health, 1000 - 80);
    EXPECT_GT(movable->vel.x, 10.0f);
}

TEST_F(WeaponsTest, RailgunPiercesEveryCreatureAndStopsAtTheWall)
{
    GameBody* first = target(-350.0f, 8.0f);
    GameBody* second = target(-320.0f, 8.0f);
    wall(-250.0f, 40.0f, 16.0f, 80.0f);
    GameBody* behind = target(-200.0f, 8.0f);
    player->inventory.own(8);
    player->inventory.setAmmo(7, 5);
    ASSERT_TRUE(fire(8));
    EXPECT_EQ(first->health, 900);
    EXPECT_EQ(second->health, 900);
    EXPECT_EQ(behind->health, 1000);
    EXPECT_EQ(player->inventory.ammoOf(7), 4);
}

TEST_F(WeaponsTest, ShotgunSpreadFollowsTheSeededGenerator)
{
    GameBody* narrow = target(-100.0f, 8.0f, 1000, 8.0f);
    player->inventory.own(4);
    player->inventory.setAmmo(3, 10);
    auto pelletsHit = [&](unsigned seed, float spread) {
        auto* shotgun = dynamic_cast<ShotgunWeapon*>(player->inventory.weapon(4));
        shotgun->spread = spread;
        shotgun->reset();
        narrow->health = 1000;
        std::srand(seed);
        fire(4);
        return (1000 - narrow->health) / 10;
    };
    // Without spread every pellet hits a target straight ahead.
    EXPECT_EQ(pelletsHit(3, 0.0f), 10);
    // With a wide spread only some do, and the same seed gives the same burst.
    const int hits = pelletsHit(3, 800.0f);
    EXPECT_LT(hits, 10);
    EXPECT_EQ(pelletsHit(3, 800.0f), hits);
}

TEST_F(WeaponsTest, RadialDamageIsFullAtAnyDistanceButThePushFallsOff)
{
    GameBody* close = target(-100.0f, 100.0f, 1000, 8.0f, 10.0f);
    GameBody* rim = target(-100.0f + 34.0f, 100.0f, 1000, 8.0f, 10.0f);
    FireableWeapon::radialDamage(Vector(-100.0f + 2.0f, 100.0f), 32.0f, 1.0f, 50, 512, nullptr);
    EXPECT_EQ(close->health, 950);
    EXPECT_EQ(rim->health, 950);
    EXPECT_LT(close->vel.x, -50.0f);
    EXPECT_GT(rim->vel.x, 0.0f);
    EXPECT_LT(rim->vel.x, 10.0f);

    // The attacker is spared, and the player's side never hurts itself.
    GameBody* ally = target(-100.0f, 200.0f);
    ally->setPlayerSide(true);
    GameBody* enemy = target(-90.0f, 200.0f);
    FireableWeapon::radialDamage(Vector(-95.0f, 200.0f), 32.0f, 1.0f, 50, 512, player);
    EXPECT_EQ(ally->health, 1000);
    EXPECT_EQ(enemy->health, 950);
    placePlayer(-95.0f, 200.0f);
    FireableWeapon::radialDamage(Vector(-95.0f, 200.0f), 32.0f, 1.0f, 50, 512, player);
    EXPECT_EQ(player->health, 100);
    // An enemy's blast does hurt the player.
    FireableWeapon::radialDamage(Vector(-95.0f, 200.0f), 32.0f, 1.0f, 50, 512, enemy);
    EXPECT_EQ(player->health, 50);
}

TEST_F(WeaponsTest, GrenadesBurstWhenTheFuseRunsOutOrOnCreaturesAndClackOffWalls)
{
    GameBody* victim = target(-300.0f, 8.0f, 1000, 16.0f);
    player->inventory.own(6);
    player->inventory.setAmmo(5, 2);
    ASSERT_TRUE(fire(6, Vector(0.0f, 1.0f)));
    EXPECT_EQ(player->inventory.ammoOf(5), 1);
    ASSERT_EQ(count<GrenadeProjectile>(), 1);
    auto* fired = byType<GrenadeProjectile>();
    EXPECT_NEAR(fired->vel.length2D(), 170.0f, 1.0f);
    const float fuse = fired->explodeTime;
    while (levelTime() < fuse - 50.0f)
        frame();
    EXPECT_FALSE(fired->exploded);
    frames(4);
    EXPECT_EQ(count<GrenadeProjectile>(), 0);
    // The blast stayed near the player: the far target is untouched, the owner unhurt.
    EXPECT_EQ(victim->health, 1000);
    EXPECT_EQ(player->health, 100);

    GrenadeProjectile grenade;
    grenade.vel = Vector(0.0f, -20.0f);
    Body* floor = wall(-300.0f, 100.0f, 16.0f, 16.0f);
    touch(grenade, *floor);
    const float first = grenade.nextBounceSoundTime;
    EXPECT_GT(first, 0.0f);
    touch(grenade, *floor);
    EXPECT_FLOAT_EQ(grenade.nextBounceSoundTime, first);  // within 250 ms: silent
    EXPECT_FALSE(grenade.exploded);
    // A door is an entity but no creature.
    GameBody* door = target(-300.0f, 200.0f);
    door->type = "door";
    touch(grenade, *door);
    EXPECT_FALSE(grenade.exploded);
    touch(grenade, *target(-300.0f, 300.0f, 1000, 16.0f, 10.0f));
    EXPECT_TRUE(grenade.exploded);
}

TEST_F(WeaponsTest, RocketsHitDirectlySplashAndPassThroughInvisibleBodies)
{
    GameBody* veil = target(-330.0f, 8.0f, 1000, 16.0f);
    veil->visible = false;
    GameBody* victim = target(-250.0f, 8.0f, 1000, 16.0f);
    GameBody* bystander = target(-250.0f, 30.0f, 1000, 8.0f);
    player->inventory.own(7);
    player->inventory.setAmmo(6, 5);
    player->giveQuad(2.0f);
    ASSERT_TRUE(fire(7));
    for (int i = 0; i < 40 && victim->health == 1000; ++i)
        frame();
    EXPECT_EQ(victim->health, 1000 - 220);
    EXPECT_EQ(bystander->health, 1000 - 220);
    EXPECT_EQ(veil->health, 1000);
    EXPECT_EQ(player->health, 100);
    frame();
    EXPECT_EQ(count<RocketProjectile>(), 0);
}

TEST_F(WeaponsTest, TheHookAttachesPullsAndLetsGo)
{
    wall(-400.0f, 200.0f, 200.0f, 16.0f);
    GameplayInput::fireWeaponId = 1;
    GameplayInput::fireById = true;
    player->mouseWorldPos = Vector(-400.0f, 300.0f);
    frame();
    ASSERT_TRUE(player->grappling);
    auto* hook = dynamic_cast<GrappleProjectile*>(player->hook);
    ASSERT_NE(hook, nullptr);
    EXPECT_NEAR(hook->vel.y, 300.0f, 1.0f);
    for (int i = 0; i < 40 && !hook->attached; ++i)
        frame();
    ASSERT_TRUE(hook->attached);
    EXPECT_TRUE(player->hookAttached);
    frames(2);
    EXPECT_GT(player->vel.y, 100.0f);
    // Held: no second hook.
    EXPECT_EQ(count<GrappleProjectile>(), 1);
    // Let go: the hook leaves the world.
    GameplayInput::fireById = false;
    frame();
    EXPECT_FALSE(player->grappling);
    EXPECT_EQ(player->hook, nullptr);
    frame();
    EXPECT_EQ(count<GrappleProjectile>(), 0);
    // The hook's ammo count is unlimited whatever it was.
    EXPECT_EQ(player->inventory.ammoOf(0), Inventory::unlimited);
}

TEST_F(WeaponsTest, GibsAreCappedAndExpire)
{
    setVar("maxgibs", "6");
    // Bursts of two to five: the one that would pass the cap is cut short.
    int made = 0;
    for (int i = 0; i < 6; ++i)
        made += Gib::spawnGibs(Vector(-200.0f, 100.0f), 100.0f, 200.0f, 8.0f, 10.0f);
    EXPECT_EQ(made, 6);
    EXPECT_EQ(count<Gib>(), 6);
    EXPECT_EQ(Gib::spawnGibs(Vector(-200.0f, 100.0f), 100.0f, 200.0f, 8.0f, 10.0f), 0);
    // A violent death throws gibs (once there is room again).
    frames(130);
    EXPECT_EQ(count<Gib>(), 0);
    EXPECT_EQ(gameplay->getGibCount(), 0);
    GameBody* victim = target(-200.0f, 8.0f, 10);
    victim->showdamage = true;
    victim->takeDamage(100, 1);
    EXPECT_GE(count<Gib>(), 2);
}

TEST_F(WeaponsTest, SwarmSizeFollowsTheUpgradeLevel)
{
    for (auto [level, members] : {std::pair{1, 3}, {2, 3}, {3, 4}, {4, 4}, {5, 5}}) {
        player->properties.swarmLevel = level;
        EXPECT_EQ(SwarmWeapon::memberCount(player), members) << level;
    }
    GameBody enemy;
    EXPECT_EQ(SwarmWeapon::memberCount(&enemy), 4);
}

TEST_F(WeaponsTest, DefinitionsOverrideDefaultsAndBadFilesKeepThem)
{
    auto write = [](const std::string& text) {
        std::ofstream("weapons.xml") << text;
    };
    PistolWeapon pistol;
    // Missing file: built-in numbers.
    EXPECT_FALSE(WeaponDefinitions::load("no-such-weapons.xml"));
    pistol.applyDefinition();
    EXPECT_FLOAT_EQ(pistol.delay, 500.0f);

    write("<weapons><pistol damage=\"30\" delay=\"250\" range=\"900\"/><shotgun numshots=\"6\"/>"
          "<bfg damage=\"9\"/></weapons>");
    EXPECT_TRUE(WeaponDefinitions::load("weapons.xml"));
    pistol.applyDefinition();
    EXPECT_EQ(pistol.damage, 30);
    EXPECT_FLOAT_EQ(pistol.delay, 250.0f);
    EXPECT_FLOAT_EQ(pistol.range, 900.0f);
    ShotgunWeapon shotgun;
    shotgun.applyDefinition();
    EXPECT_EQ(shotgun.numShots, 6);

    // Bad numbers: that row keeps its previous values; the others load.
    write("<weapons><pistol damage=\"lots\" delay=\"-1\"/><shotgun numshots=\"100000\"/>"
          "<railgun damage=\"150\"/></weapons>");
    EXPECT_TRUE(WeaponDefinitions::load("weapons.xml"));
    pistol.applyDefinition();
    EXPECT_EQ(pistol.damage, 30);
    shotgun.applyDefinition();
    EXPECT_EQ(shotgun.numShots, 6);
    ASSERT_NE(WeaponDefinitions::find("railgun"), nullptr);
    EXPECT_EQ(WeaponDefinitions::find("railgun")->damage, 150);

    // Not XML at all.
    write("<weapons><pistol");
    EXPECT_FALSE(WeaponDefinitions::load("weapons.xml"));
    EXPECT_EQ(WeaponDefinitions::find("pistol")->damage, 30);
}
