#include "world/movers/TriggeredJumpPad.h"

#include <tinyxml.h>

#include "world/level/LevelValues.h"

TriggeredJumpPad::TriggeredJumpPad()
{
    type = "triggeredjumppad";
    thinks = true;
    thinkInterval = 200.0f;
}

std::unique_ptr<Body> TriggeredJumpPad::clone() const { return std::make_unique<TriggeredJumpPad>(); }

void TriggeredJumpPad::readAttributes(const std::map<std::string, std::string>& attrs)
{
    JumpPad::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "starton"))
            starton = readBool(value);
        else if (sameName(name, "untriggertimer"))
            untriggertimer = readFloat(value);
        else if (sameName(name, "triggeronce"))
            triggeronce = readBool(value);
    }
}

void TriggeredJumpPad::readState(TiXmlElement* element)
{
    JumpPad::readState(element);
    if (!element)
        return;
    ison = readBool(attributeText(element, "ison"));
    triggered = readBool(attributeText(element, "triggered"));
    untriggertime = readFloat(attributeText(element, "untriggertime"));
}

void TriggeredJumpPad::writeState(TiXmlElement* element)
{
    JumpPad::writeState(element);
    if (!element)
        return;
    element->SetAttribute("ison", writeBool(ison));
    element->SetAttribute("triggered", writeBool(triggered));
    element->SetAttribute("untriggertime", writeFloat(untriggertime));
}

void TriggeredJumpPad::levelStart()
{
    JumpPad::levelStart();
    ison = starton;
}

void TriggeredJumpPad::onTouch(TouchInfo& info)
{
    if (ison)
        JumpPad::onTouch(info);
}

void TriggeredJumpPad::onTriggered(GameBody*)
{
    if (triggered)
        return;
    triggered = true;
    ison = !ison;
    untriggertime = now() + untriggertimer;
}

void TriggeredJumpPad::think(float dt)
{
    JumpPad::think(dt);
    if (triggered && untriggertime < now() && !triggeronce) {
        triggered = false;
        ison = !ison;
    }
}
