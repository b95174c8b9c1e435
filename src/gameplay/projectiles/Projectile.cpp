#include "gameplay/projectiles/Projectile.h"

#include <cmath>

#include "core/Game.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "render/GameHUD.h"
#include "sound/ISound.h"

Projectile::Projectile()
{
    type = "projectile";
    setMass(10.0f);
    thinks = true;
    kind = 7;
    showdamage = false;
    entity = true;
}

std::unique_ptr<Body> Projectile::clone() const { return std::make_unique<Projectile>(); }

void Projectile::launch(GameBody* launcher, const Vector& muzzle, const Vector& aim, float time)
{
    if (localVertices.empty())
        makeRectangle(8.0f, 8.0f);
    setPosition(muzzle);
    direction = aim;
    vel = aim * speed;
    explodeTime = lifeTime + time;
    if (launcher)
        launcher->adopt(this);
    if (Game* game = Game::current())
        game->spawnBody(this);
}

void Projectile::explode(const Vector& point, Body*)
{
    if (exploded)
        return;
    exploded = true;
    int blast = static_cast<int>(damage);
    if (owner)
        blast = owner->scaleDamage(blast);
    FireableWeapon::radialDamage(point, radius, force, blast, damageType, owner);
    explosionEffects(point);
    solid = false;
    health = 0;
    die();
}

void Projectile::explosionEffects(const Vector& point)
{
    FireableWeapon::effect("explosionshock", FireableWeapon::raised(point, 0.1f));
    FireableWeapon::effect("explosionfire", FireableWeapon::raised(point, 0.2f));
    FireableWeapon::effect("explosionspark", FireableWeapon::raised(point, 0.2f));
    for (int i = 0; i < 8; ++i) {
        const float angle = FireableWeapon::uniform(0.0f, 6.2831853f);
        const Vector dir(std::cos(angle), std::sin(angle));
        const float start = FireableWeapon::uniform(0.0f, 32.0f);
        const float length = start >= 16.0f ? FireableWeapon::uniform(16.0f, 58.0f)
                                            : FireableWeapon::uniform(32.0f, 58.0f);
        const Vector from = point + dir * start;
        FireableWeapon::effect("tracer", FireableWeapon::raised(from, 0.2f),
                               FireableWeapon::raised(from + dir * length, 0.2f));
    }
    if (Game* game = Game::current())
        if (ISound* sound = game->getSound())
            sound->playIdAt(0, point, 0);
    flash(255.0f, 255.0f, 255.0f);
}

Vector Projectile::backedOff(float distance) const
{
    const float len = vel.length2D();
    if (len <= 0.0f)
        return pos;
    return pos - Vector(vel.x / len, vel.y / len) * distance;
}

void Projectile::flash(float r, float g, float b) const
{
    if (noFlash)
        return;
    if (GameHUD* hud = GameplaySingleton::get().hud)
        hud->flashScreen(RGBAColour(r, g, b, 150.0f));
}
