#include "gui/DefaultGUIFactory.h"

#include "gui/Button.h"
#include "gui/GUIClock.h"
#include "gui/Frame.h"
#include "gui/KeyBindBox.h"
#include "gui/Label.h"
#include "gui/Picture.h"
#include "gui/Slider.h"
#include "gui/TextArea.h"
#include "gui/TransFrame.h"
#include "gui/ValueBox.h"

std::unique_ptr<Button> DefaultGUIFactory::createButton() { return std::make_unique<Button>(); }
std::unique_ptr<Label> DefaultGUIFactory::createLabel() { return std::make_unique<Label>(); }
std::unique_ptr<GUIClock> DefaultGUIFactory::createClock() { return std::make_unique<GUIClock>(); }
std::unique_ptr<Frame> DefaultGUIFactory::createFrame() { return std::make_unique<Frame>(); }
std::unique_ptr<KeyBindBox> DefaultGUIFactory::createKeyBindBox() { return std::make_unique<KeyBindBox>(); }
std::unique_ptr<Picture> DefaultGUIFactory::createPicture() { return std::make_unique<Picture>(); }
std::unique_ptr<Slider> DefaultGUIFactory::createSlider() { return std::make_unique<Slider>(); }
std::unique_ptr<TextArea> DefaultGUIFactory::createTextArea() { return std::make_unique<TextArea>(); }
std::unique_ptr<ValueBox> DefaultGUIFactory::createValueBox() { return std::make_unique<ValueBox>(); }
std::unique_ptr<TransFrame> DefaultGUIFactory::createTransFrame() { return std::make_unique<TransFrame>(); }
