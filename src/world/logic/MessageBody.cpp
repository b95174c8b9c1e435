#include "world/logic/MessageBody.h"

#include "world/level/LevelValues.h"
#include "world/logic/MessengerBody.h"

MessageBody::MessageBody() { type = "messagebody"; }

std::unique_ptr<Body> MessageBody::clone() const { return std::make_unique<MessageBody>(); }

void MessageBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    TriggerBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs)
        if (sameName(name, "message"))
            message = value;
}

void MessageBody::onTouch(TouchInfo& info)
{
    if (triggered || !touchedByPlayer(info))
        return;
    activate();
    MessengerBody::showOnHud(message);
    triggerTargets();
}

void MessageBody::onTriggered(GameBody*) { activate(); }
