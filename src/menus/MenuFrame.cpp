#include "menus/MenuFrame.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/Game.h"
#include "gui/Button.h"
#include "gui/GUIManager.h"
#include "gui/Label.h"

namespace {
// Relays a child's actions to the frame, whose listener knows the screen.
class ForwardToFrame : public ActionListener {
public:
    explicit ForwardToFrame(GUIComponent& frame) : frame(frame) {}
    void actionPerformed(const std::string& command, GUIComponent* source) override
    {
        frame.fireAction(command, source);
    }

private:
    GUIComponent& frame;
};
}

MenuFrame::MenuFrame(const std::string& title, const std::string& frameName, float w, float h)
{
    setTitle(title);
    setName(frameName);
    setBounds(0.0f, h, w, h);
}

void MenuFrame::update(float w, float h)
{
    // Centred in the band between logo and task bar when it fits there,
    // otherwise in the whole window, never above its top.
    const float left = std::floor((w - width) / 2.0f);
    float top = std::floor(taskbarHeight + (h - logoBand - taskbarHeight + height) / 2.0f);
    if (height > h - logoBand - taskbarHeight)
        top = std::floor((h + height) / 2.0f);
    top = std::min(top, h);
    setPosition(std::max(0.0f, left), top);
    Frame::update(w, h);
}

bool MenuFrame::showScreen(const std::string& screenName)
{
    Game* game = Game::current();
    GUIManager* gui = game ? game->getGUIManager() : nullptr;
    GUIComponent* screen = gui ? gui->findComponent(screenName) : nullptr;
    if (!screen)
        return false;
    if (auto* menu = dynamic_cast<MenuFrame*>(screen)) {
        menu->openedFrom = menu->hideOtherScreens();
        menu->onShow();
    }
    screen->setEnabled(true);
    if (GUIComponent* parent = screen->getParent())
        parent->bringToFront(screen);
    gui->setFocus(screen);
    return true;
}

std::string MenuFrame::hideOtherScreens()
{
    // One screen at a time: the one it replaces is remembered, topmost first.
    std::string shown;
    if (GUIComponent* parent = getParent())
        for (const auto& child : parent->getChildren())
            if (GUIComponent* sibling = child.get();
                sibling != this && sibling->isEnabled() && dynamic_cast<MenuFrame*>(sibling)) {
                if (shown.empty())
                    shown = sibling->getName();
                sibling->setEnabled(false);
            }
    return shown;
}

void MenuFrame::onClose()
{
    // Closing a screen goes back to the one it was opened from.
    const std::string back = std::exchange(openedFrom, std::string());
    Game* game = Game::current();
    GUIManager* gui = game ? game->getGUIManager() : nullptr;
    GUIComponent* screen = back.empty() || !gui ? nullptr : gui->findComponent(back);
    auto* menu = dynamic_cast<MenuFrame*>(screen);
    if (!menu || menu->isEnabled())
        return;
    menu->onShow();
    menu->setEnabled(true);
    if (GUIComponent* parent = menu->getParent())
        parent->bringToFront(menu);
    gui->setFocus(menu);
}

Button* MenuFrame::addButton(const std::string& text, const std::string& command, float relX, float relY,
                             float w, float h, bool opensScreen)
{
    auto button = std::make_unique<Button>();
    button->setBounds(relX, relY, w, h);
    button->setText(text);
    button->setCommand(command);
    // Screens are named after the commands that open them: buttons differ.
    button->setName(command + "button");
    if (opensScreen)
        button->setClickSound(openSound);
    Button* b = addRelative(std::move(button));
    forwardActions(*b);
    return b;
}

Label* MenuFrame::addLabel(const std::string& text, float relX, float relY, float w, float h)
{
    auto label = std::make_unique<Label>();
    label->setBounds(relX, relY, w, h);
    label->setText(text);
    return addRelative(std::move(label));
}

void MenuFrame::forwardActions(GUIComponent& widget)
{
    widget.addActionListener(std::make_unique<ForwardToFrame>(*this));
}
