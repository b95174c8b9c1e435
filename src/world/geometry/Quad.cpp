#include "world/geometry/Quad.h"

void Quad::addCorner(float x, float y, float z, float r, float g, float b, float a, float u, float v)
{
    addCorner(std::make_unique<Vertex>(x, y, z, r, g, b, a, u, v));
}

void Quad::addCorner(float x, float y, float z, float r, float g, float b, float a)
{
    addCorner(std::make_unique<Vertex>(x, y, z, r, g, b, a));
}

void Quad::addCorner(std::unique_ptr<Vertex> corner)
{
    if (corners.size() >= maxCorners)
        return;
    corners.push_back(std::move(corner));
}

void Quad::setCorner(size_t i, float x, float y, float z, float r, float g, float b, float a, float u,
                     float v)
{
    if (i >= corners.size())
        return;
    *corners[i] = Vertex(x, y, z, r, g, b, a, u, v);
}

void Quad::setCorner(size_t i, float x, float y, float z, float r, float g, float b, float a)
{
    if (i >= corners.size())
        return;
    Vertex& c = *corners[i];
    c.set(x, y, z);
    c.r = r;
    c.g = g;
    c.b = b;
    c.a = a;
}

void Quad::addColour(float r, float g, float b, float a)
{
    colours.push_back(std::make_unique<RGBAColour>(r, g, b, a));
}
