#include "gui/WidgetGallery.h"

#include <algorithm>
#include <cstdio>

#include "console/Console.h"
#include "core/Game.h"
#include "gui/ActionListener.h"
#include "gui/Button.h"
#include "gui/GUIClock.h"
#include "gui/GUIManager.h"
#include "gui/ImageButton.h"
#include "gui/KeyBindBox.h"
#include "gui/Label.h"
#include "gui/ListBox.h"
#include "gui/Picture.h"
#include "gui/Slider.h"
#include "gui/SliderListener.h"
#include "gui/TextArea.h"
#include "gui/TextBox.h"
#include "gui/TextContainer.h"
#include "gui/TextView.h"
#include "gui/TransFrame.h"
#include "gui/ValueBox.h"
#include "input/InputManager.h"

namespace {
constexpr float galleryWidth = 620.0f;
constexpr float galleryHeight = 460.0f;
constexpr float labelX = 10.0f;
constexpr float widgetX = 110.0f;
constexpr float widgetWidth = 160.0f;
constexpr float rightX = 300.0f;
constexpr float rightWidth = 305.0f;

const char* const sampleText =
    "Every widget of the toolkit sits in this frame. Drag the title bar to move it, and press Escape or the "
    "close button to put it away.\nThe list, this text area and the text view scroll with the mouse wheel, "
    "the arrow keys and page up and page down; the scroll bars can be dragged.\nA key-binding box waits for "
    "the next key or mouse button after a click; Escape gives up.\nThe text box takes letters, digits and "
    "spaces; backspace, delete, home, end and the arrows edit.";

class GalleryListener : public ActionListener, public SliderListener {
public:
    explicit GalleryListener(WidgetGallery& gallery) : gallery(gallery) {}
    void actionPerformed(const std::string& command, GUIComponent* source) override
    {
        gallery.showAction(command, source);
    }
    void valueChanged(GUIComponent*, float value) override { gallery.showSliderValue(value); }

private:
    WidgetGallery& gallery;
};

// Hands a widget's actions on to the gallery's listener.
class Forward : public ActionListener {
public:
    explicit Forward(GalleryListener& to) : to(to) {}
    void actionPerformed(const std::string& command, GUIComponent* source) override
    {
        to.actionPerformed(command, source);
    }

private:
    GalleryListener& to;
};

template <class T>
T* place(GUIComponent& parent, std::unique_ptr<T> widget, float relX, float relY, float w, float h,
         const std::string& name)
{
    widget->setBounds(relX, relY, w, h);
    widget->setName(name);
    return parent.addRelative(std::move(widget));
}

void caption(GUIComponent& parent, const std::string& text, float relY)
{
    auto label = std::make_unique<Label>();
    label->setText(text);
    place(parent, std::move(label), labelX, relY, widgetX - labelX - 6.0f, 24.0f, "");
}
}

WidgetGallery::WidgetGallery()
{
    setTitle("Widget Gallery");
    setName(componentName);
    setBounds(0.0f, galleryHeight, galleryWidth, galleryHeight);
    auto listener = std::make_unique<GalleryListener>(*this);
    GalleryListener* hears = listener.get();
    // The frame owns the listener; every widget reports to it.
    addActionListener(std::move(listener));
    auto report = [hears](GUIComponent* widget) { widget->addActionListener(std::make_unique<Forward>(*hears)); };

    float row = 40.0f;
    caption(*this, "Button", row);
    auto button = std::make_unique<Button>();
    button->setText("Click me");
    button->setCommand("gallerybutton");
    report(place(*this, std::move(button), widgetX, row, widgetWidth, 24.0f, "button"));

    row += 32.0f;
    caption(*this, "Image button", row);
    auto image = std::make_unique<ImageButton>();
    image->setCommand("galleryimage");
    report(place(*this, std::move(image), widgetX, row, 128.0f, 32.0f, "imagebutton"));

    row += 40.0f;
    caption(*this, "Text box", row);
    auto text = std::make_unique<TextBox>();
    text->setText("save1");
    text->setCommand("gallerytext");
    report(place(*this, std::move(text), widgetX, row, widgetWidth, 24.0f, "textbox"));

    row += 32.0f;
    caption(*this, "Value box", row);
    auto values = std::make_unique<ValueBox>();
    values->setValues({"Low", "Medium", "High", "Ultra"});
    report(place(*this, std::move(values), widgetX, row, widgetWidth, 24.0f, "valuebox"));

    row += 32.0f;
    caption(*this, "Fire key", row);
    auto keys = std::make_unique<KeyBindBox>();
    keys->setBindCommand("+attack");
    report(place(*this, std::move(keys), widgetX, row, widgetWidth, 24.0f, "keybindbox"));

    row += 34.0f;
    caption(*this, "Slider", row);
    auto slider = std::make_unique<Slider>();
    slider->setListener(hears);
    place(*this, std::move(slider), widgetX, row + 2.0f, widgetWidth, 20.0f, "slider");
    auto readout = std::make_unique<Label>();
    sliderValue = place(*this, std::move(readout), widgetX + widgetWidth + 2.0f, row, 26.0f, 24.0f, "slidervalue");
    showSliderValue(0.0f);

    row += 32.0f;
    caption(*this, "Clock", row);
    place(*this, std::make_unique<GUIClock>(), widgetX, row, widgetWidth, 28.0f, "clock");

    row += 36.0f;
    caption(*this, "Picture", row);
    place(*this, std::make_unique<Picture>(), widgetX, row, 128.0f, 32.0f, "picture");

    row += 42.0f;
    caption(*this, "Panel", row);
    auto panel = std::make_unique<TransFrame>();
    panel->setFillColour(RGBAColour(20.0f, 60.0f, 140.0f, 150.0f));
    panel->setBorder(true);
    TransFrame* p = place(*this, std::move(panel), widgetX, row, widgetWidth, 60.0f, "transframe");
    auto panelText = std::make_unique<TextContainer>();
    panelText->setText("A see-through panel holding a text container.");
    place(*p, std::move(panelText), 0.0f, 0.0f, widgetWidth, 60.0f, "textcontainer");

    auto list = std::make_unique<ListBox>();
    list->addColumn("Level", 150);
    list->addColumn("Time", 80);
    for (int i = 1; i <= 14; ++i)
        list->addItem("Level " + std::to_string(i) + "\t" + std::to_string(i) + ":0" + std::to_string(i % 10));
    report(place(*this, std::move(list), rightX, 40.0f, rightWidth, 130.0f, "listbox"));

    auto area = std::make_unique<TextArea>();
    place(*this, std::move(area), rightX, 180.0f, rightWidth, 110.0f, "textarea")->setText(sampleText);

    auto view = std::make_unique<TextView>();
    TextView* v = place(*this, std::move(view), rightX, 300.0f, rightWidth, 90.0f, "textview");
    for (int i = 1; i <= 12; ++i)
        v->addLine("Text view line " + std::to_string(i));

    auto statusLine = std::make_unique<Label>();
    statusLine->setText("Last action: none");
    status = place(*this, std::move(statusLine), labelX, galleryHeight - 34.0f, galleryWidth - 20.0f, 24.0f,
                   "status");
}

void WidgetGallery::showAction(const std::string& command, const GUIComponent* source)
{
    const std::string from = source ? source->getName() : std::string();
    std::string line = "Last action: " + command + " from " + from;
    if (const auto* list = dynamic_cast<const ListBox*>(source))
        line += " (row " + std::to_string(list->getSelectedIndex()) + ")";
    else if (const auto* box = dynamic_cast<const ValueBox*>(source))
        line += " (" + box->getValue() + ")";
    else if (const auto* text = dynamic_cast<const TextBox*>(source))
        line += " (" + text->getText() + ")";
    else if (const auto* keys = dynamic_cast<const KeyBindBox*>(source))
        line += " (" + keys->getShown() + ")";
    status->setText(line);
    std::printf("GUI action: %s\n", line.substr(13).c_str());
    std::fflush(stdout);
}

void WidgetGallery::showSliderValue(float value)
{
    const std::string shown = std::to_string(static_cast<int>(value + 0.5f));
    if (shown == sliderValue->getText())
        return;
    sliderValue->setText(shown);
    std::printf("GUI slider: %s\n", shown.c_str());
    std::fflush(stdout);
}

WidgetGallery* WidgetGallery::open(Game& game)
{
    GUIManager* gui = game.getGUIManager();
    if (!gui)
        return nullptr;
    auto* gallery = dynamic_cast<WidgetGallery*>(gui->findComponent(componentName));
    if (!gallery)
        gallery = gui->getRoot().add(std::make_unique<WidgetGallery>());
    const float w = static_cast<float>(gui->getScreenWidth());
    const float h = static_cast<float>(gui->getScreenHeight());
    gallery->setEnabled(true);
    gallery->setPosition(std::max(0.0f, (w - galleryWidth) / 2.0f), std::min(h, (h + galleryHeight) / 2.0f));
    gui->setFocus(gallery);
    gui->getRoot().bringToFront(gallery);
    gui->setVisible(true);
    if (Console* console = game.getConsole()) {
        console->setVisible(false);
        console->clearInput();
    }
    if (game.getInputManager().getCurrentTarget() != "gui")
        game.getInputManager().setTarget("gui");
    if (game.isLevelLoaded())
        game.setWorldRunning(false);
    std::printf("Widget gallery open\n");
    return gallery;
}
