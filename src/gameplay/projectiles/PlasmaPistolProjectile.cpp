#include "gameplay/projectiles/PlasmaPistolProjectile.h"

#include "core/Game.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "particles/ParticleSystem.h"
#include "sound/ISound.h"

PlasmaPistolProjectile::PlasmaPistolProjectile()
{
    type = "plasmapistolprojectile";
    setMass(10.0f);
    kind = 8;
    speed = 300.0f;
    damage = 4.0f;
    radius = 8.0f;
    force = 0.1f;
    lifeTime = 0.0f;
    damageType = 2;
    // A glowing ball at the head of its trail, not a bare white square.
    setTexture("data/particles/plasma1.png");
    textured = true;
    outlined = false;
}

std::unique_ptr<Body> PlasmaPistolProjectile::clone() const
{
    return std::make_unique<PlasmaPistolProjectile>();
}

void PlasmaPistolProjectile::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (exploded || !other || other == this || other == owner || !other->solid)
        return;
    if (!other->visible && other->type != "clip")
        return;
    explode(backedOff(2.0f), other);
}

void PlasmaPistolProjectile::step(float)
{
    for (ParticleSystem* system : getAttachedParticleSystems())
        system->emit(pos, pos, 1);
}

void PlasmaPistolProjectile::explosionEffects(const Vector& point)
{
    FireableWeapon::effect("plasmahit", FireableWeapon::raised(point, 0.2f));
    if (Game* game = Game::current())
        if (ISound* sound = game->getSound())
            sound->playIdAt(35, point, 0);
}
