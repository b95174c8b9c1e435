#include "gameplay/RaceCheckpoint.h"

#include "gameplay/DefaultGameplay.h"

RaceCheckpoint::RaceCheckpoint() { type = "racecheckpoint"; }

std::unique_ptr<Body> RaceCheckpoint::clone() const { return std::make_unique<RaceCheckpoint>(); }

void RaceCheckpoint::onTouch(TouchInfo& info)
{
    if (triggered || !touchedByPlayer(info))
        return;
    activate();
    if (DefaultGameplay* g = gameplay())
        g->checkpointReached();
}

void RaceCheckpoint::think(float) { triggerThink(); }
