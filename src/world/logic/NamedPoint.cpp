#include "world/logic/NamedPoint.h"

NamedPoint::NamedPoint()
{
    type = "namedpoint";
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> NamedPoint::clone() const { return std::make_unique<NamedPoint>(); }
