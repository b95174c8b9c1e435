// The Game's side of the music: which screen is up decides the track.
#include "core/Game.h"
#include "gui/GUIComponent.h"
#include "gui/GUIManager.h"
#include "menus/CutSceneFrame.h"
#include "sound/ISound.h"
#include "sound/Music.h"

void Game::updateMusic()
{
    if (!sound || !guiManager)
        return;
    const GUIComponent* scene = guiManager->findComponent(CutSceneFrame::componentName);
    const bool inCutscene = guiManager->isVisible() && scene && scene->isEnabled();
    music->update(*sound, inCutscene, levelLoaded);
}
