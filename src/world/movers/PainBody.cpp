#include "world/movers/PainBody.h"

#include <tinyxml.h>

#include "world/level/LevelValues.h"

PainBody::PainBody()
{
    type = "painbody";
    thinks = true;
    thinkInterval = 200.0f;
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> PainBody::clone() const { return std::make_unique<PainBody>(); }

void PainBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "on"))
            on = readBool(value);
        else if (sameName(name, "pain"))
            pain = readInt(value);
        else if (sameName(name, "reverttimer"))
            reverttimer = readFloat(value);
    }
}

void PainBody::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    readToggleState(element);
}

void PainBody::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    writeToggleState(element);
}

void PainBody::onTouch(TouchInfo& info)
{
    if (!on)
        return;
    auto* victim = dynamic_cast<GameBody*>(info.other);
    if (victim && victim->nextpaintime < now()) {
        victim->takeDamage(pain, -1);
        victim->nextpaintime = now() + painInterval;
    }
}

void PainBody::onTriggered(GameBody*) { toggle(now()); }

void PainBody::think(float dt)
{
    GameBody::think(dt);
    revert(now());
}
