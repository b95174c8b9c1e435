#pragma once
// Launches whatever touches it with "speed" (or adds "speed" to its motion
// when "additive"), with a whoosh and a rising glow.
#include "world/gamebody/GameBody.h"

class JumpPad : public GameBody {
public:
    JumpPad();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void onTouch(TouchInfo& info) override;
    void afterTargets() override;

    Vector speed;
    bool additive = false;

protected:
    // The launch itself, shared with the switchable pad.
    void launch(Body& other);
};
