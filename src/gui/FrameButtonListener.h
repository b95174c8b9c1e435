#pragma once
// Closes its frame when the frame's close button reports "closeframe".
#include "gui/ActionListener.h"

class Frame;

class FrameButtonListener : public ActionListener {
public:
    explicit FrameButtonListener(Frame& frame) : frame(frame) {}

    void actionPerformed(const std::string& command, GUIComponent* source) override;

private:
    Frame& frame;
};
