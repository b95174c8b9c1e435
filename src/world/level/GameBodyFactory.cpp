#include "world/level/GameBodyFactory.h"

#include <memory>

#include "gameplay/RaceBlock.h"
#include "gameplay/RaceCheckpoint.h"
#include "gameplay/RaceEnd.h"
#include "gameplay/RaceEndBlock.h"
#include "gameplay/RaceReset.h"
#include "gameplay/RaceStart.h"
#include "gameplay/enemies/Bacteria.h"
#include "gameplay/enemies/BallOfDeath.h"
#include "gameplay/enemies/BlockBoss.h"
#include "gameplay/enemies/CPU.h"
#include "gameplay/enemies/ChaingunGrunt.h"
#include "gameplay/enemies/Destroyer.h"
#include "gameplay/enemies/Egg.h"
#include "gameplay/enemies/EggLayer.h"
#include "gameplay/enemies/ElectroGrid.h"
#include "gameplay/enemies/ElectroTower.h"
#include "gameplay/enemies/Engineer.h"
#include "gameplay/enemies/Friendly.h"
#include "gameplay/enemies/HardDrive.h"
#include "gameplay/enemies/KamikazeGrunt.h"
#include "gameplay/enemies/MeleeGrunt.h"
#include "gameplay/enemies/PlasmaGrunt.h"
#include "gameplay/enemies/ProxyGrenade.h"
#include "gameplay/enemies/RocketGrunt.h"
#include "gameplay/enemies/SearchLight.h"
#include "gameplay/enemies/ShotgunGrunt.h"
#include "gameplay/enemies/Sniper.h"
#include "gameplay/enemies/SpawnerGrunt.h"
#include "gameplay/enemies/SwarmMember.h"
#include "gameplay/enemies/Swarmer.h"
#include "gameplay/enemies/Turret.h"
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
#include "world/logic/Battery.h"
#include "world/logic/BatterySlot.h"
#include "world/logic/Checkpoint.h"
#include "world/logic/LevelChange.h"
#include "world/logic/MessageBody.h"
#include "world/logic/MessengerBody.h"
#include "world/logic/NamedPoint.h"
#include "world/logic/ParticleSystemBody.h"
#include "world/logic/SkyInfo.h"
#include "world/logic/SkyTransition.h"
#include "world/logic/SoundBody.h"
#include "world/logic/SpawnPoint.h"
#include "world/logic/Spawner.h"
#include "world/logic/Switch.h"
#include "world/logic/TargetGroup.h"
#include "world/logic/TextBody.h"
#include "world/logic/Trigger.h"
#include "world/logic/WaveController.h"
#include "world/movers/AlphaDoor.h"
#include "world/movers/Attractor.h"
#include "world/movers/BossBlock.h"
#include "world/movers/Clip.h"
#include "world/movers/DebugMoveable.h"
#include "world/movers/DetailBody.h"
#include "world/movers/Door.h"
#include "world/movers/ExplodingBarrel.h"
#include "world/movers/JumpPad.h"
#include "world/movers/Lava.h"
#include "world/movers/PainBody.h"
#include "world/movers/Teleporter.h"
#include "world/movers/TeleporterVisual.h"
#include "world/movers/TriggeredJumpPad.h"
#include "world/movers/Water.h"

namespace {
using Maker = std::unique_ptr<Body> (*)();

struct TypeEntry {
    const char* name;
    // Makes the prototype; the weapon and ammunition classes pass the name
    // to their constructor.
    Maker maker;
};

// Registration order is part of the level format: create() answers with the
// first prototype whose type matches, and listings show this order.
const TypeEntry typeTable[] = {
    {"detail", []() -> std::unique_ptr<Body> { return std::make_unique<DetailBody>(); }},
    {"clip", []() -> std::unique_ptr<Body> { return std::make_unique<Clip>(); }},
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
    {"spawnpoint", []() -> std::unique_ptr<Body> { return std::make_unique<SpawnPoint>(); }},
    {"levelchange", []() -> std::unique_ptr<Body> { return std::make_unique<LevelChange>(); }},
    {"door", []() -> std::unique_ptr<Body> { return std::make_unique<Door>(); }},
    {"alphadoor", []() -> std::unique_ptr<Body> { return std::make_unique<AlphaDoor>(); }},
    {"switch", []() -> std::unique_ptr<Body> { return std::make_unique<Switch>(); }},
    {"trigger", []() -> std::unique_ptr<Body> { return std::make_unique<Trigger>(); }},
    {"wavecontroller", []() -> std::unique_ptr<Body> { return std::make_unique<WaveController>(); }},
    {"messagebody", []() -> std::unique_ptr<Body> { return std::make_unique<MessageBody>(); }},
    {"messengerbody", []() -> std::unique_ptr<Body> { return std::make_unique<MessengerBody>(); }},
    {"soundbody", []() -> std::unique_ptr<Body> { return std::make_unique<SoundBody>(); }},
    {"jumppad", []() -> std::unique_ptr<Body> { return std::make_unique<JumpPad>(); }},
    {"triggeredjumppad", []() -> std::unique_ptr<Body> { return std::make_unique<TriggeredJumpPad>(); }},
    {"teleporter", []() -> std::unique_ptr<Body> { return std::make_unique<Teleporter>(); }},
    {"teleportervisual", []() -> std::unique_ptr<Body> { return std::make_unique<TeleporterVisual>(); }},
    {"water", []() -> std::unique_ptr<Body> { return std::make_unique<Water>(); }},
    {"lava", []() -> std::unique_ptr<Body> { return std::make_unique<Lava>(); }},
    {"textbody", []() -> std::unique_ptr<Body> { return std::make_unique<TextBody>(); }},
    {"spawner", []() -> std::unique_ptr<Body> { return std::make_unique<Spawner>(); }},
    {"battery", []() -> std::unique_ptr<Body> { return std::make_unique<Battery>(); }},
    {"batteryslot", []() -> std::unique_ptr<Body> { return std::make_unique<BatterySlot>(); }},
    {"explodingbarrel", []() -> std::unique_ptr<Body> { return std::make_unique<ExplodingBarrel>(); }},
    {"attractor", []() -> std::unique_ptr<Body> { return std::make_unique<Attractor>(); }},
    {"painbody", []() -> std::unique_ptr<Body> { return std::make_unique<PainBody>(); }},
    {"particlesystembody", []() -> std::unique_ptr<Body> { return std::make_unique<ParticleSystemBody>(); }},
    {"checkpoint", []() -> std::unique_ptr<Body> { return std::make_unique<Checkpoint>(); }},
    {"skytransition", []() -> std::unique_ptr<Body> { return std::make_unique<SkyTransition>(); }},
    {"skyinfo", []() -> std::unique_ptr<Body> { return std::make_unique<SkyInfo>(); }},
    {"namedpoint", []() -> std::unique_ptr<Body> { return std::make_unique<NamedPoint>(); }},
    {"targetgroup", []() -> std::unique_ptr<Body> { return std::make_unique<TargetGroup>(); }},
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
    {"engineer", []() -> std::unique_ptr<Body> { return std::make_unique<Engineer>(); }},
    {"harddrive", []() -> std::unique_ptr<Body> { return std::make_unique<HardDrive>(); }},
    {"cpu", []() -> std::unique_ptr<Body> { return std::make_unique<CPU>(); }},
    {"turret", []() -> std::unique_ptr<Body> { return std::make_unique<Turret>(); }},
    {"ballofdeath", []() -> std::unique_ptr<Body> { return std::make_unique<BallOfDeath>(); }},
    {"searchlight", []() -> std::unique_ptr<Body> { return std::make_unique<SearchLight>(); }},
    {"electrogrid", []() -> std::unique_ptr<Body> { return std::make_unique<ElectroGrid>(); }},
    {"electrotower", []() -> std::unique_ptr<Body> { return std::make_unique<ElectroTower>(); }},
    {"egglayer", []() -> std::unique_ptr<Body> { return std::make_unique<EggLayer>(); }},
    {"egg", []() -> std::unique_ptr<Body> { return std::make_unique<Egg>(); }},
    {"swarmer", []() -> std::unique_ptr<Body> { return std::make_unique<Swarmer>(); }},
    {"bacteria", []() -> std::unique_ptr<Body> { return std::make_unique<Bacteria>(); }},
    {"proxygrenade", []() -> std::unique_ptr<Body> { return std::make_unique<ProxyGrenade>(); }},
    {"sniper", []() -> std::unique_ptr<Body> { return std::make_unique<Sniper>(); }},
    {"meleegrunt", []() -> std::unique_ptr<Body> { return std::make_unique<MeleeGrunt>(); }},
    {"plasmagrunt", []() -> std::unique_ptr<Body> { return std::make_unique<PlasmaGrunt>(); }},
    {"kamikazegrunt", []() -> std::unique_ptr<Body> { return std::make_unique<KamikazeGrunt>(); }},
    {"shotgungrunt", []() -> std::unique_ptr<Body> { return std::make_unique<ShotgunGrunt>(); }},
    {"rocketgrunt", []() -> std::unique_ptr<Body> { return std::make_unique<RocketGrunt>(); }},
    {"chaingungrunt", []() -> std::unique_ptr<Body> { return std::make_unique<ChaingunGrunt>(); }},
    {"spawnergrunt", []() -> std::unique_ptr<Body> { return std::make_unique<SpawnerGrunt>(); }},
    {"destroyer", []() -> std::unique_ptr<Body> { return std::make_unique<Destroyer>(); }},
    {"blockboss", []() -> std::unique_ptr<Body> { return std::make_unique<BlockBoss>(); }},
    {"bossblock", []() -> std::unique_ptr<Body> { return std::make_unique<BossBlock>(); }},
    {"swarmmember", []() -> std::unique_ptr<Body> { return std::make_unique<SwarmMember>(); }},
    {"friendly", []() -> std::unique_ptr<Body> { return std::make_unique<Friendly>(); }},
    {"gib", []() -> std::unique_ptr<Body> { return std::make_unique<Gib>(); }},
    {"target", []() -> std::unique_ptr<Body> { return std::make_unique<ShootingTarget>(); }},
    {"racecheckpoint", []() -> std::unique_ptr<Body> { return std::make_unique<RaceCheckpoint>(); }},
    {"racestart", []() -> std::unique_ptr<Body> { return std::make_unique<RaceStart>(); }},
    {"raceend", []() -> std::unique_ptr<Body> { return std::make_unique<RaceEnd>(); }},
    {"raceendblock", []() -> std::unique_ptr<Body> { return std::make_unique<RaceEndBlock>(); }},
    {"raceblock", []() -> std::unique_ptr<Body> { return std::make_unique<RaceBlock>(); }},
    {"racereset", []() -> std::unique_ptr<Body> { return std::make_unique<RaceReset>(); }},
    {"debugmoveable", []() -> std::unique_ptr<Body> { return std::make_unique<DebugMoveable>(); }},
};
}

void GameBodyFactory::registerPrototypes()
{
    for (const TypeEntry& entry : typeTable) {
        addPrototype(entry.maker());
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
