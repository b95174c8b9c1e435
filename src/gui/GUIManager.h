#pragma once
// The input target "gui": menus, option screens and cut-scene frames get the
// keyboard and mouse through it while it is visible. For now it only knows
// whether it is shown and answers Escape by returning to the game; the widget
// tree, the cursor and drawing build on this class.
#include <string>

#include "input/InputTarget.h"

class GUIManager : public InputTarget {
public:
    GUIManager() { uses2D = true; }

    // Escape at the root hides the GUI (InputManager::hideGUI).
    void keyDown(int symbol, int character, const std::string& keyName) override;

    bool isVisible() const { return visible; }
    void setVisible(bool v) { visible = v; }
    // The window size in pixels, told after every video-mode change.
    void setScreenSize(int w, int h)
    {
        screenWidth = w;
        screenHeight = h;
    }
    int getScreenWidth() const { return screenWidth; }
    int getScreenHeight() const { return screenHeight; }

private:
    bool visible = true;
    int screenWidth = 0;
    int screenHeight = 0;
};
