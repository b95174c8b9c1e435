#pragma once
// A drawable four-cornered primitive with per-corner colour and texture
// coordinate; the sky builds its layers from these.
#include <memory>
#include <string>
#include <vector>

#include "world/geometry/RGBAColour.h"
#include "world/geometry/Vertex.h"

class Quad {
public:
    std::vector<std::unique_ptr<Vertex>> corners;
    std::vector<std::unique_ptr<RGBAColour>> colours;
    std::string name;

    virtual ~Quad() = default;

    virtual void addCorner(float x, float y, float z, float r, float g, float b, float a, float u,
                           float v);
    virtual void addCorner(float x, float y, float z, float r, float g, float b, float a);
    // Takes ownership; a fifth corner is dropped.
    virtual void addCorner(std::unique_ptr<Vertex> corner);
    virtual void setCorner(size_t i, float x, float y, float z, float r, float g, float b, float a,
                           float u, float v);
    virtual void setCorner(size_t i, float x, float y, float z, float r, float g, float b, float a);
    virtual void addColour(float r, float g, float b, float a);

    static constexpr size_t maxCorners = 4;
};
