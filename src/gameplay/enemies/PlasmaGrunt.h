#pragma once
// A grunt with a plasma pistol: slow glowing bolts that can be dodged.
#include "gameplay/enemies/GruntEnemy.h"

class PlasmaPistolWeapon;

class PlasmaGrunt : public GruntEnemy {
public:
    PlasmaGrunt();
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    PlasmaPistolWeapon& gun() const;
};
