#pragma once
// A grunt with a rocket launcher: it keeps firing even at point-blank range.
#include "gameplay/enemies/GruntEnemy.h"

class RocketWeapon;

class RocketGrunt : public GruntEnemy {
public:
    RocketGrunt();
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    RocketWeapon& gun() const;
};
