#include "world/level/GameBodyFactory.h"

#include <memory>

#include "gameplay/RaceBlock.h"
#include "gameplay/RaceCheckpoint.h"
#include "gameplay/RaceEnd.h"
#include "gameplay/RaceEndBlock.h"
#include "gameplay/RaceReset.h"
#include "gameplay/RaceStart.h"
#include "gameplay/items/AmmoBase.h"
#include "gameplay/items/Armour.h"
#include "gameplay/items/CashPickup.h"
#include "gameplay/items/Health.h"
#include "gameplay/items/Invincibility.h"
#include "gameplay/items/MegaHealth.h"
#include "gameplay/items/MegaQuadDamage.h"
#include "gameplay/items/QuadDamage.h"
#include "gameplay/items/QuickArmour.h"
#include "gameplay/items/QuickHealth.h"
#include "gameplay/items/ScreenWiper.h"
#include "gameplay/items/WeaponBase.h"
#include "gameplay/player/Player.h"
#include "gameplay/projectiles/Gib.h"
#include "gameplay/projectiles/GrenadeProjectile.h"
#include "gameplay/projectiles/PlasmaPistolProjectile.h"
#include "gameplay/projectiles/RocketProjectile.h"
#include "gameplay/weapons/ShootingTarget.h"
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
    {"cashpickup", []() -> std::unique_ptr<Body> { return std::make_unique<CashPickup>(); }},
    {"health", []() -> std::unique_ptr<Body> { return std::make_unique<Health>(); }},
    {"quickhealth", []() -> std::unique_ptr<Body> { return std::make_unique<QuickHealth>(); }},
    {"megahealth", []() -> std::unique_ptr<Body> { return std::make_unique<MegaHealth>(); }},
    {"armour", []() -> std::unique_ptr<Body> { return std::make_unique<Armour>(); }},
    {"quickarmour", []() -> std::unique_ptr<Body> { return std::make_unique<QuickArmour>(); }},
    {"quad", []() -> std::unique_ptr<Body> { return std::make_unique<QuadDamage>(); }},
    {"megaquad", []() -> std::unique_ptr<Body> { return std::make_unique<MegaQuadDamage>(); }},
    {"invincibility", []() -> std::unique_ptr<Body> { return std::make_unique<Invincibility>(); }},
    {"screenwiper", []() -> std::unique_ptr<Body> { return std::make_unique<ScreenWiper>(); }},
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
    {"rocketlauncher", []() -> std::unique_ptr<Body> { return std::make_unique<WeaponBase>("rocketlauncher"); }},
    {"grenadelauncher", []() -> std::unique_ptr<Body> { return std::make_unique<WeaponBase>("grenadelauncher"); }},
    {"shotgun", []() -> std::unique_ptr<Body> { return std::make_unique<WeaponBase>("shotgun"); }},
    {"chaingun", []() -> std::unique_ptr<Body> { return std::make_unique<WeaponBase>("chaingun"); }},
    {"railgun", []() -> std::unique_ptr<Body> { return std::make_unique<WeaponBase>("railgun"); }},
    {"lightninggun", []() -> std::unique_ptr<Body> { return std::make_unique<WeaponBase>("lightninggun"); }},
    {"plasmagun", []() -> std::unique_ptr<Body> { return std::make_unique<WeaponBase>("plasmagun"); }},
    {"rocketlauncherammo", []() -> std::unique_ptr<Body> { return std::make_unique<AmmoBase>("rocketlauncherammo"); }},
    {"grenadelauncherammo", []() -> std::unique_ptr<Body> { return std::make_unique<AmmoBase>("grenadelauncherammo"); }},
    {"shotgunammo", []() -> std::unique_ptr<Body> { return std::make_unique<AmmoBase>("shotgunammo"); }},
    {"chaingunammo", []() -> std::unique_ptr<Body> { return std::make_unique<AmmoBase>("chaingunammo"); }},
    {"railgunammo", []() -> std::unique_ptr<Body> { return std::make_unique<AmmoBase>("railgunammo"); }},
    {"lightninggunammo", []() -> std::unique_ptr<Body> { return std::make_unique<AmmoBase>("lightninggunammo"); }},
    {"plasmagunammo", []() -> std::unique_ptr<Body> { return std::make_unique<AmmoBase>("plasmagunammo"); }},
    {"grenadeprojectile", []() -> std::unique_ptr<Body> { return std::make_unique<GrenadeProjectile>(); }},
    {"rocketprojectile", []() -> std::unique_ptr<Body> { return std::make_unique<RocketProjectile>(); }},
    {"plasmapistolprojectile", []() -> std::unique_ptr<Body> { return std::make_unique<PlasmaPistolProjectile>(); }},
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
    {"gib", []() -> std::unique_ptr<Body> { return std::make_unique<Gib>(); }},
    {"target", []() -> std::unique_ptr<Body> { return std::make_unique<ShootingTarget>(); }},
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
