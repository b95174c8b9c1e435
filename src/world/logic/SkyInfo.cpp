#include "world/logic/SkyInfo.h"

#include <sstream>

#include "core/Game.h"
#include "render/SkyManager.h"
#include "sound/Music.h"
#include "world/level/LevelValues.h"

SkyInfo::SkyInfo()
{
    type = "skyinfo";
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> SkyInfo::clone() const { return std::make_unique<SkyInfo>(); }

void SkyInfo::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "skies"))
            skies = value;
        else if (sameName(name, "initialsky"))
            initialsky = value;
        else if (sameName(name, "music"))
            music = value;
    }
}

void SkyInfo::afterTargets()
{
    GameBody::afterTargets();
    Game* game = Game::current();
    if (game && game->getMusic() && !music.empty())
        game->getMusic()->setLevelTrack(music);
    SkyManager* manager = game ? game->getSkyManager() : nullptr;
    if (!manager)
        return;
    std::istringstream list(skies);
    std::string sky;
    while (std::getline(list, sky, ','))
        if (!sky.empty())
            manager->loadSkyByShortName(sky);
    if (!initialsky.empty())
        manager->switchSkyByShortName(initialsky);
}
