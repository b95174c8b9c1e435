#include "menus/MainMenu.h"

#include "core/Game.h"

namespace {
constexpr float buttonWidth = 200.0f;
constexpr float buttonHeight = 32.0f;
constexpr float frameWidth = 240.0f;

class MyListener : public ActionListener {
public:
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "newgame")
            MenuFrame::showScreen("newadventure");
        else if (command == "continuegame")
            MenuFrame::showScreen("loadgame");
        else if (command == "options")
            MenuFrame::showScreen("options");
        else if (command == "exit") {
            if (Game* game = Game::current())
                game->setQuit(true);
        }
    }
};
}

MainMenu::MainMenu() : MenuFrame("Main Menu", screenName, frameWidth, 220.0f)
{
    const float left = (frameWidth - buttonWidth) / 2.0f;
    addButton("New Game", "newgame", left, 46.0f, buttonWidth, buttonHeight, true);
    addButton("Load Game", "continuegame", left, 88.0f, buttonWidth, buttonHeight, true);
    addButton("Options", "options", left, 130.0f, buttonWidth, buttonHeight, true);
    addButton("Exit Game", "exit", left, 172.0f, buttonWidth, buttonHeight, false);
    addActionListener(std::make_unique<MyListener>());
}
