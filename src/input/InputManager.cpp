#include "input/InputManager.h"

#include <SDL.h>
#include <tinyxml.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "console/Console.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
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

// Hat bits in SDL's order with the names bindings use.
constexpr std::pair<int, const char*> hatDirections[] = {
    {SDL_HAT_UP, "up"}, {SDL_HAT_RIGHT, "right"}, {SDL_HAT_DOWN, "down"}, {SDL_HAT_LEFT, "left"}};
constexpr float defaultDeadZone = 0.25f;
constexpr float fullDeflection = 32767.0f;

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
        showGUI();
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
        currentTarget = returnTarget();
    }
}

std::string InputManager::returnTarget() const
{
    if (previousTarget != "console" && getTarget(previousTarget))
        return previousTarget;
    // Never back into the hidden console: whatever is on screen takes the keys.
    Game* g = Game::current();
    const bool playing = g && g->isLevelLoaded() && g->isWorldRunning() && !(gui && gui->isVisible());
    return playing && getTarget("game") ? "game" : "gui";
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
    // While the console is open it keeps the keys; what asked for them
    // (a level loaded from the console, say) gets them when it closes.
    if (name != "console" && currentTarget == "console" && console && console->isVisible()) {
        previousTarget = name;
        return;
    }
    InputTarget* old = getCurrent();
    previousTarget = currentTarget;
    currentTarget = name;
    if (old)
        old->deactivate();
    if (InputTarget* now = getCurrent())
        now->activate();
}

void InputManager::showGUI()
{
    if (!gui || gui->isVisible())
        return;
    Game* g = Game::current();
    // The menus draw over a still of the game.
    if (g && g->getRenderer())
        g->getRenderer()->grabScreen();
    gui->setVisible(true);
    setTarget("gui");
    std::printf("Show GUI\n");
    if (g)
        g->setWorldRunning(false);
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

std::string InputManager::joyButtonName(int joystick, int button)
{
    return "joy" + std::to_string(joystick + 1) + "_button" + std::to_string(button + 1);
}

std::string InputManager::joyHatName(int joystick, int hat, int direction)
{
    std::string name = "joy" + std::to_string(joystick + 1) + "_hat";
    if (hat > 0)
        name += std::to_string(hat + 1);
    for (const auto& [bit, word] : hatDirections)
        if (bit == direction)
            return name + "_" + word;
    return name;
}

std::string InputManager::joyAxisName(int joystick, int axis, int sign)
{
    return "joy" + std::to_string(joystick + 1) + "_axis" + std::to_string(axis + 1) +
           (sign < 0 ? "_minus" : "_plus");
}

bool InputManager::joystickEvent(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_JOYBUTTONDOWN:
    case SDL_JOYBUTTONUP:
        joyButton(event.jbutton.which, event.jbutton.button, event.type == SDL_JOYBUTTONDOWN);
        return true;
    case SDL_JOYHATMOTION:
        joyHat(event.jhat.which, event.jhat.hat, event.jhat.value);
        return true;
    case SDL_JOYAXISMOTION:
        joyAxis(event.jaxis.which, event.jaxis.axis, event.jaxis.value);
        return true;
    default:
        return false;
    }
}

void InputManager::openJoysticks()
{
    if (SDL_InitSubSystem(SDL_INIT_JOYSTICK) != 0) {
        std::printf("No joystick support: %s\n", SDL_GetError());
        return;
    }
    SDL_JoystickEventState(SDL_ENABLE);
    const int count = SDL_NumJoysticks();
    for (int i = 0; i < count; ++i) {
        SDL_Joystick* joystick = SDL_JoystickOpen(i);
        if (!joystick) {
            std::printf("Could not open joystick %d: %s\n", i + 1, SDL_GetError());
            continue;
        }
        joysticks.push_back(joystick);
        const char* name = SDL_JoystickName(i);
        std::printf("Joystick %d: %s (%d buttons, %d axes, %d hats)\n", i + 1, name ? name : "unnamed",
                    SDL_JoystickNumButtons(joystick), SDL_JoystickNumAxes(joystick),
                    SDL_JoystickNumHats(joystick));
    }
}

void InputManager::joyButton(int joystick, int button, bool pressed)
{
    joyInput(joyButtonName(joystick, button), pressed);
}

void InputManager::joyHat(int joystick, int hat, int value)
{
    int& old = hatStates[{joystick, hat}];
    // A diagonal holds two directions; releases go first so a roll from
    // left to right never holds both.
    for (bool pressing : {false, true})
        for (const auto& [bit, word] : hatDirections) {
            const bool was = (old & bit) != 0;
            const bool now = (value & bit) != 0;
            if (was != now && now == pressing)
                joyInput(joyHatName(joystick, hat, bit), now);
        }
    old = value;
}

float InputManager::joyDeadZone()
{
    const GameVar* deadZone = findVar("joy_deadzone");
    return deadZone ? std::clamp(deadZone->floatValue, 0.0f, 0.99f) : defaultDeadZone;
}

void InputManager::joyAxis(int joystick, int axis, int value)
{
    const float deflection = std::max(static_cast<float>(value) / fullDeflection, -1.0f);
    // The first pad's aim stick also aims directly, while still having
    // bindable directions.
    if (joystick == 0 && game) {
        for (int component : {0, 1}) {
            const GameVar* aimAxis = findVar(component == 0 ? "joy_aimx" : "joy_aimy");
            if (aimAxis && aimAxis->intValue == axis + 1)
                game->setAimStick(component, deflection);
        }
    }
    const int direction = std::fabs(deflection) <= joyDeadZone() ? 0 : (deflection < 0.0f ? -1 : 1);
    int& old = axisStates[{joystick, axis}];
    if (direction == old)
        return;
    if (old != 0)
        joyInput(joyAxisName(joystick, axis, old), false);
    if (direction != 0)
        joyInput(joyAxisName(joystick, axis, direction), true);
    old = direction;
}

void InputManager::joyInput(const std::string& name, bool pressed)
{
    // The console and the menus read typed characters; a pad has none.
    if (currentTarget != "game" || !game)
        return;
    if (pressed)
        game->keyDown(-1, -1, name);
    else
        game->keyUp(-1, -1, name);
}
