#pragma once
// The process-wide weapon definition table read from "data/weapons.xml":
// one row per weapon element. Weapons copy their row over their built-in
// numbers in applyDefinition(). Rows of a missing file or element keep their
// previous values.
#include <map>
#include <string>

struct WeaponDefinition {
    int damage = 0;
    float delay = 0.0f;
    float knockback = 0.0f;
    float range = 0.0f;
    float spread = 0.0f;
    int numshots = 0;
    float radius = 0.0f;
    float mass = 0.0f;
    float lifetime = 0.0f;
    float speed = 0.0f;
    float bounceenergy = 0.0f;
    // Part of the format; no weapon reads these.
    int dualdamage = 0;
    float dualdelay = 0.0f;
    float dualknockback = 0.0f;
    int explosiondamage = 0;
    float explosionradius = 0.0f;
    // False until the file supplied the row.
    bool loaded = false;
};

class WeaponDefinitions {
public:
    static constexpr const char* defaultPath = "data/weapons.xml";

    // Reads every element; false (with a message) when the file cannot be
    // loaded. Missing elements are reported and keep their rows.
    static bool load(const std::string& path = defaultPath);
    // The row of an element name ("pistol", "grenade", "rocket", ...); null
    // until the file supplied it.
    static const WeaponDefinition* find(const std::string& element);
    // Forgets every row (tests).
    static void clear();
};
