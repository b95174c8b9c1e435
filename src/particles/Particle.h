#pragma once
// One pooled particle: a point (or, for beams, a segment) that moves,
// recolours and resizes each step until its life runs out. Systems recycle
// particles in place, so a particle is plain state plus its own update and
// draw.
#include "world/geometry/Dimension.h"
#include "world/geometry/RGBAColour.h"
#include "world/geometry/Vector.h"

class IRenderer;

class Particle {
public:
    virtual ~Particle() = default;

    // Emits the particle's quads into the quad batch its system opened: one
    // per glow step, each fainter. Nothing when alpha is below 1.
    virtual void draw(IRenderer& renderer) const;
    // Advances by dt seconds; false once the particle has outlived its life.
    virtual bool update(float dt);
    virtual void setSize(float w, float h);
    virtual void setEndSize(float w, float h);
    // The size changes by (end - start) per second, so the end size is
    // reached after one second and growth carries on past it.
    virtual void setSizeVelocity();

    Vector position;
    Vector endPoint;
    Vector velocity;
    Vector acceleration;
    Dimension size;
    Dimension endSize;
    // Texture scroll rate (u, v) of scrolling beams.
    Dimension scroll;
    float width = 0.0f, height = 0.0f;
    float halfWidth = 0.0f, halfHeight = 0.0f;
    float endWidth = 0.0f, endHeight = 0.0f;
    float widthVel = 0.0f, heightVel = 0.0f;
    RGBAColour colour;
    RGBAColour colourVel;
    bool alive = false;
    bool immortal = false;
    float age = 0.0f;
    float lifeTime = 0.0f;
    // Texture variant of lightning and plasma beams (1 is the definition's).
    int variant = 1;
    int glowSteps = 1;
};
