#include "menus/OptionsMenu.h"

namespace {
constexpr float buttonWidth = 200.0f;
constexpr float frameWidth = 240.0f;

class OptionsListener : public ActionListener {
public:
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "video" || command == "sound" || command == "controls" || command == "accessibility" ||
            command == "controlshelp")
            MenuFrame::showScreen(command);
    }
};
}

OptionsMenu::OptionsMenu() : MenuFrame("Options Menu", screenName, frameWidth, 264.0f)
{
    const float left = (frameWidth - buttonWidth) / 2.0f;
    addButton("Video", "video", left, 46.0f, buttonWidth, 32.0f, true);
    addButton("Sound", "sound", left, 88.0f, buttonWidth, 32.0f, true);
    addButton("Controls", "controls", left, 130.0f, buttonWidth, 32.0f, true);
    addButton("Accessibility", "accessibility", left, 172.0f, buttonWidth, 32.0f, true);
    addButton("Controls Help", "controlshelp", left, 214.0f, buttonWidth, 32.0f, true);
    addActionListener(std::make_unique<OptionsListener>());
}
