#include "input/GameInput.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <ostream>

#include "console/CommandRegistry.h"
#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/DemoManager.h"
#include "core/Game.h"
#include "input/InputManager.h"
#include "render/IRenderer.h"

namespace {
std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

const RGBAColour headingColour(255, 205, 22, 255);

GameInput* bindingOwner()
{
    Game* g = Game::current();
    return g ? g->getGameInput() : nullptr;
}
}

void GameInput::init()
{
    // Button 2 is the middle button in SDL; players know the right one as MOUSE2.
    mouseNames = {{1, "MOUSE1"}, {3, "MOUSE2"}, {2, "MOUSE3"}, {5, "MWHEELDOWN"}, {4, "MWHEELUP"}};
    sensitivity = getVar("sensitivity");

    // The commands find the bindings through the Game, so a test's or a later
    // game's input never runs a stale object's code.
    registerCommand("bind a command to a key", "bind", [] {
        if (GameInput* in = bindingOwner())
            in->bindCommand(CommandRegistry::instance().arguments);
    });
    registerCommand("unbind commands from a key", "unbind", [] {
        if (GameInput* in = bindingOwner())
            in->unbindCommand(CommandRegistry::instance().arguments);
    });
    registerCommand("remove every key binding", "unbindall", [] {
        if (GameInput* in = bindingOwner())
            in->unbindAll();
    });
    registerCommand("list all the key bindings", "listbinds", [] {
        if (GameInput* in = bindingOwner())
            in->listBindings();
    });
}

bool GameInput::demoPlaying()
{
    const Game* g = Game::current();
    return g && g->getDemos() && g->getDemos()->isPlaying();
}

void GameInput::deactivate()
{
    heldKeys.clear();
    if (demoPlaying())
        return;
    if (Game* g = Game::current(); g && g->getDemos())
        g->getDemos()->noteRelease();
    releaseAll();
}

void GameInput::step(Body*, float) {}
void GameInput::update(Body*) {}
void GameInput::releaseAll() { latched.clear(); }

void GameInput::mouseMove(float, float, float dx, float dy)
{
    stickAims = false;
    const float scale = sensitivity ? sensitivity->floatValue : 1.0f;
    mouseDX = scale * dx;
    mouseDY = scale * dy;
    mouseX += mouseDX;
    mouseY += mouseDY;
    float width = 0.0f;
    float height = 0.0f;
    if (Game* g = Game::current()) {
        width = static_cast<float>(g->getRenderer()->getWidth());
        height = static_cast<float>(g->getRenderer()->getHeight());
    }
    mouseY = std::clamp(mouseY, 0.0f, height);
    mouseX = std::clamp(mouseX, 0.0f, width);
}

void GameInput::mouseDown(float, float, int button) { keyDown(-1, -1, mouseName(button)); }
void GameInput::mouseUp(float, float, int button) { keyUp(-1, -1, mouseName(button)); }

void GameInput::keyDown(int, int, const std::string& keyName)
{
    const std::string key = lowerCase(keyName);
    if (!heldKeys.insert(key).second)
        return;
    auto it = bindings.find(key);
    if (it == bindings.end() || it->second.empty())
        return;
    // While a demo plays only keys that leave the world alone still work.
    if (demoPlaying() && !worksDuringDemo(it->second))
        return;
    // A toggled control: the press starts it, the next press stops it. The
    // commands run are plain presses and releases, so demos need no setting.
    if (isToggled(it->second)) {
        if (latched.erase(it->second) > 0) {
            for (const std::string& command : releaseCommands(it->second))
                runText(command);
            return;
        }
        latched.insert(it->second);
    }
    runText(it->second);
}

bool GameInput::isToggled(const std::string& text)
{
    static const std::pair<const char*, const char*> toggles[] = {
        {"+attack", "firetoggle"}, {"+fire 1", "hooktoggle"}, {"+grapple", "hooktoggle"}};
    for (const auto& [command, var] : toggles)
        if (text == command) {
            const GameVar* on = findVar(var);
            return on && on->intValue != 0;
        }
    return false;
}

bool GameInput::worksDuringDemo(const std::string& text)
{
    static const char* const allowed[] = {"screenshot", "stopdemo", "pause", "quit"};
    for (const char* command : allowed)
        if (text == command)
            return true;
    return false;
}

void GameInput::keyUp(int, int, const std::string& keyName)
{
    const std::string key = lowerCase(keyName);
    heldKeys.erase(key);
    if (demoPlaying())
        return;
    auto it = bindings.find(key);
    // A toggled control's presses do it all.
    if (it == bindings.end() || latched.count(it->second) > 0 || isToggled(it->second))
        return;
    for (const std::string& command : releaseCommands(it->second))
        runText(command);
}

std::vector<std::string> GameInput::releaseCommands(const std::string& text)
{
    std::vector<std::string> out;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find(';', start);
        if (end == std::string::npos)
            end = text.size();
        std::string segment = text.substr(start, end - start);
        if (!segment.empty() && segment[0] == '+') {
            segment[0] = '-';
            out.push_back(segment);
        }
        start = end + 1;
    }
    return out;
}

void GameInput::runText(const std::string& text)
{
    if (Game* g = Game::current(); g && g->getDemos())
        g->getDemos()->noteCommand(text);
    CommandRegistry& registry = CommandRegistry::instance();
    registry.pendingText += text;
    registry.executePending();
}

std::string GameInput::mouseName(int button) const
{
    auto it = mouseNames.find(button);
    return it == mouseNames.end() ? std::string() : it->second;
}

std::string GameInput::getBinding(const std::string& key) const
{
    auto it = bindings.find(lowerCase(key));
    return it == bindings.end() ? std::string() : it->second;
}

void GameInput::setBinding(const std::string& key, const std::string& command)
{
    const std::string k = lowerCase(key);
    if (k == "unbound")
        return;
    bindings[k] = lowerCase(command);
}

void GameInput::bindCommand(const std::vector<std::string>& args)
{
    if (args.empty()) {
        conPrint("Usage: bind <key> <command>");
        conPrint("e.g.: bind p pause");
        return;
    }
    const std::string key = lowerCase(args[0]);
    if (args.size() == 1) {
        const std::string command = getBinding(key);
        conPrint(command.empty() ? key + " is unbound" : key + " is " + command);
        return;
    }
    std::string command = args[1];
    for (size_t i = 2; i < args.size(); ++i)
        command += " " + args[i];
    setBinding(key, command);
}

void GameInput::unbindAll()
{
    // Held controls are let go first: their releases would find no binding.
    releaseAll();
    heldKeys.clear();
    bindings.clear();
}

int GameInput::addNewerDefaults(int version)
{
    static const struct {
        int version;
        const char* key;
        const char* command;
    } added[] = {
        {1, "f1", "controlshelp"},
    };
    int newest = version;
    for (const auto& control : added) {
        newest = std::max(newest, control.version);
        if (control.version > version && getBinding(control.key).empty() && findKeyFor(control.command) == "unbound")
            setBinding(control.key, control.command);
    }
    return newest;
}

void GameInput::unbindCommand(const std::vector<std::string>& args)
{
    if (args.empty()) {
        conPrint("Usage: unbind <key>");
        conPrint("e.g.: unbind p");
        return;
    }
    bindings[lowerCase(args[0])] = "";
}

void GameInput::listBindings() const
{
    conPrintColoured("    Key Bindings", headingColour);
    for (const auto& [key, command] : bindings)
        if (!command.empty())
            conPrint("    " + key + " is " + command);
}

std::string GameInput::findKeyFor(const std::string& command) const
{
    for (const auto& [key, bound] : bindings)
        if (bound == command)
            return key;
    return "unbound";
}

void GameInput::writeBindings(std::ostream& stream) const
{
    // The section starts from nothing, so a player who unbound every key
    // keeps that choice instead of getting the default controls back.
    stream << "\n//key bindings\n\nunbindall\n";
    for (const auto& [key, command] : bindings)
        stream << "bind " << key << " " << command << "\n";
    stream << "\n";
}

void GameInput::setAimStick(int component, float deflection)
{
    if (component < 0 || component > 1)
        return;
    aimStick[component] = std::clamp(deflection, -1.0f, 1.0f);
    const float length = std::hypot(aimStick[0], aimStick[1]);
    if (length <= InputManager::joyDeadZone()) {
        aimPeak = 0.0f;
        return;
    }
    // A stick springing back reports its axes one at a time and shrinking;
    // only a firm lean turns the aim, so letting go keeps the last direction
    // as a mouse cursor stays put.
    if (length < aimPeak * 0.8f)
        return;
    aimPeak = std::max(aimPeak, length);
    aimDirection = Vector(aimStick[0] / length, -aimStick[1] / length, 0.0f);
    stickAims = true;
}

bool GameInput::getAimStick(Vector& direction) const
{
    if (stickAims)
        direction = aimDirection;
    return stickAims;
}
