#include "render/SkyQuad.h"

#include <algorithm>

SkyQuad::SkyQuad()
{
    for (size_t i = 0; i < maxCorners; ++i)
        addCorner(0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f);
}

void SkyQuad::stepComponent(float& value, float& velocity, float amount, float lo, float hi)
{
    value += amount;
    if (value > hi) {
        value = hi;
        velocity = -velocity;
    } else if (value < lo) {
        value = lo;
        velocity = -velocity;
    }
}

void SkyQuad::advanceCorner(size_t corner, float dt, float alphaWeight)
{
    if (corner >= corners.size())
        return;
    Vertex& v = *corners[corner];
    RGBAColour& vel = velocities[corner];
    // The colour turns back as a whole when any component reaches a bound:
    // left to bounce apart, the components would wander off the sky's hues.
    float vr = vel.r, vg = vel.g, vb = vel.b;
    stepComponent(v.r, vr, vel.r * dt, minColour.r, maxColour.r);
    stepComponent(v.g, vg, vel.g * dt, minColour.g, maxColour.g);
    stepComponent(v.b, vb, vel.b * dt, minColour.b, maxColour.b);
    if (vr != vel.r || vg != vel.g || vb != vel.b) {
        vel.r = -vel.r;
        vel.g = -vel.g;
        vel.b = -vel.b;
    }
    stepComponent(v.a, vel.a, vel.a * dt * alphaWeight, minColour.a, maxColour.a);
}

int SkyQuad::passCount() const { return glow ? std::max(glowSteps, 1) : 1; }

bool SkyQuad::isOpaque() const
{
    if (textured || passCount() != 1 || minColour.a < 255.0f)
        return false;
    for (const auto& c : corners)
        if (c->a < 255.0f)
            return false;
    return true;
}
