#pragma once
// A grunt that rushes the player and strikes with a close blow; it has no
// close distance, so it keeps pushing in while the player is in sight.
#include "gameplay/enemies/GruntEnemy.h"

class MeleeWeapon;

class MeleeGrunt : public GruntEnemy {
public:
    MeleeGrunt();
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    MeleeWeapon& gun() const;

protected:
    // Strikes only while the player is inside the blow's radius.
    void attack(const Vector& aim, float dist, float now) override;
};
