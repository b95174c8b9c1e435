#include "particles/PlasmaParticleSystem.h"

#include <algorithm>
#include <cmath>

#include "render/IRenderer.h"

PlasmaParticleSystem::PlasmaParticleSystem()
{
    paused = true;
    dieWhenEmpty = true;
    // The beam texture scrolls, so it must repeat rather than clamp.
    clampTexture = false;
    for (int i = 0; i < 4; ++i)
        quad.addCorner(0, 0, 0, 255, 255, 255, 255, 0, 0);
    resetTexCoords();
}

void PlasmaParticleSystem::init()
{
    ParticleSystem::init();
    reloadTextures();
}

void PlasmaParticleSystem::reloadTextures()
{
    ParticleSystem::reloadTextures();
    variantTextures[0] = textureId;
    variantTextures[1] = loadTexture("data/particles/plasma2.png", false);
    variantTextures[2] = loadTexture("data/particles/plasma3.png", false);
    variantTextures[3] = loadTexture("data/particles/plasma4.png", false);
}

void PlasmaParticleSystem::resetTexCoords()
{
    texCoords[0] = TexCoord(0.0f, 0.0f);
    texCoords[1] = TexCoord(1.0f, 0.0f);
    texCoords[2] = TexCoord(1.0f, 1.0f);
    texCoords[3] = TexCoord(0.0f, 1.0f);
}

void PlasmaParticleSystem::emitInitial()
{
    resetTexCoords();
    ParticleSystem::emitInitial();
}

void PlasmaParticleSystem::emitAlong(const Vector& from, const Vector& to) { createParticle(from, to); }

void PlasmaParticleSystem::particleCreated(Particle& particle)
{
    particle.variant = 1;
    particle.immortal = false;
    particle.scroll.set(0.0f, 1.0f);
}

void PlasmaParticleSystem::stepParticle(float, Particle& particle)
{
    float whole = 0.0f;
    scrollU = std::modf(particle.scroll.width * age, &whole);
    scrollV = std::modf(particle.scroll.height * age, &whole);
}

void PlasmaParticleSystem::draw()
{
    if (!renderer)
        return;
    renderer->setTexturing(true);
    setBlendMode();
    float corners[8];
    for (int i = 0; i < activeCount; ++i) {
        const Particle& p = pool[static_cast<size_t>(i)];
        bindVariant(variantTextures[std::max(0, std::min(3, p.variant - 1))]);
        renderer->computeBeamQuad(corners, p.position, p.endPoint, 8.0f);
        for (size_t c = 0; c < 4; ++c)
            quad.setCorner(c, corners[c * 2], corners[c * 2 + 1], p.position.z, p.colour.r, p.colour.g,
                           p.colour.b, p.colour.a, texCoords[c].u + scrollU, texCoords[c].v + scrollV);
        renderer->drawQuad(quad);
    }
}
