#include "gameplay/weapons/PlasmaPistolWeapon.h"

#include <memory>

#include "core/Game.h"
#include "gameplay/projectiles/PlasmaPistolProjectile.h"
#include "particles/ParticleSystem.h"

PlasmaPistolWeapon::PlasmaPistolWeapon()
{
    delay = 1000.0f;
    enemyWeapon = true;
}

bool PlasmaPistolWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (!Game::current() || !beginShot(time))
        return false;
    auto bolt = std::make_unique<PlasmaPistolProjectile>();
    bolt->noFlash = enemyWeapon;
    // Enemies set their bolt strength by level; zero keeps the bolt's own.
    if (damage > 0)
        bolt->damage = static_cast<float>(scaledDamage(owner));
    PlasmaPistolProjectile* b = bolt.release();
    b->launch(dynamic_cast<GameBody*>(owner), muzzlePoint(owner, position, aim), aim, time);
    if (ParticleSystem* trail = effect("plasmabullet", raised(b->pos, 0.2f)))
        b->attachParticleSystem(trail);
    playShotSound(34, position);
    return true;
}
