#pragma once
// The frame every menu screen is built on: it keeps itself centred between
// the logo and the task bar whatever the window size, helps lay out
// captions and buttons, and opens other screens by name.
#include <memory>
#include <string>

#include "gui/Frame.h"

class Button;
class Label;

class MenuFrame : public Frame {
public:
    // Space the main interface keeps for its logo (top) and task bar (bottom).
    static constexpr float logoBand = 150.0f;
    static constexpr float taskbarHeight = 44.0f;
    static constexpr const char* openSound = "data/sounds/gui/SineHear.wav";

    MenuFrame(const std::string& title, const std::string& name, float w, float h);

    // Re-centres for the new window, then passes the size on.
    void update(float w, float h) override;
    // Called by showScreen just before the frame appears, so a screen can
    // read what it shows afresh (saves, video mode, bindings). Nothing here.
    virtual void onShow() {}

    // Makes the screen of that name visible, brings it to the front and
    // focuses it. False when there is no such screen.
    // The other screens beside it are hidden; closing it shows again the one
    // it replaced.
    static bool showScreen(const std::string& name);
    void onClose() override;

protected:
    // A button at (relX, relY) from the frame's top-left, reporting to the
    // frame's own listeners.
    Button* addButton(const std::string& text, const std::string& command, float relX, float relY, float w,
                      float h, bool opensScreen);
    Label* addLabel(const std::string& text, float relX, float relY, float w, float h);
    // Hands every action of the widget to the frame's listeners.
    void forwardActions(GUIComponent& widget);

private:
    // Hides the sibling screens; the name of the topmost shown one, or "".
    std::string hideOtherScreens();
    std::string openedFrom;
};
