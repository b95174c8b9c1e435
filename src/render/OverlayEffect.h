#pragma once
// A full-window colour quad drawn over the picture for a set time while its
// colour moves at a constant rate: fades in from black after level loads and
// sky switches. Reports itself done once its time is up.
#include <string>

#include "world/geometry/RGBAColour.h"

class IRenderer;

class OverlayEffect {
public:
    float duration = 1.0f;
    float elapsed = 0.0f;
    RGBAColour colour;
    // Colour change per second.
    RGBAColour colourVelocity;
    bool textured = false;
    bool additive = false;
    std::string textureName;
    bool in2D = true;
    bool done = false;

    virtual ~OverlayEffect() = default;

    // Called once per frame before draw: moves the colour on by dt, each
    // component kept within 0..255. Overrides call the base.
    virtual void update(float dt);
    // Called once per frame after the world: advances the elapsed time and
    // covers the window, or marks the overlay done once its time is up.
    virtual void draw(IRenderer& renderer, float dt);

    bool isDone() const { return done; }
};
