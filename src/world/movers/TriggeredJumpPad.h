#pragma once
// A jump pad that logic switches on and off; it flips back
// "untriggertimer" ms after being fired unless "triggeronce" is set.
#include "world/movers/JumpPad.h"

class TriggeredJumpPad : public JumpPad {
public:
    TriggeredJumpPad();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void onTouch(TouchInfo& info) override;
    void onTriggered(GameBody* activator) override;
    void think(float dt) override;
    void levelStart() override;

    bool starton = false;
    float untriggertimer = 0.0f;
    bool triggeronce = false;
    bool ison = false;
    bool triggered = false;
    float untriggertime = 0.0f;
};
