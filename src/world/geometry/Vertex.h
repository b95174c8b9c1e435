#pragma once
// A corner of a drawable quad: position, colour and texture coordinate.
#include "world/geometry/Vector.h"

class Vertex : public Vector {
public:
    float r = 0.0f, g = 0.0f, b = 0.0f, a = 0.0f;
    float u = 0.0f, v = 0.0f;

    Vertex() = default;
    Vertex(float px, float py, float pz, float cr, float cg, float cb, float ca, float tu = 0.0f,
           float tv = 0.0f)
        : Vector(px, py, pz), r(cr), g(cg), b(cb), a(ca), u(tu), v(tv)
    {
    }
};
