#pragma once
// One rectangle of a sky: four coloured corners whose colours drift at their
// own velocities and bounce between a lower and an upper bound, optionally
// textured and drawn in several additive glow passes.
#include <array>
#include <string>

#include "world/geometry/Quad.h"
#include "world/geometry/RGBAColour.h"

class SkyQuad : public Quad {
public:
    enum Corner { TopLeft, TopRight, BottomRight, BottomLeft };

    // Colour change per second of each corner, in tl, tr, br, bl order.
    std::array<RGBAColour, 4> velocities{};
    RGBAColour minColour;
    RGBAColour maxColour;
    bool glow = false;
    int glowSteps = 0;
    bool textured = false;
    bool clamp = false;
    std::string texture;
    // 1 draws additively; anything else keeps the alpha blending.
    int blendStyle = 1;

    SkyQuad();

    // Moves one corner's colour on by dt; the alpha moves `alphaWeight` as
    // far. A component that crosses a bound stops on it and turns back.
    void advanceCorner(size_t corner, float dt, float alphaWeight);
    // Passes drawn per frame: glowSteps when glowing, else one.
    int passCount() const;
    // Untextured, one pass, and every corner's alpha pinned at 255 or more.
    bool isOpaque() const;

    // One component's step: bounces `value` between lo and hi by flipping `velocity`.
    static void stepComponent(float& value, float& velocity, float amount, float lo, float hi);
};
