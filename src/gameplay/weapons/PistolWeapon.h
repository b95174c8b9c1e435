#pragma once
// The player's starting gun: one precise bullet per shot.
#include "gameplay/weapons/FireableWeapon.h"

class PistolWeapon : public FireableWeapon {
public:
    PistolWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
    void applyDefinition() override;
};
