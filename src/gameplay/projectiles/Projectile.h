#pragma once
// A short-lived body a weapon launches: it flies under the normal physics,
// bursts on contact or when its fuse runs out, and hands the blast to
// radialDamage. Subclasses choose the touch rule and the effects.
#include <string>

#include "world/gamebody/GameBody.h"

class Projectile : public GameBody {
public:
    Projectile();
    std::unique_ptr<Body> clone() const override;

    // Puts the projectile in the world at `muzzle` flying along `aim` at its
    // speed, owned by `owner` (which may be null), fuse started at `time`.
    virtual void launch(GameBody* owner, const Vector& muzzle, const Vector& aim, float time);
    // The blast at `point`: damage and push, effects, then the projectile
    // dies. Runs once; `other` is what it touched (may be null).
    virtual void explode(const Vector& point, Body* other);
    // Visuals and sound of the blast; called by explode.
    virtual void explosionEffects(const Vector& point);

    // The position `distance` units back against the direction of flight.
    Vector backedOff(float distance) const;
    // A white flash over the screen, unless noFlash.
    void flash(float r, float g, float b) const;

    float speed = 400.0f;
    float damage = 10.0f;
    float radius = 64.0f;
    float force = 0.0f;
    float lifeTime = 0.0f;
    float explodeTime = 0.0f;
    Vector direction;
    bool exploded = false;
    int damageType = 0;
    bool noFlash = false;
};
