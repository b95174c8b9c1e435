#include "gui/KeyBindBox.h"

#include "core/Game.h"
#include "gui/GUIManager.h"
#include "input/GameInput.h"

namespace {
GameInput* bindings()
{
    Game* g = Game::current();
    return g ? g->getGameInput() : nullptr;
}
}

KeyBindBox::KeyBindBox()
{
    command = "bindupdate";
    setBounds(64.0f, 64.0f, 140.0f, 24.0f);
}

void KeyBindBox::setBindCommand(const std::string& c)
{
    bindCommand = c;
    refresh();
}

std::vector<std::string> KeyBindBox::boundKeys() const
{
    std::vector<std::string> keys;
    const GameInput* input = bindings();
    if (!input || bindCommand.empty())
        return keys;
    for (const auto& [key, text] : input->getBindings()) {
        if (text != bindCommand)
            continue;
        keys.push_back(key);
        if (keys.size() == maxKeys)
            break;
    }
    return keys;
}

void KeyBindBox::refresh()
{
    const std::vector<std::string> keys = boundKeys();
    shown = keys.empty() ? "unbound" : keys[0];
    if (keys.size() > 1)
        shown += ", " + keys[1];
}

void KeyBindBox::arm()
{
    waiting = true;
    playSound(clickSound);
}

void KeyBindBox::setFocused(bool f)
{
    Button::setFocused(f);
    if (!f)
        waiting = false;
}

void KeyBindBox::clicked(float, float, int button)
{
    if (button == 1)
        arm();
}

void KeyBindBox::mouseDown(float px, float py, int button)
{
    if (!waiting) {
        Button::mouseDown(px, py, button);
        return;
    }
    GameInput* input = bindings();
    const std::string name = input ? input->mouseName(button) : std::string();
    if (!name.empty())
        bind(name);
}

void KeyBindBox::keyDown(int symbol, int character, const std::string& keyName)
{
    if (!waiting) {
        if (keyName == "return" || keyName == "kp_enter")
            arm();
        else
            Button::keyDown(symbol, character, keyName);
        return;
    }
    if (keyName == "ESCAPE") {
        waiting = false;
        return;
    }
    // A key held since before the box was armed repeats; it is no choice.
    const Game* g = Game::current();
    if (g && g->getGUIManager() && g->getGUIManager()->isKeyRepeat())
        return;
    if (!keyName.empty())
        bind(keyName);
}

void KeyBindBox::bind(const std::string& keyName)
{
    waiting = false;
    GameInput* input = bindings();
    if (!input || bindCommand.empty())
        return;
    const std::vector<std::string> keys = boundKeys();
    if (keys.size() >= maxKeys)
        for (const std::string& old : keys)
            input->setBinding(old, "");
    input->setBinding(keyName, bindCommand);
    playSound("data/sounds/gui/MouseSquare.wav");
    refresh();
    fireAction(command, this);
}

void KeyBindBox::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    drawPanel(renderer);
    drawLabel(renderer, waiting ? "press a key..." : shown);
    drawChildren(renderer);
}
