#include "gameplay/weapons/WeaponDefinitions.h"

#include <tinyxml.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "resources/ResourceManager.h"

namespace {
std::map<std::string, WeaponDefinition>& table()
{
    static std::map<std::string, WeaponDefinition> rows;
    return rows;
}

enum Field : unsigned {
    Damage = 1u << 0, Delay = 1u << 1, Knockback = 1u << 2, Range = 1u << 3, Spread = 1u << 4,
    NumShots = 1u << 5, Radius = 1u << 6, Mass = 1u << 7, LifeTime = 1u << 8, Speed = 1u << 9,
    Bounce = 1u << 10, Dual = 1u << 11, Explosion = 1u << 12,
};

struct ElementSpec {
    const char* name;
    unsigned fields;
};

const ElementSpec elements[] = {
    {"pistol", Damage | Delay | Knockback | Range | Dual},
    {"plasmagun", Damage | Delay | Knockback | Range | Spread},
    {"magneticgun", Damage | Delay | Radius},
    {"shotgun", NumShots | Damage | Delay | Knockback | Range | Spread},
    {"chaingun", Damage | Delay | Knockback | Range | Spread | Explosion},
    {"grenade", Damage | Delay | Radius | Mass | LifeTime | Speed | Bounce},
    {"rocket", Damage | Delay | Radius | Speed | Knockback},
    {"railgun", Damage | Delay | Knockback | Range},
    {"lightninggun", Damage | Delay | Knockback | Range | Spread},
};

// Numbers a weapon can live with: a typo or a hostile file must not give a
// weapon a negative delay or a million pellets.
constexpr double maxValue = 1.0e6;
constexpr int maxShots = 64;

// A missing attribute reads as 0. Text that is not a number in range marks
// the row bad; the caller then keeps the previous row.
double readNumber(const TiXmlElement* e, const char* name, bool& bad)
{
    const char* text = e->Attribute(name);
    if (!text)
        return 0.0;
    char* end = nullptr;
    const double v = std::strtod(text, &end);
    while (end && (*end == ' ' || *end == '\t'))
        ++end;
    if (end == text || (end && *end != '\0') || !std::isfinite(v) || v < 0.0 || v > maxValue) {
        std::printf("Bad %s value \"%s\" in %s weapon info\n", name, text, e->Value());
        bad = true;
        return 0.0;
    }
    return v;
}

WeaponDefinition readRow(const TiXmlElement* e, unsigned fields, bool& bad)
{
    auto readInt = [&](const TiXmlElement* el, const char* n) { return static_cast<int>(readNumber(el, n, bad)); };
    auto readFloat = [&](const TiXmlElement* el, const char* n) {
        return static_cast<float>(readNumber(el, n, bad));
    };
    WeaponDefinition d;
    if (fields & Damage) d.damage = readInt(e, "damage");
    if (fields & Delay) d.delay = readFloat(e, "delay");
    if (fields & Knockback) d.knockback = readFloat(e, "knockback");
    if (fields & Range) d.range = readFloat(e, "range");
    if (fields & Spread) d.spread = readFloat(e, "spread");
    if (fields & NumShots) d.numshots = readInt(e, "numshots");
    if (fields & Radius) d.radius = readFloat(e, "radius");
    if (fields & Mass) d.mass = readFloat(e, "mass");
    if (fields & LifeTime) d.lifetime = readFloat(e, "lifetime");
    if (fields & Speed) d.speed = readFloat(e, "speed");
    if (fields & Bounce) d.bounceenergy = readFloat(e, "bounceenergy");
    if (fields & Dual) {
        d.dualdamage = readInt(e, "dualdamage");
        d.dualdelay = readFloat(e, "dualdelay");
        d.dualknockback = readFloat(e, "dualknockback");
    }
    if (fields & Explosion) {
        d.explosiondamage = readInt(e, "explosiondamage");
        d.explosionradius = readFloat(e, "explosionradius");
    }
    if (d.numshots > maxShots) {
        std::printf("Too many shots (%d) in %s weapon info\n", d.numshots, e->Value());
        bad = true;
    }
    d.loaded = true;
    return d;
}
}

bool WeaponDefinitions::load(const std::string& path)
{
    TiXmlDocument doc;
    const TiXmlElement* root =
        ResourceManager::instance().loadDocument(doc, path) ? doc.RootElement() : nullptr;
    if (!root) {
        std::printf("Can't load weapon definition file: %s\n", path.c_str());
        return false;
    }
    for (const ElementSpec& spec : elements) {
        const TiXmlElement* e = root->FirstChildElement(spec.name);
        if (!e) {
            std::printf("Couldn't read %s weapon info from: %s\n", spec.name, path.c_str());
            continue;
        }
        bool bad = false;
        const WeaponDefinition row = readRow(e, spec.fields, bad);
        if (bad) {
            std::printf("Keeping the previous %s weapon info\n", spec.name);
            continue;
        }
        table()[spec.name] = row;
    }
    return true;
}

const WeaponDefinition* WeaponDefinitions::find(const std::string& element)
{
    auto it = table().find(element);
    return it == table().end() ? nullptr : &it->second;
}

void WeaponDefinitions::clear() { table().clear(); }
