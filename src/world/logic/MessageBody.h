#pragma once
// A zone that shows its "message" on the HUD when the player walks in, and
// fires its targets. Fired by another body it only arms itself, silently.
#include "world/logic/TriggerBody.h"

class MessageBody : public TriggerBody {
public:
    MessageBody();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void onTouch(TouchInfo& info) override;
    void onTriggered(GameBody* activator) override;

    std::string message;
};
