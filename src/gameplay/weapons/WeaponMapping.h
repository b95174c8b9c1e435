#pragma once
// The fixed table of weapon ids (1 to 11): each id's ammo type, item name and
// display name. Inventory commands, pickups and the HUD look names up here.
#include <string>

class WeaponMapping {
public:
    static constexpr int firstId = 1;
    static constexpr int lastId = 11;

    struct Row {
        int weaponId;
        int ammoType;
        const char* lookupName;
        const char* itemName;
        const char* displayName;
    };

    // The row of a weapon id, null outside 1 to 11.
    static const Row* byId(int weaponId);
    // The row whose item name matches exactly, null when none does.
    static const Row* byName(const std::string& itemName);
    // The weapon id for an item name, -1 when unknown.
    static int idOf(const std::string& itemName);
    // "" outside 1 to 11.
    static std::string displayName(int weaponId);
    static std::string itemName(int weaponId);
};
