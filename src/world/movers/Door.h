#pragma once
// A sliding door: fired, it moves by "openoffset" at "speed" units per
// second, waits "timeopen" ms and slides back (never, with timeopen 0). It
// pushes without being pushed and slides through clips.
#include "world/gamebody/GameBody.h"

class Door : public GameBody {
public:
    // Closer than this to an end point counts as there.
    static constexpr float arrivedDistance = 0.000001f;

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

    Vector startpoint;
    bool startpointSet = false;
    Vector targetpos;
    Vector offset;
    float closetime = 0.0f;
    float timeopen = 0.0f;
    float speed = 0.0f;
    bool isopen = false;
    bool isopening = false;
    bool isclosing = false;
    bool xdirection = false;
    bool ydirection = false;

private:
    // vel := the offset direction times speed (negated when closing).
    void setMotion(bool opening);
    // Clamps pos so it never passes `end`; true once it is there.
    bool clampTowards(const Vector& end);
};
