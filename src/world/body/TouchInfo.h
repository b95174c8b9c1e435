#pragma once
// The record of one contact, refilled for every contact a body takes part in
// and handed to its onTouch hook.
#include "world/geometry/Vector.h"

class Body;

class TouchInfo {
public:
    virtual ~TouchInfo() = default;

    Body* other = nullptr;
    Body* self = nullptr;
    // Unit length, pointing from the other body towards the one processed.
    Vector normal;
    Vector point;
    // Time of impact within the step; negative for a penetration (its depth).
    float time = 0.0f;
};
