#include "gameplay/weapons/WeaponMapping.h"

namespace {
const WeaponMapping::Row rows[] = {
    {1, 0, "grapple", "grapple", "Grappling Hook"},
    {2, 1, "pistol", "pistol", "Pistol"},
    {3, 2, "plasmagun", "plasmagun", "Plasma Gun"},
    {4, 3, "shotgun", "shotgun", "Shotgun"},
    {5, 4, "chaingun", "chaingun", "Chaingun"},
    {6, 5, "grenadelauncher", "grenadelauncher", "Grenade Launcher"},
    {7, 6, "rocketlauncher", "rocketlauncher", "Rocket Launcher"},
    {8, 7, "railgun", "railgun", "Railgun"},
    {9, 8, "lightninggun", "lightninggun", "Lightning Gun"},
    {10, 9, "swarm", "swarm", "Swarm"},
    {11, 10, "magneticgun", "magneticgun", "Magnetic Gun"},
};
}

const WeaponMapping::Row* WeaponMapping::byId(int weaponId)
{
    if (weaponId < firstId || weaponId > lastId)
        return nullptr;
    return &rows[weaponId - 1];
}

const WeaponMapping::Row* WeaponMapping::byName(const std::string& itemName)
{
    for (const Row& row : rows)
        if (itemName == row.lookupName)
            return &row;
    return nullptr;
}

int WeaponMapping::idOf(const std::string& itemName)
{
    const Row* row = byName(itemName);
    return row ? row->weaponId : -1;
}

std::string WeaponMapping::displayName(int weaponId)
{
    const Row* row = byId(weaponId);
    return row ? row->displayName : "";
}

std::string WeaponMapping::itemName(int weaponId)
{
    const Row* row = byId(weaponId);
    return row ? row->itemName : "";
}
