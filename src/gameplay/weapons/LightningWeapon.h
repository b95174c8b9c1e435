#pragma once
// A held beam: each shot is a spread hitscan; the crackle loops on its own
// channel from the first shot of a burst until the trigger is let go.
#include "gameplay/weapons/FireableWeapon.h"

class LightningWeapon : public FireableWeapon {
public:
    LightningWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;
    // Stops the looping sound.
    void stopFiring(float time) override;
    void reset() override;
    void applyDefinition() override;

    int soundChannel = -1;
    bool firing = false;
};
