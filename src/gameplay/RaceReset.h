#pragma once
// Calls the race off: the player touching it stops the race clock and sends
// every race block home.
#include "gameplay/RaceTriggerBody.h"

class RaceReset : public RaceTriggerBody {
public:
    RaceReset();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    void think(float dt) override;
};
