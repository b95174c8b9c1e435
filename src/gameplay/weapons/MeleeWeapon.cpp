#include "gameplay/weapons/MeleeWeapon.h"

MeleeWeapon::MeleeWeapon()
{
    delay = 1000.0f;
    knockback = 1.0f;
    damage = 10;
    damageType = 1024;
    enemyWeapon = true;
}

bool MeleeWeapon::fire(Body* owner, const Vector& position, const Vector&, float time)
{
    if (!beginShot(time))
        return false;
    radialDamage(position, radius, knockback, scaledDamage(owner), damageType, owner);
    playShotSound(36, position);
    effect("explosionshock", raised(position, 0.1f));
    return true;
}
