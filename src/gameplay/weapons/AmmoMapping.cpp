#include "gameplay/weapons/AmmoMapping.h"

namespace {
const AmmoMapping::Row rows[] = {
    {0, "grappleammo", "Grapple Ammo"},
    {1, "pistolammo", "Pistol Ammo"},
    {2, "plasmagunammo", "Plasma"},
    {3, "shotgunammo", "Shells"},
    {4, "chaingunammo", "Bullets"},
    {5, "grenadelauncherammo", "Grenades"},
    {6, "rocketlauncherammo", "Rockets"},
    {7, "railgunammo", "Rails"},
    {8, "lightninggunammo", "Lightning"},
    {9, "swarmammo", "Swarm Ammo"},
    {10, "magneticammo", "Magnetic Ammo"},
};
}

const AmmoMapping::Row* AmmoMapping::byType(int ammoType)
{
    if (ammoType < 0 || ammoType >= typeCount)
        return nullptr;
    return &rows[ammoType];
}

const AmmoMapping::Row* AmmoMapping::byName(const std::string& itemName)
{
    for (const Row& row : rows)
        if (itemName == row.itemName)
            return &row;
    return nullptr;
}

int AmmoMapping::typeOf(const std::string& itemName)
{
    const Row* row = byName(itemName);
    return row ? row->ammoType : -1;
}

std::string AmmoMapping::displayName(int ammoType)
{
    const Row* row = byType(ammoType);
    return row ? row->displayName : "";
}
