#include "gameplay/weapons/PistolWeapon.h"

PistolWeapon::PistolWeapon()
{
    delay = 500.0f;
    knockback = 20.0f;
    damage = 20;
}

bool PistolWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (!beginShot(time))
        return false;
    const Vector muzzle = muzzlePoint(owner, position, aim);
    const Shot shot = hitscan(owner, muzzle, muzzle + aim * range, knockback, scaledDamage(owner), 1);
    bulletEffects(muzzle, shot.end);
    playShotSound(5, muzzle);
    return true;
}

void PistolWeapon::applyDefinition() { copyCommon("pistol", true, false); }
