#pragma once
// A developer's frame holding one of every widget, opened with the console
// command "guidbg", so each can be tried by hand and screenshotted. Every
// action any of them fires is shown in its status line and logged as
// "GUI action: <command> from <name>".
#include "gui/Frame.h"

class Game;
class Label;

class WidgetGallery : public Frame {
public:
    static constexpr const char* componentName = "widgetgallery";

    WidgetGallery();

    // Shows the gallery (building it on first use) centred in the window, in
    // front and focused, and gives the GUI the input.
    static WidgetGallery* open(Game& game);
    // The status line under the widgets.
    void showAction(const std::string& command, const GUIComponent* source);
    // The slider's value, read out beside it.
    void showSliderValue(float value);

private:
    Label* status = nullptr;
    Label* sliderValue = nullptr;
};
