#pragma once
// The start line of a race: the player crossing it starts (or restarts)
// the race clock. "endbody" names the matching end piece.
#include "gameplay/RaceTriggerBody.h"

class RaceStart : public RaceTriggerBody {
public:
    RaceStart();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    void think(float dt) override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;

    std::string endBody;
};
