#pragma once
// A zone that fades the sky over to "sky" when the player walks through.
#include "world/logic/TriggerBody.h"

class SkyTransition : public TriggerBody {
public:
    SkyTransition();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void onTouch(TouchInfo& info) override;

    std::string sky;
};
