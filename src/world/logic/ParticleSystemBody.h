#pragma once
// A switchable particle effect placed in the level (steam vents, sparks):
// burns while "on"; firing it flips it, and with "reverttimer" it flips back
// that many ms later.
#include <string>

#include "world/gamebody/GameBody.h"
#include "world/logic/TimedToggle.h"

class ParticleSystemBody : public GameBody, public TimedToggle {
public:
    ParticleSystemBody();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void onTriggered(GameBody* activator) override;
    void think(float dt) override;
    void afterTargets() override;
    // Starts the effect at the body and keeps hold of it; called when it is
    // switched on and after targets when "on".
    virtual void start();
    void stop();

    bool isRunning() const { return !attachedSystems.empty(); }

    std::string systemid;

private:
    void applyState();
};
