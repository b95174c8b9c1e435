#pragma once
// The game's widget factory: the toolkit's own classes.
#include "gui/IGUIFactory.h"

class DefaultGUIFactory : public IGUIFactory {
public:
    std::unique_ptr<Button> createButton() override;
    std::unique_ptr<Label> createLabel() override;
    std::unique_ptr<GUIClock> createClock() override;
    std::unique_ptr<Frame> createFrame() override;
    std::unique_ptr<KeyBindBox> createKeyBindBox() override;
    std::unique_ptr<Picture> createPicture() override;
    std::unique_ptr<Slider> createSlider() override;
    std::unique_ptr<TextArea> createTextArea() override;
    std::unique_ptr<ValueBox> createValueBox() override;
    std::unique_ptr<TransFrame> createTransFrame() override;
};
