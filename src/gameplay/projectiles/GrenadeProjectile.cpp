#include "gameplay/projectiles/GrenadeProjectile.h"

#include "gameplay/projectiles/Gib.h"

GrenadeProjectile::GrenadeProjectile()
{
    type = "grenadeprojectile";
    setMass(5.0f);
    kind = 9;
    speed = 170.0f;
    damage = 120.0f;
    radius = 32.0f;
    force = 1.0f;
    lifeTime = 3000.0f;
    damageType = 16;
    setTexture("data/images/grenade2.png");
    textured = true;
    hasGlow = true;
    restitution = 0.3f;
    // The fuse is watched every step.
    thinkInterval = 0.0f;
}

std::unique_ptr<Body> GrenadeProjectile::clone() const { return std::make_unique<GrenadeProjectile>(); }

void GrenadeProjectile::launch(GameBody* launcher, const Vector& muzzle, const Vector& aim, float time)
{
    makeRectangle(8.0f, 8.0f);
    solid = true;
    Projectile::launch(launcher, muzzle, aim, time);
}

void GrenadeProjectile::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (exploded || !other || other == this)
        return;
    if (other->solid && other->visible && !other->isMovable())
        Gib::bounceSound(*this, nextBounceSoundTime);
    if (!other->solid || !other->visible || other == owner)
        return;
    if (!other->isMovable() && !other->entity)
        return;
    if (other->type == "door" || other->type == "alphadoor")
        return;
    explode(backedOff(1.0f), other);
}

void GrenadeProjectile::think(float dt)
{
    GameBody::think(dt);
    if (!exploded && now() > explodeTime)
        explode(pos, nullptr);
}
