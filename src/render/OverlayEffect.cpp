#include "render/OverlayEffect.h"

#include <algorithm>

#include "render/IRenderer.h"

namespace {
float clampByte(float v) { return std::clamp(v, 0.0f, 255.0f); }
}

void OverlayEffect::update(float dt)
{
    colour.set(clampByte(colour.r + colourVelocity.r * dt), clampByte(colour.g + colourVelocity.g * dt),
               clampByte(colour.b + colourVelocity.b * dt), clampByte(colour.a + colourVelocity.a * dt));
}

void OverlayEffect::draw(IRenderer& renderer, float dt)
{
    elapsed += dt;
    if (elapsed > duration)
        done = true;
    if (done)
        return;
    if (in2D)
        renderer.begin2D();
    renderer.setBlending(true);
    if (textured) {
        renderer.setTexturing(true);
        renderer.bindTexture(textureName);
        if (additive)
            renderer.setAdditiveBlend();
        else
            renderer.setAlphaBlend();
    } else {
        renderer.setTexturing(false);
        renderer.setAlphaBlend();
    }
    renderer.setColour(colour);
    const float w = static_cast<float>(renderer.getWidth());
    const float h = static_cast<float>(renderer.getHeight());
    renderer.drawQuad(0.0f, h, 0.0f, w, h);
    renderer.setAlphaBlend();
    if (in2D)
        renderer.end2D();
}
