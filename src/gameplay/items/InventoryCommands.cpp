// The item console commands. They act on whichever player is current when
// they run, so registering them once serves every level and every player.
#include <cstdio>
#include <string>

#include "console/CommandRegistry.h"
#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/items/Inventory.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/AmmoMapping.h"
#include "gameplay/weapons/WeaponDefinitions.h"
#include "gameplay/weapons/WeaponMapping.h"
#include "render/GameHUD.h"

namespace {
Player* currentPlayer() { return GameplaySingleton::get().resources.player; }

const std::string& arg(int i) { return CommandRegistry::instance().arg(i); }
int argCount() { return CommandRegistry::instance().argumentCount; }
bool hasNumber(int i) { return argCount() > i; }
int number(int i) { return GameVar::parseInt(arg(i)); }

void give()
{
    Player* p = currentPlayer();
    if (!p || argCount() < 1)
        return;
    Inventory& inv = p->inventory;
    const std::string item = arg(0);
    if (item == "all") {
        inv.giveAllWeapons();
        inv.giveAllAmmo(false);
    } else if (item == "modest") {
        inv.giveAllWeapons();
        inv.giveAllAmmo(true);
    } else if (item == "quad") {
        p->giveQuad(4.0f);
    } else if (item == "invincibility") {
        p->giveInvincibility(0.0f);
    } else if (item == "megaquad") {
        p->giveQuad(8.0f);
    } else if (item == "health") {
        p->health = hasNumber(1) ? number(1) : 100;
    } else if (item == "armour" || item == "armor") {
        if (hasNumber(1))
            p->armour = number(1);
        else
            p->addArmour(100);
    } else if (item == "cash") {
        p->giveCash(hasNumber(1) ? number(1) : 5);
    } else if (item == "ammo") {
        inv.giveAllAmmo(false);
    } else if (item == "weapons") {
        inv.giveAllWeapons();
    } else if (const WeaponMapping::Row* w = WeaponMapping::byName(item)) {
        inv.own(w->weaponId);
    } else if (const AmmoMapping::Row* a = AmmoMapping::byName(item)) {
        if (hasNumber(1))
            inv.setAmmo(a->ammoType, number(1));
        else
            inv.addAmmo(a->ammoType, 5);
    }
}

void useItem()
{
    Player* p = currentPlayer();
    if (argCount() < 1) {
        conPrint("Usage: useitem itemname");
        return;
    }
    if (!p)
        return;
    const WeaponMapping::Row* w = WeaponMapping::byName(arg(0));
    if (!w)
        return;
    if (p->inventory.owns(w->weaponId))
        p->inventory.selectWeapon(w->weaponId);
    else if (GameHUD* hud = GameplaySingleton::get().hud)
        hud->showWeaponStrip();
}

void upgrade()
{
    Player* p = currentPlayer();
    if (!p || argCount() < 1)
        return;
    PlayerProperties& props = p->properties;
    const std::string what = arg(0);
    auto levelFor = [](int current) { return hasNumber(1) ? number(1) : current + 1; };
    if (what == "swarm")
        props.setSwarmLevel(levelFor(props.swarmLevel));
    else if (what == "health" && props.setHealthLevel(levelFor(props.healthLevel)))
        p->maxhealth = props.maxHealth;
    else if ((what == "armour" || what == "armor") && props.setArmourLevel(levelFor(props.armourLevel)))
        p->maxarmour = props.maxArmour;
}

// One line for the console and the log: what the player holds right now.
void listInventory()
{
    Player* p = currentPlayer();
    if (!p)
        return;
    const Inventory& inv = p->inventory;
    const WeaponMapping::Row* row = WeaponMapping::byId(inv.currentWeapon);
    std::string owned;
    for (int id = 1; id <= 11; ++id)
        if (inv.owns(id))
            owned += (owned.empty() ? "" : ",") + std::to_string(id);
    char line[256];
    std::snprintf(line, sizeof line, "Inventory: weapon %d (%s) ammo %d owned %s health %d armour %d cash %d level %d",
                  inv.currentWeapon, row ? row->displayName : "none", row ? inv.ammoOf(row->ammoType) : 0,
                  owned.c_str(), p->health, p->armour, p->properties.cash, p->properties.currentLevel);
    conPrint(line);
    std::printf("%s\n", line);
    std::fflush(stdout);
}

void showUpgrades(bool on)
{
    if (GameHUD* hud = GameplaySingleton::get().hud)
        hud->setUpgradeScreen(on);
}
}

void Inventory::registerCommands()
{
    registerCommand("give all weaps and ammo", "giveall", [] {
        if (Player* p = currentPlayer()) {
            p->inventory.giveAllWeapons();
            p->inventory.giveAllAmmo(false);
        }
    });
    registerCommand("give named items", "give", give);
    registerCommand("use a weapon/item", "useitem", useItem);
    registerCommand("upgrade cheat", "upgrade", upgrade);
    registerCommand("reload weapon defs", "reloadweapondefs", [] {
        WeaponDefinitions::load();
        if (Player* p = currentPlayer())
            p->inventory.applyDefinitions();
    });
    registerCommand("print the weapons, ammo, health and cash you hold", "listinventory", listInventory);
    registerCommand("show upgrades screen", "+showupgrades", [] { showUpgrades(true); });
    registerCommand("hide upgrades screen", "-showupgrades", [] { showUpgrades(false); });
}
