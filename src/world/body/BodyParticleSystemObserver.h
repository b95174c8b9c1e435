#pragma once
// Links a body to the particle systems that follow it: when one of them ends,
// the body forgets it so it never touches a deleted system.
#include "particles/ParticleSystemObserver.h"

class Body;

class BodyParticleSystemObserver : public ParticleSystemObserver {
public:
    explicit BodyParticleSystemObserver(Body& owner) : body(owner) {}

    // Detaches the finished system from the body.
    void systemFinished(ParticleSystem* system) override;

    Body& getBody() const { return body; }

private:
    Body& body;
};
