#pragma once
// A slug that passes through every creature and stops at the first wall.
#include "gameplay/weapons/FireableWeapon.h"

class RailgunWeapon : public FireableWeapon {
public:
    RailgunWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
    void applyDefinition() override;
};
