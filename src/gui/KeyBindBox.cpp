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
        if (text != bindCommand || isPadName(key) != pad)
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

bool KeyBindBox::isPadName(const std::string& keyName) { return keyName.rfind("joy", 0) == 0; }

void KeyBindBox::setPad(bool p)
{
    pad = p;
    refresh();
}

void KeyBindBox::clicked(float, float, int button)
{
    // Pad input never reaches the menus: the pad column only shows.
    if (button == 1 && !pad)
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
        if ((keyName == "return" || keyName == "kp_enter") && !pad)
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
    // A full box gives up its own kind of keys; the other column keeps its own.
    if (boundKeys().size() >= maxKeys) {
        std::vector<std::string> old;
        for (const auto& [key, text] : input->getBindings())
            if (text == bindCommand && isPadName(key) == pad)
                old.push_back(key);
        for (const std::string& key : old)
            input->setBinding(key, "");
    }
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
