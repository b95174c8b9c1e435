#include "gameplay/weapons/ShotgunWeapon.h"

#include "gameplay/weapons/WeaponDefinitions.h"

ShotgunWeapon::ShotgunWeapon()
{
    delay = 800.0f;
    knockback = 8.0f;
    damage = 10;
}

bool ShotgunWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (!beginShot(time))
        return false;
    const Vector muzzle = muzzlePoint(owner, position, aim);
    const int pelletDamage = scaledDamage(owner);
    for (int i = 0; i < numShots; ++i) {
        const Shot shot = hitscan(owner, muzzle, spreadPoint(muzzle, aim), knockback, pelletDamage, 4);
        bulletEffects(muzzle, shot.end);
    }
    playShotSound(21, muzzle);
    return true;
}

void ShotgunWeapon::applyDefinition()
{
    copyCommon("shotgun", true, true);
    if (const WeaponDefinition* def = WeaponDefinitions::find("shotgun"))
        numShots = def->numshots;
}
