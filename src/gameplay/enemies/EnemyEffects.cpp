#include "gameplay/enemies/EnemyEffects.h"

#include <cmath>

#include "core/Game.h"
#include "gameplay/enemies/EnemyBase.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "sound/ISound.h"
#include "world/gamebody/GameBody.h"

namespace {
constexpr int explosionSound = 0;
constexpr int zapSound = 37;
constexpr float shockPauseMillis = 100.0f;
}

namespace EnemyEffects {

void explosion(const Vector& at)
{
    FireableWeapon::effect("explosionshock", FireableWeapon::raised(at, 0.1f));
    FireableWeapon::effect("explosionfire", FireableWeapon::raised(at, 0.2f));
    FireableWeapon::effect("explosionspark", FireableWeapon::raised(at, 0.2f));
    sound(explosionSound, at);
}

void explosionWithStreaks(const Vector& at)
{
    explosion(at);
    for (int i = 0; i < 8; ++i) {
        const float angle = FireableWeapon::uniform(0.0f, 6.2831853f);
        const Vector dir(std::cos(angle), std::sin(angle));
        const Vector from = at + dir * FireableWeapon::uniform(0.0f, 24.0f);
        FireableWeapon::effect("tracer", FireableWeapon::raised(from, 0.2f),
                               FireableWeapon::raised(from + dir * FireableWeapon::uniform(24.0f, 58.0f), 0.2f));
    }
}

bool shock(GameBody& victim, int damage, const Vector& at)
{
    const float now = GameBody::now();
    if (victim.nextpaintime >= now)
        return false;
    victim.takeDamage(damage, -1);
    sound(zapSound, at);
    victim.nextpaintime = now + shockPauseMillis;
    return true;
}

void sound(int id, const Vector& at)
{
    Game* game = Game::current();
    if (ISound* s = game ? game->getSound() : nullptr)
        s->playIdAt(id, at, 0);
}

Vector towards(const Vector& from, const Vector& to, float& distance)
{
    const Vector d(to.x - from.x, to.y - from.y);
    distance = d.length2D();
    if (distance <= 0.0f)
        return Vector();
    return Vector(d.x / distance, d.y / distance);
}

void cashRollOnly(EnemyBase& enemy)
{
    // The generic effects only run while showdamage is set.
    const bool shown = enemy.showdamage;
    enemy.showdamage = false;
    enemy.EnemyBase::deathEffects();
    enemy.showdamage = shown;
}

}
