#pragma once
// A close blow for enemies: an area blast around the attacker.
#include "gameplay/weapons/FireableWeapon.h"

class MeleeWeapon : public FireableWeapon {
public:
    MeleeWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;

    float radius = 32.0f;
};
