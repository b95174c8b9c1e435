#pragma once
// The finish line of a race: the player crossing it during a race stops
// the race clock and reports the final time.
#include "gameplay/RaceTriggerBody.h"

class RaceEnd : public RaceTriggerBody {
public:
    RaceEnd();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    void think(float dt) override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;

    std::string startBody;
    float targetTime = -1.0f;
};
