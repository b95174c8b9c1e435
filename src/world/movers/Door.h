#pragma once
// A sliding door: fired, it moves by "openoffset" at "speed" units per
// second, waits "timeopen" ms and slides back (never, with timeopen 0). It
// pushes without being pushed and slides through clips.
#include "world/gamebody/GameBody.h"
#include "world/movers/SlideMotion.h"

class Door : public GameBody, public SlideMotion {
public:
    Door();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void onTriggered(GameBody* activator) override;
    void think(float dt) override;
    // Slows the last step of a slide so it lands on the end point.
    void step(float dt) override;
    void afterTargets() override;
    bool collidesWith(Body* other) override;
};
