#pragma once
// A grunt with a shotgun: a spread of pellets, more of them at higher levels.
#include "gameplay/enemies/GruntEnemy.h"

class ShotgunWeapon;

class ShotgunGrunt : public GruntEnemy {
public:
    ShotgunGrunt();
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    ShotgunWeapon& gun() const;
};
