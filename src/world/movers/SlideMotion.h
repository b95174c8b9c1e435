#pragma once
// The back-and-forth slide of a sliding door, kept apart from the door so
// other bodies (the ball of death) move the same way: out by an offset at a
// speed, a rest, and back. The body being moved is passed to each call.
#include <map>
#include <string>

#include "world/geometry/Vector.h"

class Body;
class TiXmlElement;

class SlideMotion {
public:
    // Closer than this to an end point counts as there.
    static constexpr float arrivedDistance = 0.000001f;

    // "timeopen", "openoffset" and "speed" from a level's attributes.
    void readSlideAttributes(const std::map<std::string, std::string>& attrs);
    void readSlideState(TiXmlElement* element);
    void writeSlideState(TiXmlElement* element);
    // The start point is where the body stands, unless a saved game said.
    void rememberStart(const Body& body);
    // Starts out towards startpoint + offset; ignored while opening or open.
    void beginOpening(Body& body);
    // Arrivals and the timed return; `now` is the level time. True when the
    // body came back to its start point during this call.
    bool slideThink(Body& body, float now);
    // Slows the last step of a slide so it lands on the end point.
    void slideStep(Body& body, float dt) const;

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
    // Slides back even with timeopen 0 (movers that shuttle for ever).
    bool alwaysReturns = false;

private:
    // vel := the offset direction times speed (negated when closing).
    void setMotion(Body& body, bool opening);
    // Clamps pos so it never passes `end`; true once it is there.
    bool clampTowards(Body& body, const Vector& end) const;
};
