#pragma once
// Rapid bullets that wander by the weapon's spread.
#include "gameplay/weapons/FireableWeapon.h"

class ChaingunWeapon : public FireableWeapon {
public:
    ChaingunWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
    void applyDefinition() override;
};
