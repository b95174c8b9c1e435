#include "gameplay/weapons/RocketWeapon.h"

#include <memory>

#include "core/Game.h"
#include "gameplay/projectiles/RocketProjectile.h"
#include "gameplay/weapons/WeaponDefinitions.h"

RocketWeapon::RocketWeapon() { delay = 900.0f; }

bool RocketWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (!Game::current() || !beginShot(time))
        return false;
    auto rocket = std::make_unique<RocketProjectile>();
    rocket->speed = speed;
    rocket->damage = projectileDamage;
    rocket->radius = radius;
    rocket->force = rocketKnockback;
    rocket->noFlash = enemyWeapon;
    rocket.release()->launch(dynamic_cast<GameBody*>(owner), muzzlePoint(owner, position, aim), aim, time);
    playShotSound(1, position);
    return true;
}

void RocketWeapon::applyDefinition()
{
    const WeaponDefinition* def = WeaponDefinitions::find("rocket");
    if (!def)
        return;
    projectileDamage = static_cast<float>(def->damage);
    delay = def->delay;
    radius = def->radius;
    speed = def->speed;
    rocketKnockback = def->knockback;
}
