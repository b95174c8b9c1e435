#pragma once
// A wall switch the player bumps: it clicks, fires its targets and shows its
// "triggeredimage" until it re-arms, then its "untriggeredimage" again.
#include "world/logic/TriggerBody.h"

class Switch : public TriggerBody {
public:
    Switch();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void onTouch(TouchInfo& info) override;
    void think(float dt) override;

    std::string untriggeredImage;
    std::string triggeredImage;
};
