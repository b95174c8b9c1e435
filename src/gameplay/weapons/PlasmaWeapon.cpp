#include "gameplay/weapons/PlasmaWeapon.h"

PlasmaWeapon::PlasmaWeapon()
{
    delay = 66.0f;
    knockback = 10.0f;
    damage = 5;
}

bool PlasmaWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (!beginShot(time))
        return false;
    const Vector muzzle = muzzlePoint(owner, position, aim);
    const Shot shot = hitscan(owner, muzzle, spreadPoint(muzzle, aim), knockback, scaledDamage(owner), 2);
    effect("plasma", raised(muzzle, 0.2f), raised(shot.end, 0.2f));
    playShotSound(23, muzzle);
    return true;
}

void PlasmaWeapon::applyDefinition() { copyCommon("plasmagun", true, true); }
