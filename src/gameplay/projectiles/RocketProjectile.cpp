#include "gameplay/projectiles/RocketProjectile.h"

#include "gameplay/weapons/FireableWeapon.h"
#include "particles/ParticleSystem.h"

RocketProjectile::RocketProjectile()
{
    type = "rocketprojectile";
    setMass(10.0f);
    kind = 8;
    speed = 400.0f;
    damage = 110.0f;
    radius = 32.0f;
    force = 1.0f;
    lifeTime = 25000.0f;
    damageType = 32;
    setTexture("data/images/rocketstar.png");
    textured = true;
    hasGlow = true;
    gravitymultiplier = 0.0f;
}

std::unique_ptr<Body> RocketProjectile::clone() const { return std::make_unique<RocketProjectile>(); }

void RocketProjectile::launch(GameBody* launcher, const Vector& muzzle, const Vector& aim, float time)
{
    makeRectangle(8.0f, 8.0f);
    gravitymultiplier = 0.0f;
    solid = false;
    Projectile::launch(launcher, muzzle, aim, time);
    const char* trail = noFlash ? "rocketflameenemy" : "rocketflame";
    const int trails = noFlash ? 2 : 3;
    for (int i = 0; i < trails; ++i)
        if (ParticleSystem* system = FireableWeapon::effect(trail, FireableWeapon::raised(pos, 0.2f)))
            attachParticleSystem(system);
}

void RocketProjectile::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (exploded || !other || other == this || other == owner || !other->solid)
        return;
    if (!other->visible && other->type != "clip")
        return;
    explode(backedOff(1.0f), other);
}

bool RocketProjectile::collidesWith(Body*) { return false; }
