#include "particles/RailParticleSystem.h"

void RailParticleSystem::emitAlong(const Vector& from, const Vector& to) { createParticle(from, to); }

void RailParticleSystem::particleCreated(Particle& particle) { particle.scroll.set(0.0f, 3.0f); }

void RailParticleSystem::draw() { drawSegments(64.0f); }
