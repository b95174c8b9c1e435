#pragma once
// Opens the video, sound, controls and accessibility screens and the
// controls help.
#include "menus/MenuFrame.h"

class OptionsMenu : public MenuFrame {
public:
    static constexpr const char* screenName = "options";

    OptionsMenu();
};
