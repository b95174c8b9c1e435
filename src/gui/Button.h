#pragma once
// A push button: a tinted panel with a centred label. A completed click plays
// its click sound and fires its action command. Text boxes, value boxes and
// key-binding boxes are buttons too.
#include <string>

#include "gui/GUIComponent.h"

class Button : public GUIComponent {
public:
    Button();

    // Panel, bevel, label, children; only while enabled.
    void draw(IRenderer& renderer) override;
    // Plays the click sound, then fires the action command.
    void clicked(float px, float py, int button) override;

    void setText(const std::string& t) { text = t; }
    const std::string& getText() const { return text; }
    void setCommand(const std::string& c) { command = c; }
    const std::string& getCommand() const { return command; }
    void setClickSound(const std::string& s) { clickSound = s; }
    const std::string& getClickSound() const { return clickSound; }

protected:
    // The tinted panel and the raised border shared by every button-like widget.
    void drawPanel(IRenderer& renderer);
    // The label in "vera" 12, white, black while hovered.
    void drawLabel(IRenderer& renderer, const std::string& label);

    std::string text;
    std::string command;
    std::string clickSound = "data/sounds/gui/MouseTick.wav";
};
