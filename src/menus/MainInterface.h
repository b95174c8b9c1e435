#pragma once
// The GUI's whole screen: the backdrop with the game's logo and bouncing
// sprites, a task bar ("Main Menu", "Save Game" during a level, "Options",
// "Resume Game") and every menu screen and the cut-scene frame as its
// children. It shows itself while the GUI has the input and hides while
// the game has it.
#include <memory>
#include <vector>

#include "gui/TransFrame.h"

class BouncingSmileys;
class CutSceneFrame;

class MainInterface : public TransFrame {
public:
    static constexpr const char* componentName = "maininterface";
    static constexpr const char* logoImage = "data/gui/brindlequaylogo.png";
    static constexpr const char* logoGlowImage = "data/gui/brindlequaylogo_glow.png";

    MainInterface();
    ~MainInterface() override;

    // Covers the window; the screens centre themselves.
    void update(float w, float h) override;
    // Backdrop, sprites, logo, then the screens and the task bar.
    void draw(IRenderer& renderer) override;
    // Shown exactly while the input goes to the GUI.
    void toggle() override;

    CutSceneFrame& getCutScene() { return *cutScene; }

private:
    void layoutTaskbar();

    std::unique_ptr<BouncingSmileys> smileys;
    CutSceneFrame* cutScene = nullptr;
    GUIComponent* taskbar = nullptr;
    // In their order on the bar (a click reorders the bar's children).
    std::vector<GUIComponent*> taskButtons;
    // "Save Game", shown only while a level is in play.
    GUIComponent* saveButton = nullptr;
};
