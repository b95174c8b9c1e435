#include "world/logic/TriggerBody.h"

#include <tinyxml.h>

#include "world/level/LevelValues.h"

TriggerBody::TriggerBody()
{
    showdamage = false;
    thinks = true;
    thinkInterval = 200.0f;
    setTraceThrough(true);
}

void TriggerBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "untriggertimer"))
            untriggerTimer = readFloat(value);
        else if (sameName(name, "triggeronce"))
            triggerOnce = readBool(value);
    }
}

void TriggerBody::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    triggered = readBool(attributeText(element, "triggered"));
    untriggerTime = readFloat(attributeText(element, "untriggertime"));
}

void TriggerBody::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("triggered", writeBool(triggered));
    element->SetAttribute("untriggertime", writeFloat(untriggerTime));
}

void TriggerBody::think(float dt)
{
    GameBody::think(dt);
    triggerThink();
}

void TriggerBody::activate()
{
    triggered = true;
    untriggerTime = now() + untriggerTimer;
}

bool TriggerBody::touchedByPlayer(const TouchInfo& info) { return info.other && info.other->kind == 1; }

bool TriggerBody::triggerThink()
{
    if (triggered && !triggerOnce && untriggerTime < now()) {
        triggered = false;
        return true;
    }
    return false;
}
