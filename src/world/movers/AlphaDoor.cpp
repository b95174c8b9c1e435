#include "world/movers/AlphaDoor.h"

#include <tinyxml.h>

#include "world/level/LevelValues.h"

AlphaDoor::AlphaDoor()
{
    type = "alphadoor";
    thinks = true;
    thinkInterval = 100.0f;
    showdamage = false;
    takedamage = false;
    normaliseTexCoords = false;
}

std::unique_ptr<Body> AlphaDoor::clone() const { return std::make_unique<AlphaDoor>(); }

void AlphaDoor::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "timeopen"))
            timeopen = readFloat(value);
        else if (sameName(name, "startopen"))
            startopen = readBool(value);
        else if (sameName(name, "triggeronce"))
            triggeronce = readBool(value);
    }
}

void AlphaDoor::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    triggered = readBool(attributeText(element, "triggered"));
    isopen = readBool(attributeText(element, "isopen"));
    timeopen = readFloat(attributeText(element, "timeopen"));
    reverttime = readFloat(attributeText(element, "reverttime"));
}

void AlphaDoor::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("triggered", writeBool(triggered));
    element->SetAttribute("isopen", writeBool(isopen));
    element->SetAttribute("timeopen", writeFloat(timeopen));
    element->SetAttribute("reverttime", writeFloat(reverttime));
}

void AlphaDoor::levelStart()
{
    GameBody::levelStart();
    isopen = startopen;
    takeState();
}

void AlphaDoor::restored()
{
    GameBody::restored();
    takeState();
}

void AlphaDoor::onTriggered(GameBody*)
{
    reverttime = now() + timeopen;
    if (triggered)
        return;
    isopen = !isopen;
    triggered = true;
    takeState();
}

void AlphaDoor::think(float dt)
{
    GameBody::think(dt);
    if (triggered && reverttime < now() && !triggeronce) {
        triggered = false;
        isopen = !isopen;
        takeState();
    }
}

void AlphaDoor::takeState()
{
    visible = !isopen;
    solid = !isopen;
}
