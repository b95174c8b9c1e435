#pragma once
// The first screen: start a new adventure, load a saved game, change the
// options or leave the game.
#include "menus/MenuFrame.h"

class MainMenu : public MenuFrame {
public:
    static constexpr const char* screenName = "mainmenu";

    MainMenu();
};
