#include "gui/FrameButtonListener.h"

#include "gui/Frame.h"

void FrameButtonListener::actionPerformed(const std::string& command, GUIComponent*)
{
    if (command == "closeframe")
        frame.close();
}
