#pragma once
// Lobs bouncing grenades; the grenade row of the definitions sets their mass,
// bounce, blast and fuse.
#include "gameplay/weapons/FireableWeapon.h"

class GrenadeWeapon : public FireableWeapon {
public:
    GrenadeWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
    void applyDefinition() override;

    float speed = 170.0f;
    float projectileDamage = 120.0f;
    float radius = 32.0f;
};
