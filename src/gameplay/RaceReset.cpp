#include "gameplay/RaceReset.h"

#include "gameplay/DefaultGameplay.h"

RaceReset::RaceReset() { type = "racereset"; }

std::unique_ptr<Body> RaceReset::clone() const { return std::make_unique<RaceReset>(); }

void RaceReset::onTouch(TouchInfo& info)
{
    if (triggered || !touchedByPlayer(info))
        return;
    activate();
    if (DefaultGameplay* g = gameplay())
        g->resetRace();
}

void RaceReset::think(float) { checkersThink(); }
