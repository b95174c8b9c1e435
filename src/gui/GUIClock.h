#pragma once
// Shows how long its timer has run, as minutes and seconds ("03:07"), centred
// in its box. Named apart from the program's time source, Clock.
#include <string>

#include "core/BasicTimer.h"
#include "gui/GUIComponent.h"

class GUIClock : public GUIComponent {
public:
    GUIClock();

    void draw(IRenderer& renderer) override;

    // Starts counting from zero again.
    void restart() { timer.start(); }
    // The elapsed time as "mm:ss" (hours add to the minutes).
    std::string getText();
    BasicTimer& getTimer() { return timer; }

private:
    BasicTimer timer;
};
