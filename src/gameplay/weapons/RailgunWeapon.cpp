#include "gameplay/weapons/RailgunWeapon.h"

RailgunWeapon::RailgunWeapon()
{
    delay = 1000.0f;
    knockback = 60.0f;
    damage = 100;
}

bool RailgunWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (!beginShot(time))
        return false;
    const Vector muzzle = muzzlePoint(owner, position, aim);
    const Shot shot = pierce(owner, muzzle, muzzle + aim * range, knockback, scaledDamage(owner), 64);
    effect("rail", raised(muzzle, 0.2f), raised(shot.end, 0.2f));
    playShotSound(4, muzzle);
    return true;
}

void RailgunWeapon::applyDefinition() { copyCommon("railgun", true, false); }
