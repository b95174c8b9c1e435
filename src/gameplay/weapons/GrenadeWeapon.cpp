#include "gameplay/weapons/GrenadeWeapon.h"

#include <memory>

#include "core/Game.h"
#include "gameplay/projectiles/GrenadeProjectile.h"
#include "gameplay/weapons/WeaponDefinitions.h"

GrenadeWeapon::GrenadeWeapon() { delay = 800.0f; }

bool GrenadeWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (!Game::current() || !beginShot(time))
        return false;
    auto grenade = std::make_unique<GrenadeProjectile>();
    grenade->noFlash = enemyWeapon;
    GrenadeProjectile* g = grenade.release();
    // Launched on the grenade's own speed and fuse; the row's values are
    // copied afterwards and only its mass, bounce and blast take effect.
    g->launch(dynamic_cast<GameBody*>(owner), muzzlePoint(owner, position, aim), aim, time);
    if (const WeaponDefinition* def = WeaponDefinitions::find("grenade")) {
        if (def->mass > 0.0f)
            g->setMass(def->mass);
        g->restitution = def->bounceenergy;
        g->speed = def->speed;
        g->damage = static_cast<float>(def->damage);
        g->radius = def->radius;
        g->lifeTime = def->lifetime;
    }
    g->solid = true;
    playShotSound(2, position);
    return true;
}

void GrenadeWeapon::applyDefinition()
{
    const WeaponDefinition* def = WeaponDefinitions::find("grenade");
    if (!def)
        return;
    delay = def->delay;
    speed = def->speed;
    projectileDamage = static_cast<float>(def->damage);
    radius = def->radius;
}
