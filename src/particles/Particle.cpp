#include "particles/Particle.h"

#include <algorithm>

#include "render/IRenderer.h"

namespace {
float clampColour(float v) { return std::max(0.0f, std::min(255.0f, v)); }
}

void Particle::draw(IRenderer& renderer) const
{
    if (!(colour.a >= 1.0f))
        return;
    const int steps = std::max(1, glowSteps);
    int alpha = static_cast<int>(colour.a);
    const int alphaStep = alpha / steps;
    for (int i = 0; i < steps; ++i) {
        renderer.setColour(colour.r, colour.g, colour.b, static_cast<float>(alpha));
        renderer.drawCentredQuad(position.x, position.y, position.z, halfWidth, halfHeight, false);
        alpha -= alphaStep;
    }
}

bool Particle::update(float dt)
{
    position.x += velocity.x * dt;
    position.y += velocity.y * dt;
    position.z += velocity.z * dt;
    velocity.x += acceleration.x * dt;
    velocity.y += acceleration.y * dt;
    velocity.z += acceleration.z * dt;
    colour.r = clampColour(colour.r + colourVel.r * dt);
    colour.g = clampColour(colour.g + colourVel.g * dt);
    colour.b = clampColour(colour.b + colourVel.b * dt);
    colour.a = clampColour(colour.a + colourVel.a * dt);
    // A shrinking particle ends at nothing rather than turning inside out.
    width = std::max(0.0f, width + widthVel * dt);
    height = std::max(0.0f, height + heightVel * dt);
    halfWidth = width * 0.5f;
    halfHeight = height * 0.5f;
    age += dt;
    if (!immortal && age > lifeTime)
        alive = false;
    return alive;
}

void Particle::setSize(float w, float h)
{
    size.set(w, h);
    width = std::max(0.0f, w);
    height = std::max(0.0f, h);
    halfWidth = width * 0.5f;
    halfHeight = height * 0.5f;
}

void Particle::setEndSize(float w, float h)
{
    endSize.set(w, h);
    endWidth = w;
    endHeight = h;
}

void Particle::setSizeVelocity()
{
    widthVel = endWidth - width;
    heightVel = endHeight - height;
}
