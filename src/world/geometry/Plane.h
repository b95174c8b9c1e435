#pragma once
// A plane as normal and distance; a point is in front when n.p - d >= 0.
#include "world/geometry/Vector.h"

class Plane {
public:
    Vector normal;
    float distance = 0.0f;

    virtual ~Plane() = default;

    // Four-component test: the point's w takes part.
    bool inFront(const Vector& p) const { return normal.dot(p) - distance >= 0.0f; }
};
