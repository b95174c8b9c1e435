#pragma once
// Launches rockets that carry the weapon's own speed, blast and push.
#include "gameplay/weapons/FireableWeapon.h"

class RocketWeapon : public FireableWeapon {
public:
    RocketWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
    void applyDefinition() override;

    float speed = 400.0f;
    float projectileDamage = 110.0f;
    float radius = 32.0f;
    float rocketKnockback = 3.0f;
};
