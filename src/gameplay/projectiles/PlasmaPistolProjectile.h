#pragma once
// An enemy's plasma bolt: a small slow blast with its own hit effect; its
// attached trail is re-emitted at the bolt every step.
#include "gameplay/projectiles/Projectile.h"

class PlasmaPistolProjectile : public Projectile {
public:
    PlasmaPistolProjectile();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    void step(float dt) override;
    void explosionEffects(const Vector& point) override;
};
