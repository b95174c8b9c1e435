#include "world/level/GameBodyFactory.h"

#include <memory>

#include "gameplay/RaceBlock.h"
#include "gameplay/RaceCheckpoint.h"
#include "gameplay/RaceEnd.h"
#include "gameplay/RaceEndBlock.h"
#include "gameplay/RaceReset.h"
#include "gameplay/RaceStart.h"
#include "gameplay/player/Player.h"
#include "world/body/Body.h"
#include "world/level/PlaceholderBody.h"

namespace {
using Maker = std::unique_ptr<Body> (*)();

struct TypeEntry {
    const char* name;
    // Null while the class is still to be written: the name then gives a
    // PlaceholderBody. A class that lands replaces it, e.g.
    //   {"door", [] () -> std::unique_ptr<Body> { return std::make_unique<Door>(); }},
    // and the weapon and ammunition classes pass the name to their constructor.
    Maker maker;
};

// Registration order is part of the level format: create() answers with the
// first prototype whose type matches, and listings show this order.
const TypeEntry typeTable[] = {
    {"detail",                   nullptr}, // DetailBody
    {"clip",                     nullptr}, // Clip
    {"cashpickup",               nullptr}, // CashPickup
    {"health",                   nullptr}, // Health
    {"quickhealth",              nullptr}, // QuickHealth
    {"megahealth",               nullptr}, // MegaHealth
    {"armour",                   nullptr}, // Armour
    {"quickarmour",              nullptr}, // QuickArmour
    {"quad",                     nullptr}, // QuadDamage
    {"megaquad",                 nullptr}, // MegaQuadDamage
    {"invincibility",            nullptr}, // Invincibility
    {"screenwiper",              nullptr}, // ScreenWiper
    {"player", []() -> std::unique_ptr<Body> { return std::make_unique<Player>(); }},
    {"spawnpoint",               nullptr}, // SpawnPoint
    {"levelchange",              nullptr}, // LevelChange
    {"door",                     nullptr}, // Door
    {"alphadoor",                nullptr}, // AlphaDoor
    {"switch",                   nullptr}, // Switch
    {"trigger",                  nullptr}, // Trigger
    {"wavecontroller",           nullptr}, // WaveController
    {"messagebody",              nullptr}, // MessageBody
    {"messengerbody",            nullptr}, // MessengerBody
    {"soundbody",                nullptr}, // SoundBody
    {"jumppad",                  nullptr}, // JumpPad
    {"triggeredjumppad",         nullptr}, // TriggeredJumpPad
    {"teleporter",               nullptr}, // Teleporter
    {"teleportervisual",         nullptr}, // TeleporterVisual
    {"water",                    nullptr}, // Water
    {"lava",                     nullptr}, // Lava
    {"textbody",                 nullptr}, // TextBody
    {"spawner",                  nullptr}, // Spawner
    {"battery",                  nullptr}, // Battery
    {"batteryslot",              nullptr}, // BatterySlot
    {"explodingbarrel",          nullptr}, // ExplodingBarrel
    {"attractor",                nullptr}, // Attractor
    {"painbody",                 nullptr}, // PainBody
    {"particlesystembody",       nullptr}, // ParticleSystemBody
    {"checkpoint",               nullptr}, // Checkpoint
    {"skytransition",            nullptr}, // SkyTransition
    {"skyinfo",                  nullptr}, // SkyInfo
    {"namedpoint",               nullptr}, // NamedPoint
    {"targetgroup",              nullptr}, // TargetGroup
    {"rocketlauncher",           nullptr}, // WeaponBase
    {"grenadelauncher",          nullptr}, // WeaponBase
    {"shotgun",                  nullptr}, // WeaponBase
    {"chaingun",                 nullptr}, // WeaponBase
    {"railgun",                  nullptr}, // WeaponBase
    {"lightninggun",             nullptr}, // WeaponBase
    {"plasmagun",                nullptr}, // WeaponBase
    {"rocketlauncherammo",       nullptr}, // AmmoBase
    {"grenadelauncherammo",      nullptr}, // AmmoBase
    {"shotgunammo",              nullptr}, // AmmoBase
    {"chaingunammo",             nullptr}, // AmmoBase
    {"railgunammo",              nullptr}, // AmmoBase
    {"lightninggunammo",         nullptr}, // AmmoBase
    {"plasmagunammo",            nullptr}, // AmmoBase
    {"grenadeprojectile",        nullptr}, // GrenadeProjectile
    {"rocketprojectile",         nullptr}, // RocketProjectile
    {"plasmapistolprojectile",   nullptr}, // PlasmaPistolProjectile
    {"engineer",                 nullptr}, // Engineer
    {"harddrive",                nullptr}, // HardDrive
    {"cpu",                      nullptr}, // CPU
    {"turret",                   nullptr}, // Turret
    {"ballofdeath",              nullptr}, // BallOfDeath
    {"searchlight",              nullptr}, // SearchLight
    {"electrogrid",              nullptr}, // ElectroGrid
    {"electrotower",             nullptr}, // ElectroTower
    {"egglayer",                 nullptr}, // EggLayer
    {"egg",                      nullptr}, // Egg
    {"swarmer",                  nullptr}, // Swarmer
    {"bacteria",                 nullptr}, // Bacteria
    {"proxygrenade",             nullptr}, // ProxyGrenade
    {"sniper",                   nullptr}, // Sniper
    {"meleegrunt",               nullptr}, // MeleeGrunt
    {"plasmagrunt",              nullptr}, // PlasmaGrunt
    {"kamikazegrunt",            nullptr}, // KamikazeGrunt
    {"shotgungrunt",             nullptr}, // ShotgunGrunt
    {"rocketgrunt",              nullptr}, // RocketGrunt
    {"chaingungrunt",            nullptr}, // ChaingunGrunt
    {"spawnergrunt",             nullptr}, // SpawnerGrunt
    {"destroyer",                nullptr}, // Destroyer
    {"blockboss",                nullptr}, // BlockBoss
    {"bossblock",                nullptr}, // BossBlock
    {"swarmmember",              nullptr}, // SwarmMember
    {"friendly",                 nullptr}, // Friendly
    {"gib",                      nullptr}, // Gib
    {"racecheckpoint", []() -> std::unique_ptr<Body> { return std::make_unique<RaceCheckpoint>(); }},
    {"racestart", []() -> std::unique_ptr<Body> { return std::make_unique<RaceStart>(); }},
    {"raceend", []() -> std::unique_ptr<Body> { return std::make_unique<RaceEnd>(); }},
    {"raceendblock", []() -> std::unique_ptr<Body> { return std::make_unique<RaceEndBlock>(); }},
    {"raceblock", []() -> std::unique_ptr<Body> { return std::make_unique<RaceBlock>(); }},
    {"racereset", []() -> std::unique_ptr<Body> { return std::make_unique<RaceReset>(); }},
    {"debugmoveable",            nullptr}, // DebugMoveable
};
}

void GameBodyFactory::registerPrototypes()
{
    for (const TypeEntry& entry : typeTable) {
        std::unique_ptr<Body> prototype = entry.maker ? entry.maker() : nullptr;
        if (!prototype)
            prototype = std::make_unique<PlaceholderBody>(entry.name);
        addPrototype(std::move(prototype));
    }
}

const std::vector<std::string>& GameBodyFactory::typeNames()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const TypeEntry& entry : typeTable)
            all.emplace_back(entry.name);
        return all;
    }();
    return names;
}
