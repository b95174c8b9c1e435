#pragma once
// The fixed table of ammunition types (0 to 10): item and display names.
// Weapon id k fires ammo type k - 1.
#include <string>

class AmmoMapping {
public:
    static constexpr int typeCount = 11;

    struct Row {
        int ammoType;
        const char* itemName;
        const char* displayName;
    };

    // Null outside 0 to 10.
    static const Row* byType(int ammoType);
    static const Row* byName(const std::string& itemName);
    // -1 when unknown.
    static int typeOf(const std::string& itemName);
    static std::string displayName(int ammoType);
};
