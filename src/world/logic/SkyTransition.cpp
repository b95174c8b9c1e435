#include "world/logic/SkyTransition.h"

#include "core/Game.h"
#include "render/SkyManager.h"
#include "world/level/LevelValues.h"

SkyTransition::SkyTransition() { type = "skytransition"; }

std::unique_ptr<Body> SkyTransition::clone() const { return std::make_unique<SkyTransition>(); }

void SkyTransition::readAttributes(const std::map<std::string, std::string>& attrs)
{
    TriggerBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs)
        if (sameName(name, "sky"))
            sky = value;
}

void SkyTransition::onTouch(TouchInfo& info)
{
    if (triggered || !touchedByPlayer(info))
        return;
    activate();
    if (Game* game = Game::current())
        if (SkyManager* skies = game->getSkyManager())
            skies->switchSkyByShortName(sky);
}
