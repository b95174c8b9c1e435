#include "world/logic/ParticleSystemBody.h"

#include <tinyxml.h>

#include "particles/ParticleSystem.h"
#include "world/level/LevelValues.h"

ParticleSystemBody::ParticleSystemBody()
{
    type = "particlesystembody";
    showdamage = false;
    thinks = true;
    thinkInterval = 200.0f;
    setTraceThrough(true);
}

std::unique_ptr<Body> ParticleSystemBody::clone() const { return std::make_unique<ParticleSystemBody>(); }

void ParticleSystemBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "on"))
            on = readBool(value);
        else if (sameName(name, "reverttimer"))
            reverttimer = readFloat(value);
        else if (sameName(name, "systemid"))
            systemid = value;
    }
}

void ParticleSystemBody::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    on = readBool(attributeText(element, "on"));
    readToggleState(element);
}

void ParticleSystemBody::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("on", writeBool(on));
    writeToggleState(element);
}

void ParticleSystemBody::onTriggered(GameBody*)
{
    if (toggle(now()))
        applyState();
}

void ParticleSystemBody::think(float dt)
{
    GameBody::think(dt);
    if (revert(now()))
        applyState();
}

void ParticleSystemBody::afterTargets()
{
    GameBody::afterTargets();
    if (on)
        start();
}

void ParticleSystemBody::start()
{
    stop();
    if (ParticleSystem* system = startEffect(systemid))
        attachParticleSystem(system);
}

void ParticleSystemBody::stop()
{
    // The body's observer forgets systems that end on their own.
    const std::vector<ParticleSystem*> running = attachedSystems;
    for (ParticleSystem* system : running) {
        system->stop(10.0f);
        system->removeObserver(&getParticleObserver());
        detachParticleSystem(system);
    }
}

void ParticleSystemBody::applyState()
{
    if (on)
        start();
    else
        stop();
}
