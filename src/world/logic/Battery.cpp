#include "world/logic/Battery.h"

Battery::Battery()
{
    type = "battery";
    showdamage = false;
    thinks = true;
    hasGlow = true;
    glowsteps = 2;
}

std::unique_ptr<Body> Battery::clone() const { return std::make_unique<Battery>(); }
