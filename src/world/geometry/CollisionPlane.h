#pragma once
// A plane used by collision queries; same data as Plane.
#include "world/geometry/Plane.h"

class CollisionPlane : public Plane {
};
