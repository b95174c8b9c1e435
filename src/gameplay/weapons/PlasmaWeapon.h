#pragma once
// A fast stream of plasma drawn as a beam to where it hits.
#include "gameplay/weapons/FireableWeapon.h"

class PlasmaWeapon : public FireableWeapon {
public:
    PlasmaWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
    void applyDefinition() override;
};
