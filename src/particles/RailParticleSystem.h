#pragma once
// A railgun trail: a beam from the emitter to the end point whose texture
// repeats every 64 units, so long shots keep their detail.
#include "particles/ParticleSystem.h"

class RailParticleSystem : public ParticleSystem {
public:
    void draw() override;
    // One particle spanning from -> to.
    void emitAlong(const Vector& from, const Vector& to) override;
    void particleCreated(Particle& particle) override;
};
