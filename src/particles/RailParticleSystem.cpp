#include "particles/RailParticleSystem.h"

#include "render/IRenderer.h"

void RailParticleSystem::emitAlong(const Vector& from, const Vector& to) { createParticle(from, to); }

void RailParticleSystem::particleCreated(Particle& particle) { particle.scroll.set(0.0f, 3.0f); }

void RailParticleSystem::draw()
{
    if (!renderer)
        return;
    bindOwnTexture();
    setBlendMode();
    for (int i = 0; i < activeCount; ++i) {
        const Particle& p = pool[static_cast<size_t>(i)];
        renderer->setColour(p.colour);
        renderer->drawTiledBeam(p.position, p.endPoint, p.position.z + 0.2f, p.width, 64.0f, true, false);
    }
}
