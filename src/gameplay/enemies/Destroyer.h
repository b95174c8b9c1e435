#pragma once
// The destroyer: a heavy patroller that, once it sees the player within 250,
// closes in and fights in bursts of three seconds, one weapon per burst
// (rockets, then grenades, then the shotgun), with a second's pause between.
#include <memory>

#include "gameplay/enemies/EnemyBase.h"

class FireableWeapon;

class Destroyer : public EnemyBase {
public:
    static constexpr float engageRange = 250.0f;
    static constexpr int weaponCount = 3;

    Destroyer();
    ~Destroyer() override;
    std::unique_ptr<Body> clone() const override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void think(float dt) override;

    // A burst may start after this.
    float nextFire = 0.0f;
    // The running burst ends at this time.
    float nextFireEnd = 0.0f;
    float nextFireDuration = 3000.0f;
    float nextFireDelay = 1000.0f;
    // 0 rockets, 1 grenades, 2 shotgun.
    int weaponState = 0;
    bool firing = false;
    std::unique_ptr<FireableWeapon> weapons[weaponCount];

private:
    // Starts and ends bursts; the weapon state moves on as a burst ends.
    void updateBurst(float now);
};
