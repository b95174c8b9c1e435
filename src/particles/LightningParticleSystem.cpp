#include "particles/LightningParticleSystem.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "particles/ParticleRandom.h"
#include "render/IRenderer.h"

LightningParticleSystem::LightningParticleSystem()
{
    paused = true;
    dieWhenEmpty = true;
}

void LightningParticleSystem::init()
{
    ParticleSystem::init();
    reloadTextures();
}

void LightningParticleSystem::reloadTextures()
{
    ParticleSystem::reloadTextures();
    variantTextures[0] = textureId;
    variantTextures[1] = loadTexture("data/particles/lightning2.png");
    variantTextures[2] = loadTexture("data/particles/lightning3.png");
}

void LightningParticleSystem::emitAlong(const Vector& from, const Vector& to)
{
    const float dx = to.x - from.x;
    const float dy = to.y - from.y;
    const float length = std::sqrt(dx * dx + dy * dy);
    if (!std::isfinite(length) || length <= 0.0f)
        return;
    // Never more joints than the pool can hold, however long the bolt.
    const int count = static_cast<int>(std::min(std::ceil(length / segmentLength),
                                                static_cast<float>(maxParticles - activeCount)));
    const float ux = dx / length * segmentLength;
    const float uy = dy / length * segmentLength;
    Vector joint = from;
    for (int i = 1; i <= count; ++i) {
        Vector next = to;
        if (i < count) {
            next.set(from.x + ux * static_cast<float>(i) + static_cast<float>(ParticleRandom::next() % 3 - 1),
                     from.y + uy * static_cast<float>(i) + static_cast<float>(ParticleRandom::next() % 3 - 1), from.z);
        }
        createParticle(joint, next);
        joint = next;
    }
}

void LightningParticleSystem::particleCreated(Particle& particle)
{
    particle.variant = ParticleRandom::next() % 3 + 1;
    particle.immortal = false;
}

void LightningParticleSystem::draw()
{
    if (!renderer)
        return;
    renderer->setTexturing(true);
    setBlendMode();
    for (int i = 0; i < activeCount; ++i) {
        const Particle& p = pool[static_cast<size_t>(i)];
        if (!(p.colour.a >= 1.0f))
            continue;
        bindVariant(variantTextures[std::max(0, std::min(2, p.variant - 1))]);
        const int steps = std::max(1, p.glowSteps);
        int alpha = static_cast<int>(p.colour.a);
        const int alphaStep = alpha / steps;
        for (int g = 0; g < steps; ++g) {
            renderer->setColour(p.colour.r, p.colour.g, p.colour.b, static_cast<float>(alpha));
            renderer->drawBeam(p.position, p.endPoint, p.position.z + 0.2f, 8.0f, true, false);
            renderer->drawBeam(p.position, p.endPoint, p.position.z + 0.2f, 8.0f, true, false);
            alpha -= alphaStep;
        }
    }
}
