#pragma once
// The goal of a block-pushing race: the race finishes once every block named
// in "blocks" has been pushed into it. When it re-arms, the delivered blocks
// go back home so the course can be run again.
#include <map>
#include <vector>

#include "gameplay/RaceTriggerBody.h"

class RaceBlock;

class RaceEndBlock : public RaceTriggerBody {
public:
    RaceEndBlock();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    void think(float dt) override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;

    std::string startBody;
    float targetTime = -1.0f;
    // Block id -> delivered; every id of "blocks" starts undelivered.
    std::map<std::string, bool> deliveries;
    std::vector<RaceBlock*> deliveredBlocks;
};
