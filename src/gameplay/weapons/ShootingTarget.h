#pragma once
// A practice target for firing ranges: takes damage from every weapon,
// bursts into gibs when destroyed and comes back after a few seconds (the
// GameBody limbo) as long as it has lives left. Levels set "health" and
// "lives" like any GameBody.
#include "world/gamebody/GameBody.h"

class ShootingTarget : public GameBody {
public:
    ShootingTarget();
    std::unique_ptr<Body> clone() const override;
    // Always gibs, however it died.
    void deathEffects() override;
};
