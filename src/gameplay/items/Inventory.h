#pragma once
// What the player carries: one weapon object per weapon id, ammunition counts
// and maxima per ammo type (-1 is unlimited), which weapons are owned, their
// ratings, the current weapon, and the automatic change to the best loaded
// weapon when the current one runs dry. Also the item console commands.
#include <array>
#include <map>
#include <memory>

#include "gameplay/weapons/FireableWeapon.h"

class Body;
class Player;
class TiXmlElement;

class Inventory {
public:
    static constexpr int unlimited = -1;
    // A dry weapon changes to the best loaded one this long after the first
    // empty trigger pull; the empty click repeats at most this often.
    static constexpr float dryChangeMs = 800.0f;
    static constexpr float clickMs = 500.0f;

    Inventory();
    Inventory(const Inventory&) = delete;
    Inventory& operator=(const Inventory&) = delete;
    virtual ~Inventory();

    // Reads the "inventory" child of a saved player element.
    virtual void load(TiXmlElement* element);
    // Writes an "inventory" child under the player element.
    virtual void save(TiXmlElement* element);

    // Level start: commands, weapon resets, starting weapons and maxima.
    void initialise();
    // The item commands (give, giveall, useitem, upgrade, ...), once per process.
    static void registerCommands();

    // One pull of the trigger of `weaponId`; true when a shot went off.
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time, int weaponId);
    // The trigger of `weaponId` was let go (ids outside 1 to 11 are ignored).
    void stopFiring(int weaponId, float time);
    void nextWeapon();
    void previousWeapon();
    void selectWeapon(int weaponId);
    // The pending change after running dry, once its time has come.
    void completePendingChange(float time);

    // Nothing for an unlimited count; a count above the maximum may grow to 999.
    void addAmmo(int ammoType, int amount);
    int ammoOf(int ammoType) const;
    void setAmmo(int ammoType, int count);
    int maxAmmoOf(int ammoType) const;
    bool owns(int weaponId) const;
    void own(int weaponId);
    // Weapons 1 to 10; types 0, 1, 9 unlimited; the rest 999 (or their maximum).
    void giveAllWeapons();
    void giveAllAmmo(bool toMaximum);
    FireableWeapon* weapon(int weaponId) const;
    FireableWeapon* current() const { return weapon(currentWeapon); }
    // The best owned, loaded weapon by rating (1 when none beats the hook).
    int bestLoadedWeapon() const;
    // Re-applies the definition rows to every weapon.
    void applyDefinitions();

    std::map<int, int> ammo;
    std::map<int, int> maxAmmo;
    std::map<int, int> owned;
    std::map<int, int> rating;
    std::array<int, 12> ammoTypeOf{};
    int currentWeapon = 2;
    float nextNoAmmoSoundTime = 0.0f;
    float nextQuadFireSoundTime = 0.0f;
    float nextNoAmmoChangeTime = 0.0f;
    int bestWeapon = -1;
    std::map<int, std::unique_ptr<FireableWeapon>> weapons;
    Player* owner = nullptr;

private:
    void playSound(int soundId);
    void showStrip();
    void step(int direction);
};
