#include "input/InputManager.h"

#include <tinyxml.h>

#include <cstdio>
#include <cstdlib>

#include "console/Console.h"
#include "core/Game.h"
#include "gui/GUIManager.h"
#include "input/GameInput.h"
#include "input/InputTarget.h"
#include "render/IRenderer.h"
#include "resources/ResourceManager.h"

namespace {
// SDL modifier bits kept as flags: num lock, caps lock, mode, both controls,
// both shifts, both alts, both metas.
constexpr int modifierBits[] = {12, 13, 14, 6, 7, 0, 1, 8, 9, 10, 11};

IRenderer* currentRenderer()
{
    Game* g = Game::current();
    return g ? g->getRenderer() : nullptr;
}
}

InputManager::InputManager() = default;
InputManager::~InputManager() = default;

Vector* InputManager::getWorldMouse() { return worldMouse.get(); }
Vector* InputManager::getScreenMouse() { return screenMouse.get(); }

void InputManager::setWorldMouse(float x, float y)
{
    worldMouse->x = x;
    worldMouse->y = y;
}

void InputManager::begin2DIfNeeded(bool flag)
{
    if (!flag)
        return;
    if (IRenderer* r = currentRenderer())
        r->begin2D();
}

void InputManager::end2DIfNeeded(bool flag)
{
    if (!flag)
        return;
    if (IRenderer* r = currentRenderer())
        r->end2D();
}

void InputManager::setModifiers(int sdlModState)
{
    for (int bit : modifierBits)
        modifiers[bit] = (sdlModState & (1 << bit)) != 0;
}

bool InputManager::getModifier(int bit) const
{
    auto it = modifiers.find(bit);
    return it != modifiers.end() && it->second;
}

void InputManager::keyEvent(bool pressed, int symbol, int character)
{
    if (!pressed) {
        keyUp(symbol);
        return;
    }
    bool dispatch = true;
    if (symbol == escapeSymbol)
        escapePressed(dispatch);
    if (!dispatch)
        return;
    if (symbol == backquoteSymbol)
        toggleConsole();
    if (InputTarget* target = getCurrent())
        target->keyDown(symbol, character, keyName(symbol));
}

void InputManager::escapePressed(bool& dispatch)
{
    // With the console open, Escape is just a key for the console.
    if (console && console->isVisible())
        return;
    if (!gui)
        return;
    if (!gui->isVisible()) {
        Game* g = Game::current();
        // The menus draw over a still of the game.
        if (g && g->getRenderer())
            g->getRenderer()->grabScreen();
        gui->setVisible(true);
        setTarget("gui");
        std::printf("Show GUI\n");
        if (g)
            g->setWorldRunning(false);
        dispatch = false;
        return;
    }
    // The GUI is showing: it gets the Escape itself (a frame closes, or the
    // root hides the GUI).
    currentTarget = "gui";
}

void InputManager::toggleConsole()
{
    if (!console)
        return;
    if (!console->isVisible()) {
        console->setVisible(true);
        setTarget("console");
    } else {
        console->setVisible(false);
        console->clearInput();
        currentTarget = previousTarget;
    }
}

void InputManager::keyUp(int symbol)
{
    if (InputTarget* target = getCurrent())
        target->keyUp(symbol, symbol, keyName(symbol));
}

void InputManager::mouseMotion(float x, float y, float dx, float dy)
{
    rawX = x;
    rawY = y;
    rawDX = dx;
    rawDY = dy;
    if (IRenderer* r = currentRenderer()) {
        *worldMouse = r->screenToWorld(static_cast<double>(x), static_cast<double>(y), 0.0);
        // Window rows count down from the top; the 2D layer counts up.
        screenMouse->x = x;
        screenMouse->y = static_cast<float>(r->getHeight()) - y;
    }
    InputTarget* target = getCurrent();
    if (!target)
        return;
    target->setWorldMouse(*worldMouse);
    target->setScreenMouse(*screenMouse);
    const bool in2D = target->getUses2D();
    begin2DIfNeeded(in2D);
    target->mouseMove(x, y, dx, dy);
    end2DIfNeeded(in2D);
}

void InputManager::mouseButtonDown(float x, float y, int button)
{
    InputTarget* target = getCurrent();
    if (!target)
        return;
    const bool in2D = target->getUses2D();
    begin2DIfNeeded(in2D);
    target->mouseDown(x, y, button);
    end2DIfNeeded(in2D);
}

void InputManager::mouseButtonUp(float x, float y, int button)
{
    InputTarget* target = getCurrent();
    if (!target)
        return;
    const bool in2D = target->getUses2D();
    begin2DIfNeeded(in2D);
    target->mouseUp(x, y, button);
    end2DIfNeeded(in2D);
}

void InputManager::setTarget(const std::string& name)
{
    InputTarget* old = getCurrent();
    previousTarget = currentTarget;
    currentTarget = name;
    if (old)
        old->deactivate();
    if (InputTarget* now = getCurrent())
        now->activate();
}

void InputManager::hideGUI()
{
    Game* g = Game::current();
    if (!g || !g->isLevelLoaded() || !gui || !gui->isVisible())
        return;
    std::printf("Hide GUI\n");
    gui->setVisible(false);
    g->setWorldRunning(true);
    currentTarget = "game";
}

bool InputManager::loadKeyNames(const std::string& fileName)
{
    TiXmlDocument doc;
    const TiXmlElement* root = nullptr;
    if (ResourceManager::instance().loadDocument(doc, fileName))
        root = doc.FirstChildElement();
    if (!root) {
        std::printf("Could not load keymap file: %s\n", fileName.c_str());
        return false;
    }
    for (const TiXmlElement* e = root->FirstChildElement(); e; e = e->NextSiblingElement()) {
        const char* code = e->Attribute("sdlcode");
        const char* name = e->Attribute("keyname");
        keyNames[std::atoi(code ? code : "")] = name ? name : "";
    }
    return true;
}

std::string InputManager::keyName(int symbol) const
{
    auto it = keyNames.find(symbol);
    return it == keyNames.end() ? std::string() : it->second;
}

void InputManager::setGUI(GUIManager* target)
{
    gui = target;
    addTarget("gui", target);
}

void InputManager::setConsole(Console* target)
{
    console = target;
    addTarget("console", target);
}

void InputManager::setGameInput(GameInput* target)
{
    game = target;
    addTarget("game", target);
}

void InputManager::addTarget(const std::string& name, InputTarget* target)
{
    if (target)
        targets[name] = target;
    else
        targets.erase(name);
}

InputTarget* InputManager::getTarget(const std::string& name) const
{
    auto it = targets.find(name);
    return it == targets.end() ? nullptr : it->second;
}
