#include "gameplay/RaceStart.h"

#include "gameplay/DefaultGameplay.h"

RaceStart::RaceStart() { type = "racestart"; }

std::unique_ptr<Body> RaceStart::clone() const { return std::make_unique<RaceStart>(); }

void RaceStart::readAttributes(const std::map<std::string, std::string>& attrs)
{
    RaceTriggerBody::readAttributes(attrs);
    if (const std::string* v = findAttribute(attrs, "endbody"))
        endBody = *v;
}

void RaceStart::onTouch(TouchInfo& info)
{
    if (triggered || !touchedByPlayer(info))
        return;
    activate();
    if (DefaultGameplay* g = gameplay())
        g->startRace();
}

void RaceStart::think(float) { checkersThink(); }
