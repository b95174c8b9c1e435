#pragma once
// A bullet tracer: one stretched streak from the emitter to the end point.
#include "particles/ParticleSystem.h"

class TracerParticleSystem : public ParticleSystem {
public:
    void draw() override;
    // One particle spanning from -> to.
    void emitAlong(const Vector& from, const Vector& to) override;
};
