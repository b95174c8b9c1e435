#include "world/body/BodyParticleSystemObserver.h"

#include "world/body/Body.h"

void BodyParticleSystemObserver::systemFinished(ParticleSystem* system)
{
    body.detachParticleSystem(system);
}
