#include "gameplay/items/AmmoBase.h"

#include "gameplay/Difficulty.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/AmmoMapping.h"
#include "gameplay/weapons/WeaponMapping.h"
#include "world/level/LevelValues.h"

AmmoBase::AmmoBase(const std::string& typeName)
{
    type = typeName;
    respawnDelay = 5000.0f;
    // "shotgunammo" holds the shotgun's ammo unless the level says otherwise.
    const std::string suffix = "ammo";
    if (typeName.size() > suffix.size() && typeName.compare(typeName.size() - suffix.size(), suffix.size(), suffix) == 0)
        ammoWeapon = typeName.substr(0, typeName.size() - suffix.size());
}

std::unique_ptr<Body> AmmoBase::clone() const { return std::make_unique<AmmoBase>(type); }

bool AmmoBase::giveTo(Player& player)
{
    const WeaponMapping::Row* weapon = WeaponMapping::byName(ammoWeapon);
    if (!weapon)
        return false;
    Inventory& inv = player.inventory;
    const int count = inv.ammoOf(weapon->ammoType);
    if (count == Inventory::unlimited || count >= inv.maxAmmoOf(weapon->ammoType))
        return false;
    inv.addAmmo(weapon->ammoType, Difficulty::scalePickup(ammoAmount));
    announce(14, AmmoMapping::displayName(weapon->ammoType));
    return true;
}

void AmmoBase::readAttributes(const std::map<std::string, std::string>& attrs)
{
    RespawnableBody::readAttributes(attrs);
    if (const std::string* v = findAttribute(attrs, "ammotype"))
        ammoWeapon = *v;
    if (const std::string* v = findAttribute(attrs, "ammo"))
        ammoAmount = readInt(*v);
}
