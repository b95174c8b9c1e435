#pragma once
// The brain the gun-carrying grunts share: inside the engagement range a
// grunt closes in on a visible player until it is within its close distance
// and fires its weapon; out of range, out of sight or with the player
// notarget it patrols. Classes supply the weapon and the level tables.
#include <memory>

#include "gameplay/enemies/EnemyBase.h"
#include "gameplay/weapons/FireableWeapon.h"

class GruntEnemy : public EnemyBase {
public:
    // Beyond this a grunt neither approaches nor fires.
    static constexpr float engageRange = 290.0f;
    static constexpr float approachAccel = 180.0f;

    GruntEnemy() { startPatrol(); }

    // GameBody's limbo handling, then the brain unless in limbo or dying.
    void think(float dt) override;

    FireableWeapon* getWeapon() const { return weapon.get(); }
    // Closer than this the grunt stops approaching (it still fires).
    float closeDistance = 0.0f;

protected:
    // Called by think when the player is visible within engageRange, with the
    // unit vector towards it and its distance; fires the weapon by default.
    virtual void attack(const Vector& aim, float dist, float now);

    std::unique_ptr<FireableWeapon> weapon;
};
