#pragma once
// A sun's lens flare: three soft additive sprites strung along the line from
// the flare through the middle of the view, the main one at the flare. Its
// brightness follows how much of it the world leaves visible.
#include "world/geometry/RGBAColour.h"
#include "world/geometry/Vector.h"

class IRenderer;

class LensFlare {
public:
    Vector position;
    RGBAColour colour{255.0f, 80.0f, 5.0f, 255.0f};
    // 0 hidden .. 1 fully visible; whoever knows the world sets it.
    float visibility = 1.0f;

    static constexpr float baseSize = 16.0f;
    static constexpr const char* texture = "data/particles/defaultparticle.tga";

    // Draws in the current (camera-fixed) frame, around the view centre at the origin.
    void draw(IRenderer& renderer) const;
};
