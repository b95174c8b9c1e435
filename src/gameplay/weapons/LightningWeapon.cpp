#include "gameplay/weapons/LightningWeapon.h"

#include "core/Game.h"
#include "sound/ISound.h"

LightningWeapon::LightningWeapon() { delay = 900.0f; }

bool LightningWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (!beginShot(time))
        return false;
    const Vector muzzle = muzzlePoint(owner, position, aim);
    const Shot shot = hitscan(owner, muzzle, spreadPoint(muzzle, aim), knockback, scaledDamage(owner), 128);
    effect("lightning", raised(muzzle, 0.2f), raised(shot.end, 0.2f));
    if (!firing) {
        Game* game = Game::current();
        if (ISound* sound = game ? game->getSound() : nullptr)
            soundChannel = sound->playIdOnChannelAt(22, -1, muzzle, -1);
        firing = true;
    }
    return true;
}

void LightningWeapon::stopFiring(float)
{
    if (soundChannel != -1) {
        Game* game = Game::current();
        if (ISound* sound = game ? game->getSound() : nullptr)
            sound->stopChannel(soundChannel);
    }
    soundChannel = -1;
    firing = false;
}

void LightningWeapon::reset()
{
    FireableWeapon::reset();
    stopFiring(0.0f);
}

void LightningWeapon::applyDefinition() { copyCommon("lightninggun", true, true); }
