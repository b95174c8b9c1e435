#pragma once
// Shows its "message" on the HUD whenever another body fires it (a trigger,
// a wave, a dying enemy); touching it does nothing.
#include "world/logic/TriggerBody.h"

class MessengerBody : public TriggerBody {
public:
    MessengerBody();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void onTriggered(GameBody* activator) override;

    // The HUD's message line, when a HUD runs.
    static void showOnHud(const std::string& text);

    std::string message;
};
