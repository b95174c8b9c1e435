#pragma once
// One body hit by a trace: where along the ray (0 at the start, 1 at the
// end), the squared distance from the start, the hit point and the body.
#include "world/geometry/Vector.h"

class Body;

class TraceResult {
public:
    TraceResult() = default;
    TraceResult(float f, float d, const Vector& p, Body* b) : fraction(f), distance(d), point(p), body(b) {}
    virtual ~TraceResult() = default;

    float fraction = 0.0f;
    float distance = 0.0f;
    Vector point;
    Body* body = nullptr;
};
