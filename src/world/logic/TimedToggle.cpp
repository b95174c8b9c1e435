#include "world/logic/TimedToggle.h"

#include <tinyxml.h>

#include "world/level/LevelValues.h"

bool TimedToggle::toggle(float now)
{
    if (wastriggered)
        return false;
    wastriggered = true;
    reverttime = now + reverttimer;
    on = !on;
    return true;
}

bool TimedToggle::revert(float now)
{
    if (!wastriggered || !(reverttime < now) || reverttimer <= 0.0f)
        return false;
    wastriggered = false;
    on = !on;
    return true;
}

void TimedToggle::readToggleState(TiXmlElement* element)
{
    wastriggered = readBool(attributeText(element, "wastriggered"));
    reverttime = readFloat(attributeText(element, "reverttime"));
}

void TimedToggle::writeToggleState(TiXmlElement* element) const
{
    element->SetAttribute("wastriggered", writeBool(wastriggered));
    element->SetAttribute("reverttime", writeFloat(reverttime));
}
