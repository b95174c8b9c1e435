#include "particles/TracerParticleSystem.h"

void TracerParticleSystem::emitAlong(const Vector& from, const Vector& to) { createParticle(from, to); }

void TracerParticleSystem::draw() { drawSegments(0.0f); }
