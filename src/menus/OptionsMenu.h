#pragma once
// Opens the video, sound and controls screens.
#include "menus/MenuFrame.h"

class OptionsMenu : public MenuFrame {
public:
    static constexpr const char* screenName = "options";

    OptionsMenu();
};
