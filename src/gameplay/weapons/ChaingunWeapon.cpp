#include "gameplay/weapons/ChaingunWeapon.h"

ChaingunWeapon::ChaingunWeapon()
{
    delay = 100.0f;
    knockback = 20.0f;
    damage = 12;
}

bool ChaingunWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (!beginShot(time))
        return false;
    const Vector muzzle = muzzlePoint(owner, position, aim);
    const Shot shot = hitscan(owner, muzzle, spreadPoint(muzzle, aim), knockback, scaledDamage(owner), 8);
    bulletEffects(muzzle, shot.end);
    playShotSound(8, muzzle);
    return true;
}

void ChaingunWeapon::applyDefinition() { copyCommon("chaingun", true, true); }
