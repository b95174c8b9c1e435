#include "world/logic/LevelChange.h"

#include <fstream>

#include "console/VariableRegistry.h"
#include "core/DemoManager.h"
#include "core/Game.h"
#include "gameplay/player/Player.h"
#include "world/level/LevelValues.h"

LevelChange::LevelChange()
{
    type = "levelchange";
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> LevelChange::clone() const { return std::make_unique<LevelChange>(); }

void LevelChange::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "leveltarget"))
            leveltarget = value + ".xml";
        else if (sameName(name, "targetspawn"))
            targetspawn = value;
        else if (sameName(name, "iscutscene"))
            iscutscene = readBool(value);
        else if (sameName(name, "cutscene"))
            cutscene = value;
    }
}

void LevelChange::afterTargets()
{
    GameBody::afterTargets();
    startEffect("teleporter");
    kind = 5;
}

void LevelChange::onTouch(TouchInfo& info)
{
    if (!info.other || info.other->kind != 1)
        return;
    Game* game = Game::current();
    if (!game)
        return;
    recordLevelTime();
    if (iscutscene) {
        // The rest of this frame's steps still run: play the scene once.
        if (game->isWorldRunning()) {
            if (DemoManager* demos = game->getDemos())
                demos->noteLevelCompleted();
            game->showCutscene(cutscene);
        }
        return;
    }
    if (!game->isLevelPending()) {
        if (DemoManager* demos = game->getDemos())
            demos->noteLevelCompleted();
        game->requestLevel(leveltarget, targetspawn);
    }
}

void LevelChange::recordLevelTime()
{
    Game* game = Game::current();
    const GameVar* record = findVar("recordleveltimes");
    if (!game || game->isLevelPending() || !record || record->intValue <= 0)
        return;
    std::ofstream out("leveltimes.txt", std::ios::app);
    if (!out)
        return;
    const auto* player = dynamic_cast<const Player*>(game->getPlayer());
    out << game->getCurrentLevel() << " : " << game->getPendingSaveName() << " : "
        << static_cast<long long>(now()) << " : Cash: " << (player ? player->properties.cash : 0) << "\n";
}
