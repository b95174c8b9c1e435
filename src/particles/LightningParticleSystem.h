#pragma once
// A lightning bolt: a jagged chain of short beams from the emitter to its end
// point, each drawn with one of three bolt textures. It emits only when asked
// and ends when its last segment has faded.
#include "particles/ParticleSystem.h"

class LightningParticleSystem : public ParticleSystem {
public:
    // Chain joints are this far apart along the bolt.
    static constexpr float segmentLength = 32.0f;

    LightningParticleSystem();
    void init() override;
    void draw() override;
    // One particle per started segmentLength of from -> to; inner joints jitter by a unit.
    void emitAlong(const Vector& from, const Vector& to) override;
    void particleCreated(Particle& particle) override;
    void reloadTextures() override;

private:
    int variantTextures[3] = {-1, -1, -1};
};
