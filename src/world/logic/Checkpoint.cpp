#include "world/logic/Checkpoint.h"

#include "core/Game.h"
#include "gameplay/GameplaySingleton.h"
#include "render/GameHUD.h"

Checkpoint::Checkpoint() { type = "checkpoint"; }

std::unique_ptr<Body> Checkpoint::clone() const { return std::make_unique<Checkpoint>(); }

void Checkpoint::onTouch(TouchInfo& info)
{
    if (triggered || !touchedByPlayer(info))
        return;
    activate();
    checkpointAction();
}

void Checkpoint::onTriggered(GameBody*) { checkpointAction(); }

void Checkpoint::checkpointAction()
{
    spawnText(pos, "Checkpoint", 12, true, 0.75f, "vera");
    if (GameHUD* hud = GameplaySingleton::get().hud)
        hud->showMessage("Saving Checkpoint...");
    if (Game* game = Game::current())
        game->requestCheckpointSave();
}
