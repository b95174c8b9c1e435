#pragma once
// A grunt with a chaingun: rapid bullets from a middle distance. Level 1 is
// the slow-firing but very tough guard; higher levels fire faster and harder.
#include "gameplay/enemies/GruntEnemy.h"

class ChaingunWeapon;

class ChaingunGrunt : public GruntEnemy {
public:
    ChaingunGrunt();
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    ChaingunWeapon& gun() const;
};
