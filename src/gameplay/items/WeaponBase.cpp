#include "gameplay/items/WeaponBase.h"

#include "gameplay/Difficulty.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/WeaponMapping.h"
#include "world/level/LevelValues.h"

WeaponBase::WeaponBase(const std::string& typeName) : weaponType(typeName)
{
    type = typeName;
    respawnDelay = 5000.0f;
}

std::unique_ptr<Body> WeaponBase::clone() const { return std::make_unique<WeaponBase>(type); }

bool WeaponBase::giveTo(Player& player)
{
    const WeaponMapping::Row* weapon = WeaponMapping::byName(weaponType);
    if (!weapon)
        return false;
    player.inventory.own(weapon->weaponId);
    player.inventory.addAmmo(weapon->ammoType, Difficulty::scalePickup(ammoAmount));
    announce(17, weapon->displayName);
    return true;
}

void WeaponBase::readAttributes(const std::map<std::string, std::string>& attrs)
{
    RespawnableBody::readAttributes(attrs);
    if (const std::string* v = findAttribute(attrs, "weapontype"))
        weaponType = *v;
    if (const std::string* v = findAttribute(attrs, "ammo"))
        ammoAmount = readInt(*v);
}
