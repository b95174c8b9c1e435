#pragma once
// A rocket: flies straight without gravity and bursts on the first solid,
// visible body (or clip) that is not its owner. Flame trails follow it.
#include "gameplay/projectiles/Projectile.h"

class RocketProjectile : public Projectile {
public:
    RocketProjectile();
    std::unique_ptr<Body> clone() const override;
    void launch(GameBody* owner, const Vector& muzzle, const Vector& aim, float time) override;
    void onTouch(TouchInfo& info) override;
    // A rocket never pushes or blocks what it flies through.
    bool collidesWith(Body* other) override;
};
