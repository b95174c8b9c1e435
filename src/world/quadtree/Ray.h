#pragma once
// A segment for traces and occlusion tests: start, end and the direction
// from one to the other (not normalised).
#include "world/geometry/Vector.h"

class Ray {
public:
    Ray() = default;
    Ray(const Vector& from, const Vector& to) { set(from, to); }
    virtual ~Ray() = default;

    void set(const Vector& from, const Vector& to)
    {
        start = from;
        end = to;
        direction = to - from;
    }

    Vector start;
    Vector end;
    Vector direction;
};
