#pragma once
// The grappling hook launcher: one hook at a time, released with the trigger.
#include "gameplay/weapons/FireableWeapon.h"

class GrappleProjectile;

class GrappleWeapon : public FireableWeapon {
public:
    GrappleWeapon();
    // Launches a hook when none is out; false otherwise.
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
    // Removes the hook from the world.
    void stopFiring(float time) override;
    void reset() override;
    // The hook needs no ammo: any count becomes unlimited.
    int ammoAfterShot(int ammo) override;

    GrappleProjectile* hook = nullptr;
};
