#include "gameplay/weapons/ShootingTarget.h"

#include <cstdio>

#include "gameplay/projectiles/Gib.h"

ShootingTarget::ShootingTarget()
{
    type = "target";
    entity = true;
    thinks = true;
    takedamage = true;
    showdamage = true;
    health = initialhealth = 60;
    numlives = 1000;
}

std::unique_ptr<Body> ShootingTarget::clone() const { return std::make_unique<ShootingTarget>(); }

void ShootingTarget::deathEffects()
{
    std::printf("Target %s destroyed\n", id.c_str());
    startEffect("debugbloodexplosion");
    Gib::spawnGibs(pos, 100.0f, 200.0f, 8.0f, 10.0f);
}
