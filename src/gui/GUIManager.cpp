#include "gui/GUIManager.h"

#include "core/Game.h"
#include "input/InputManager.h"

void GUIManager::keyDown(int, int, const std::string& keyName)
{
    if (keyName != "ESCAPE")
        return;
    if (Game* g = Game::current())
        g->getInputManager().hideGUI();
}
