#pragma once
// A checkpoint of a race: reports the race time so far when the player
// passes it during a race.
#include "gameplay/RaceTriggerBody.h"

class RaceCheckpoint : public RaceTriggerBody {
public:
    RaceCheckpoint();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    void think(float dt) override;
};
