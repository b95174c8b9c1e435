#include "world/movers/DebugMoveable.h"

DebugMoveable::DebugMoveable()
{
    type = "debugmoveable";
    takedamage = false;
}

std::unique_ptr<Body> DebugMoveable::clone() const { return std::make_unique<DebugMoveable>(); }
