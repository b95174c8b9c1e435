#include "particles/TextParticleSystem.h"

#include "render/FontRenderer.h"
#include "render/IRenderer.h"

TextParticleSystem::TextParticleSystem()
{
    paused = true;
    dieWhenEmpty = true;
}

void TextParticleSystem::emitAlong(const Vector& from, const Vector& to) { createParticle(from, to); }

void TextParticleSystem::draw()
{
    if (!renderer)
        return;
    FontRenderer* fonts = renderer->getFontRenderer();
    if (!fonts || activeCount == 0)
        return;
    renderer->setBlending(true);
    renderer->setTexturing(true);
    fonts->selectFont(font, fontSize);
    const float oldScale = fonts->getScale();
    fonts->setScale(scale);
    const float halfWidth = fonts->textWidth(text) * scale * 0.5f;
    for (int i = 0; i < activeCount; ++i) {
        const Particle& p = pool[static_cast<size_t>(i)];
        const float x = p.position.x - halfWidth;
        const float z = p.position.z + 0.2f;
        if (shadow) {
            renderer->setColour(0.0f, 0.0f, 0.0f, p.colour.a);
            fonts->drawText(x + 1.0f, p.position.y - 1.0f, z, text);
        }
        renderer->setColour(p.colour);
        fonts->drawText(x, p.position.y, z, text);
    }
    fonts->setScale(oldScale);
}
