#include "gameplay/RaceEnd.h"

#include <cstdlib>

#include "gameplay/DefaultGameplay.h"

RaceEnd::RaceEnd() { type = "raceend"; }

std::unique_ptr<Body> RaceEnd::clone() const { return std::make_unique<RaceEnd>(); }

void RaceEnd::readAttributes(const std::map<std::string, std::string>& attrs)
{
    RaceTriggerBody::readAttributes(attrs);
    if (const std::string* v = findAttribute(attrs, "startbody"))
        startBody = *v;
    if (const std::string* v = findAttribute(attrs, "targettime"))
        targetTime = static_cast<float>(std::atof(v->c_str()));
}

void RaceEnd::onTouch(TouchInfo& info)
{
    if (triggered || !touchedByPlayer(info))
        return;
    DefaultGameplay* g = gameplay();
    // Crossing the line outside a race means nothing.
    if (!g || !g->isRaceActive())
        return;
    activate();
    g->finishRace();
}

void RaceEnd::think(float) { checkersThink(); }
