// Whether the world waits for the console or the menus to close.
#include "core/Game.h"

#include "console/Console.h"
#include "gui/GUIManager.h"

bool Game::isWorldHeld() const
{
    return (console && console->isVisible()) || (guiManager && guiManager->isVisible());
}
