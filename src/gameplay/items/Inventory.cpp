#include "gameplay/items/Inventory.h"

#include <tinyxml.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "core/Game.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/AmmoMapping.h"
#include "gameplay/weapons/ChaingunWeapon.h"
#include "gameplay/weapons/GrappleWeapon.h"
#include "gameplay/weapons/GrenadeWeapon.h"
#include "gameplay/weapons/LightningWeapon.h"
#include "gameplay/weapons/PistolWeapon.h"
#include "gameplay/weapons/PlasmaWeapon.h"
#include "gameplay/weapons/RailgunWeapon.h"
#include "gameplay/weapons/RocketWeapon.h"
#include "gameplay/weapons/ShotgunWeapon.h"
#include "gameplay/weapons/SwarmWeapon.h"
#include "gameplay/weapons/WeaponDefinitions.h"
#include "gameplay/weapons/WeaponMapping.h"
#include "render/GameHUD.h"
#include "sound/ISound.h"

namespace {
constexpr int fullCount = 999;
}

Inventory::Inventory()
{
    for (int id = 0; id < 12; ++id)
        ammoTypeOf[static_cast<size_t>(id)] = id - 1;
}

Inventory::~Inventory() = default;

void Inventory::playSound(int soundId)
{
    Game* game = Game::current();
    ISound* sound = game ? game->getSound() : nullptr;
    if (sound)
        sound->playIdAt(soundId, owner ? owner->pos : Vector(), 0);
}

void Inventory::showStrip()
{
    if (GameHUD* hud = GameplaySingleton::get().hud)
        hud->showWeaponStrip();
}

void Inventory::initialise()
{
    registerCommands();
    for (auto& entry : weapons)
        entry.second->reset();
    if (weapons.empty()) {
        weapons[1] = std::make_unique<GrappleWeapon>();
        weapons[2] = std::make_unique<PistolWeapon>();
        weapons[3] = std::make_unique<PlasmaWeapon>();
        weapons[4] = std::make_unique<ShotgunWeapon>();
        weapons[5] = std::make_unique<ChaingunWeapon>();
        weapons[6] = std::make_unique<GrenadeWeapon>();
        weapons[7] = std::make_unique<RocketWeapon>();
        weapons[8] = std::make_unique<RailgunWeapon>();
        weapons[9] = std::make_unique<LightningWeapon>();
        weapons[10] = std::make_unique<SwarmWeapon>();
        applyDefinitions();
    }
    for (int id = 0; id < 12; ++id)
        ammoTypeOf[static_cast<size_t>(id)] = id - 1;
    for (int id = 1; id <= 9; ++id)
        rating[id] = id;
    rating[10] = 0;
    owned[1] = owned[2] = owned[10] = 1;
    const int maxima[] = {unlimited, unlimited, 300, 50, 300, 50, 50, 50, 300, unlimited};
    for (int type = 0; type < 10; ++type)
        maxAmmo[type] = maxima[type];
    ammo[0] = ammo[1] = ammo[9] = unlimited;
    nextNoAmmoChangeTime = 0.0f;
    bestWeapon = -1;
    if (!owns(currentWeapon))
        currentWeapon = 2;
}

void Inventory::applyDefinitions()
{
    for (auto& entry : weapons)
        entry.second->applyDefinition();
}

FireableWeapon* Inventory::weapon(int weaponId) const
{
    auto it = weapons.find(weaponId);
    return it == weapons.end() ? nullptr : it->second.get();
}

bool Inventory::owns(int weaponId) const
{
    auto it = owned.find(weaponId);
    return it != owned.end() && it->second > 0;
}

void Inventory::own(int weaponId)
{
    if (WeaponMapping::byId(weaponId))
        owned[weaponId] = 1;
}

int Inventory::ammoOf(int ammoType) const
{
    auto it = ammo.find(ammoType);
    return it == ammo.end() ? 0 : it->second;
}

void Inventory::setAmmo(int ammoType, int count)
{
    if (AmmoMapping::byType(ammoType))
        ammo[ammoType] = std::max(unlimited, std::min(count, fullCount));
}

int Inventory::maxAmmoOf(int ammoType) const
{
    auto it = maxAmmo.find(ammoType);
    return it == maxAmmo.end() ? 0 : it->second;
}

void Inventory::addAmmo(int ammoType, int amount)
{
    if (!AmmoMapping::byType(ammoType))
        return;
    const int count = ammoOf(ammoType);
    if (count == unlimited)
        return;
    const int maximum = maxAmmoOf(ammoType);
    if (maximum == unlimited) {
        ammo[ammoType] = unlimited;
        return;
    }
    const long long sum = static_cast<long long>(count) + amount;
    const long long cap = count > maximum ? fullCount : maximum;
    ammo[ammoType] = static_cast<int>(std::max(0LL, std::min(sum, cap)));
}

void Inventory::giveAllWeapons()
{
    for (int id = 1; id <= 10; ++id)
        own(id);
}

void Inventory::giveAllAmmo(bool toMaximum)
{
    ammo[0] = ammo[1] = ammo[9] = unlimited;
    for (int type = 2; type <= 8; ++type)
        ammo[type] = toMaximum ? maxAmmoOf(type) : fullCount;
}

int Inventory::bestLoadedWeapon() const
{
    int best = 1;
    for (int id = 11; id >= 1; --id) {
        const int count = ammoOf(ammoTypeOf[static_cast<size_t>(id)]);
        if (!owns(id) || !(count > 0 || count == unlimited))
            continue;
        auto r = rating.find(id);
        const int score = r == rating.end() ? 0 : r->second;
        // Ratings are compared with the current best id, which starts at the hook.
        if (score > best)
            best = id;
    }
    return best;
}

bool Inventory::fire(Body* owner_, const Vector& position, const Vector& aim, float time, int weaponId)
{
    if (weaponId < 1 || weaponId > 11 || !owns(weaponId))
        return false;
    FireableWeapon* w = weapon(weaponId);
    const int type = ammoTypeOf[static_cast<size_t>(weaponId)];
    const int count = ammoOf(type);
    if (count > 0 || count == unlimited) {
        if (!w || !w->fire(owner_, position, aim, time))
            return false;
        if (count != unlimited)
            ammo[type] = w->ammoAfterShot(count);
        nextNoAmmoSoundTime = time + clickMs;
        auto* g = dynamic_cast<GameBody*>(owner_);
        if (g && g->hasquad && nextQuadFireSoundTime < time) {
            playSound(26);
            nextQuadFireSoundTime = time + clickMs;
        }
        return true;
    }
    bestWeapon = bestLoadedWeapon();
    if (nextNoAmmoChangeTime <= 0.0f)
        nextNoAmmoChangeTime = time + dryChangeMs;
    if (nextNoAmmoSoundTime < time) {
        nextNoAmmoSoundTime = time + clickMs;
        playSound(10);
    }
    return false;
}

void Inventory::completePendingChange(float time)
{
    if (nextNoAmmoChangeTime <= 0.0f || time < nextNoAmmoChangeTime)
        return;
    const int target = bestWeapon;
    nextNoAmmoChangeTime = 0.0f;
    bestWeapon = -1;
    if (target > 0)
        selectWeapon(target);
}

void Inventory::stopFiring(int weaponId, float time)
{
    if (FireableWeapon* w = weapon(weaponId))
        w->stopFiring(time);
}

void Inventory::step(int direction)
{
    int id = currentWeapon;
    for (int i = 0; i < 11; ++i) {
        id += direction;
        if (id > 11)
            id = 1;
        if (id < 1)
            id = 11;
        if (owns(id))
            break;
    }
    if (!owns(id))
        id = currentWeapon;
    showStrip();
    stopFiring(currentWeapon, GameBody::now());
    if (id != currentWeapon) {
        currentWeapon = id;
        playSound(9);
        nextNoAmmoChangeTime = 0.0f;
    }
}

void Inventory::nextWeapon() { step(1); }

void Inventory::previousWeapon() { step(-1); }

void Inventory::selectWeapon(int weaponId)
{
    if (weaponId == currentWeapon) {
        stopFiring(currentWeapon, GameBody::now());
        showStrip();
        return;
    }
    if (weaponId < 1 || weaponId > 11)
        return;
    stopFiring(currentWeapon, GameBody::now());
    currentWeapon = weaponId;
    showStrip();
    playSound(9);
    nextNoAmmoChangeTime = 0.0f;
}

void Inventory::save(TiXmlElement* element)
{
    if (!element)
        return;
    TiXmlElement inv("inventory");
    inv.SetAttribute("activeweap", currentWeapon);
    inv.SetDoubleAttribute("nextnoammosound", nextNoAmmoSoundTime);
    inv.SetDoubleAttribute("nextquadfiresound", nextQuadFireSoundTime);
    inv.SetDoubleAttribute("nextnoammochange", nextNoAmmoChangeTime);
    inv.SetAttribute("bestweaponrating", bestWeapon);
    TiXmlElement w("weapons");
    for (const auto& entry : owned)
        w.SetAttribute(("w" + std::to_string(entry.first)).c_str(), entry.second);
    TiXmlElement a("ammo");
    for (const auto& entry : ammo)
        a.SetAttribute(("a" + std::to_string(entry.first)).c_str(), entry.second);
    inv.InsertEndChild(w);
    inv.InsertEndChild(a);
    element->InsertEndChild(inv);
}

void Inventory::load(TiXmlElement* element)
{
    TiXmlElement* inv = element ? element->FirstChildElement("inventory") : nullptr;
    if (!inv)
        return;
    auto readFloat = [inv](const char* name) {
        const char* text = inv->Attribute(name);
        return text ? static_cast<float>(std::atof(text)) : 0.0f;
    };
    const char* active = inv->Attribute("activeweap");
    const int id = active ? std::atoi(active) : 2;
    currentWeapon = WeaponMapping::byId(id) ? id : 2;
    nextNoAmmoSoundTime = readFloat("nextnoammosound");
    nextQuadFireSoundTime = readFloat("nextquadfiresound");
    nextNoAmmoChangeTime = readFloat("nextnoammochange");
    const char* best = inv->Attribute("bestweaponrating");
    bestWeapon = best ? std::atoi(best) : -1;
    // Only names the tables know are taken: a saved file is outside input.
    if (TiXmlElement* w = inv->FirstChildElement("weapons"))
        for (TiXmlAttribute* at = w->FirstAttribute(); at; at = at->Next()) {
            const std::string name = at->Name();
            const int weaponId = name.size() > 1 && name[0] == 'w' ? std::atoi(name.c_str() + 1) : 0;
            if (WeaponMapping::byId(weaponId))
                owned[weaponId] = at->IntValue();
        }
    if (TiXmlElement* a = inv->FirstChildElement("ammo"))
        for (TiXmlAttribute* at = a->FirstAttribute(); at; at = at->Next()) {
            const std::string name = at->Name();
            const int type = name.size() > 1 && name[0] == 'a' ? std::atoi(name.c_str() + 1) : -2;
            if (AmmoMapping::byType(type))
                setAmmo(type, at->IntValue());
        }
}
