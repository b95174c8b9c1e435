#pragma once
// Shared pieces of the particle tests: a definition with no randomness, a
// renderer that records the quads and colours particles send it, and an
// observer that counts the finish notices.
#include <memory>
#include <vector>

#include "particles/ParticleSystemObserver.h"
#include "particles/ParticleSystemParams.h"
#include "render/NullRenderer.h"

inline std::unique_ptr<ParticleSystemParams> steadyParams(int flowRate, int maxParticles, float particleLife)
{
    auto p = std::make_unique<ParticleSystemParams>();
    p->id = "steady";
    p->flowRate = flowRate;
    p->maxParticles = maxParticles;
    p->particleLifeTime = particleLife;
    p->colour.set(255, 255, 255, 255);
    p->dimension.set(4, 4);
    p->endDimension.set(4, 4);
    return p;
}

class RecordingRenderer : public NullRenderer {
public:
    void setColour(float r, float g, float b, float a) override
    {
        (void)r, (void)g, (void)b;
        alphas.push_back(a);
    }
    void drawCentredQuad(float, float, float, float, float, bool) override { ++quads; }
    void beginQuads() override { ++batches; }

    std::vector<float> alphas;
    int quads = 0;
    int batches = 0;
};

struct CountingObserver : ParticleSystemObserver {
    void systemFinished(ParticleSystem*) override { ++calls; }
    int calls = 0;
};
