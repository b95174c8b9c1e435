#pragma once
// An enemy's plasma pistol: launches slow glowing bolts.
#include "gameplay/weapons/FireableWeapon.h"

class PlasmaPistolWeapon : public FireableWeapon {
public:
    PlasmaPistolWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
};
