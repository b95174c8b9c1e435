#include "world/movers/Clip.h"

Clip::Clip()
{
    type = "clip";
    kind = 13;
    thinks = false;
    thinkInterval = 200.0f;
    showdamage = false;
    visible = false;
    solid = true;
}

std::unique_ptr<Body> Clip::clone() const { return std::make_unique<Clip>(); }
