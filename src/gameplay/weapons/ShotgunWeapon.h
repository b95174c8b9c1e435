#pragma once
// A burst of pellets, each with its own spread.
#include "gameplay/weapons/FireableWeapon.h"

class ShotgunWeapon : public FireableWeapon {
public:
    ShotgunWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
    void applyDefinition() override;

    int numShots = 10;
};
