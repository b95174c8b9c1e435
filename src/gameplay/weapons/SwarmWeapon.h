#pragma once
// Releases a swarm of small hunters around the firer; a player's swarm
// upgrade level decides how many.
#include "gameplay/weapons/FireableWeapon.h"

class SwarmWeapon : public FireableWeapon {
public:
    SwarmWeapon();
    bool fire(Body* owner, const Vector& position, const Vector& aim, float time) override;

    // Members released for an owner (4, or by a player's swarm level).
    static int memberCount(Body* owner);
};
