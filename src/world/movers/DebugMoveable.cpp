#include "world/movers/DebugMoveable.h"

DebugMoveable::DebugMoveable()
{
    type = "debugmoveable";
    takedamage = false;
    // Spawners make these with no level params: a crate, not a white box.
    setTexture("data/images/metal1.png");
    textured = true;
}

std::unique_ptr<Body> DebugMoveable::clone() const { return std::make_unique<DebugMoveable>(); }
