#pragma once
// Makes the standard widgets, each default constructed, so screens can be
// built without naming the concrete classes. DefaultGUIFactory is the one
// the game uses.
#include <memory>

class Button;
class GUIClock;
class Frame;
class KeyBindBox;
class Label;
class Picture;
class Slider;
class TextArea;
class TransFrame;
class ValueBox;

class IGUIFactory {
public:
    virtual ~IGUIFactory() = default;

    virtual std::unique_ptr<Button> createButton() = 0;
    virtual std::unique_ptr<Label> createLabel() = 0;
    virtual std::unique_ptr<GUIClock> createClock() = 0;
    virtual std::unique_ptr<Frame> createFrame() = 0;
    virtual std::unique_ptr<KeyBindBox> createKeyBindBox() = 0;
    virtual std::unique_ptr<Picture> createPicture() = 0;
    virtual std::unique_ptr<Slider> createSlider() = 0;
    virtual std::unique_ptr<TextArea> createTextArea() = 0;
    virtual std::unique_ptr<ValueBox> createValueBox() = 0;
    virtual std::unique_ptr<TransFrame> createTransFrame() = 0;
};
