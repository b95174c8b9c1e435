#pragma once
// A barrel that blows up on its first real hit: a blast that hurts and
// pushes everything close by (and sets off neighbouring barrels), fire,
// sparks and a bang.
#include "world/gamebody/GameBody.h"

class ExplodingBarrel : public GameBody {
public:
    static constexpr float blastRadius = 32.0f;
    static constexpr float blastForce = 0.5f;
    static constexpr int blastDamage = 50;
    static constexpr int blastDamageType = 512;

    ExplodingBarrel();
    std::unique_ptr<Body> clone() const override;
    // The explosion (once), then the usual death.
    void die() override;
    // The explosion replaces blood and gibs.
    void deathEffects() override;

    bool exploded = false;
};
