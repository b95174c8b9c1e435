#include "particles/TracerParticleSystem.h"

#include "render/IRenderer.h"

void TracerParticleSystem::emitAlong(const Vector& from, const Vector& to) { createParticle(from, to); }

void TracerParticleSystem::draw()
{
    if (!renderer)
        return;
    bindOwnTexture();
    setBlendMode();
    for (int i = 0; i < activeCount; ++i) {
        const Particle& p = pool[static_cast<size_t>(i)];
        renderer->setColour(p.colour);
        renderer->drawBeam(p.position, p.endPoint, p.position.z + 0.2f, p.width, true, false);
    }
}
