#pragma once
// Something that wants to know when a particle system ends: the particle
// manager tells every observer just before it deletes a finished system, so
// holders of a system pointer can drop it in time.

class ParticleSystem;

class ParticleSystemObserver {
public:
    virtual ~ParticleSystemObserver() = default;
    // Called by the particle manager once, just before `system` is deleted.
    virtual void systemFinished(ParticleSystem* system) = 0;
};
