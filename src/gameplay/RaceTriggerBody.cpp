#include "gameplay/RaceTriggerBody.h"

#include <tinyxml.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>

#include "gameplay/DefaultGameplay.h"
#include "gameplay/GameplaySingleton.h"

RaceTriggerBody::RaceTriggerBody()
{
    showdamage = false;
    thinks = true;
    thinkInterval = 200.0f;
    setTraceThrough(true);
}

const std::string* RaceTriggerBody::findAttribute(const std::map<std::string, std::string>& attrs,
                                                  const std::string& name)
{
    for (const auto& [key, value] : attrs) {
        if (key.size() != name.size())
            continue;
        bool same = true;
        for (size_t i = 0; i < key.size() && same; ++i)
            same = std::tolower(static_cast<unsigned char>(key[i])) == name[i];
        if (same)
            return &value;
    }
    return nullptr;
}

void RaceTriggerBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    if (const std::string* v = findAttribute(attrs, "untriggertimer"))
        untriggerTimer = static_cast<float>(std::atof(v->c_str()));
    if (const std::string* v = findAttribute(attrs, "triggeronce"))
        triggerOnce = *v == "true";
}

void RaceTriggerBody::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    const char* t = element->Attribute("triggered");
    triggered = t && std::string(t) == "true";
    const char* u = element->Attribute("untriggertime");
    untriggerTime = u ? static_cast<float>(std::atof(u)) : 0.0f;
}

void RaceTriggerBody::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("triggered", triggered ? "true" : "false");
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%f", untriggerTime);
    element->SetAttribute("untriggertime", buffer);
}

void RaceTriggerBody::activate()
{
    triggered = true;
    untriggerTime = now() + untriggerTimer;
}

bool RaceTriggerBody::touchedByPlayer(const TouchInfo& info) { return info.other && info.other->kind == 1; }

DefaultGameplay* RaceTriggerBody::gameplay() { return GameplaySingleton::get().gameplay; }

bool RaceTriggerBody::triggerThink()
{
    if (triggered && !triggerOnce && now() > untriggerTime) {
        triggered = false;
        return true;
    }
    return false;
}

bool RaceTriggerBody::checkersThink()
{
    const bool rearmed = triggerThink();
    if (triggered && texture != triggeredImage)
        setTexture(triggeredImage);
    else if (rearmed)
        setTexture(idleImage);
    return rearmed;
}
