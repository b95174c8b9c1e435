#pragma once
// Moves whatever touches it to its first target (usually a named point),
// optionally leaving with "exitvelocity"; without a target it does nothing.
#include "world/gamebody/GameBody.h"

class Teleporter : public GameBody {
public:
    Teleporter();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void onTouch(TouchInfo& info) override;
    void afterTargets() override;

    bool changevelocity = false;
    Vector exitvelocity;
};
