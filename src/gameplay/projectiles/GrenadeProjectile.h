#pragma once
// A grenade: bounces off level geometry and doors with a clack, bursts on
// anything that moves, and otherwise when its fuse runs out.
#include "gameplay/projectiles/Projectile.h"

class GrenadeProjectile : public Projectile {
public:
    GrenadeProjectile();
    std::unique_ptr<Body> clone() const override;
    void launch(GameBody* owner, const Vector& muzzle, const Vector& aim, float time) override;
    void onTouch(TouchInfo& info) override;
    // The fuse.
    void think(float dt) override;

    float nextBounceSoundTime = 0.0f;
};
