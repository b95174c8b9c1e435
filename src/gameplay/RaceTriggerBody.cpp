#include "gameplay/RaceTriggerBody.h"

#include "gameplay/DefaultGameplay.h"
#include "gameplay/GameplaySingleton.h"
#include "world/level/LevelValues.h"

const std::string* RaceTriggerBody::findAttribute(const std::map<std::string, std::string>& attrs,
                                                  const std::string& name)
{
    for (const auto& [key, value] : attrs)
        if (sameName(key, name))
            return &value;
    return nullptr;
}

DefaultGameplay* RaceTriggerBody::gameplay() { return GameplaySingleton::get().gameplay; }

bool RaceTriggerBody::checkersThink()
{
    const bool rearmed = triggerThink();
    if (triggered && texture != triggeredImage)
        setTexture(triggeredImage);
    else if (rearmed)
        setTexture(idleImage);
    return rearmed;
}
