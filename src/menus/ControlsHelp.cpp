#include "menus/ControlsHelp.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <tuple>

#include "core/Game.h"
#include "gui/GUIManager.h"
#include "gui/Label.h"
#include "input/GameInput.h"
#include "input/InputManager.h"

namespace {
constexpr float frameWidth = 620.0f;
constexpr float labelWidth = 140.0f;
constexpr float keyWidth = 140.0f;
constexpr float mouseWidth = 100.0f;
constexpr float padWidth = frameWidth - 40.0f - labelWidth - keyWidth - mouseWidth;
constexpr float headingsY = 38.0f;
constexpr float rowsY = 60.0f;
constexpr float rowHeight = 20.0f;
// A family of keys (the weapon numbers) shows them all; one action a few.
constexpr size_t mostKeys = 3;
constexpr size_t mostFamilyKeys = 10;

bool startsWith(const std::string& text, const std::string& prefix) { return text.rfind(prefix, 0) == 0; }

std::string upper(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

std::string padName(const std::string& key)
{
    // "joy<pad>_<input>"
    const size_t cut = key.find('_');
    if (cut == std::string::npos)
        return key;
    const int pad = std::atoi(key.c_str() + 3);
    const std::string input = key.substr(cut + 1);
    std::string name;
    if (startsWith(input, "button")) {
        static const char* const buttons[] = {"A", "B", "X", "Y", "LB", "RB", "Back", "Start", "L3", "R3"};
        const int button = std::atoi(input.c_str() + 6);
        name = button >= 1 && button <= 10 ? buttons[button - 1] : "Button " + input.substr(6);
    } else if (startsWith(input, "hat")) {
        name = "D-pad " + input.substr(input.rfind('_') + 1);
    } else if (startsWith(input, "axis")) {
        const int axis = std::atoi(input.c_str() + 4);
        const bool plus = input.size() > 5 && input.compare(input.size() - 5, 5, "_plus") == 0;
        switch (axis) {
        case 1: name = plus ? "Left stick right" : "Left stick left"; break;
        case 2: name = plus ? "Left stick down" : "Left stick up"; break;
        case 3: name = plus ? "Left trigger" : "Left trigger back"; break;
        case 4: name = plus ? "Right stick right" : "Right stick left"; break;
        case 5: name = plus ? "Right stick down" : "Right stick up"; break;
        case 6: name = plus ? "Right trigger" : "Right trigger back"; break;
        default: name = "Axis " + std::to_string(axis) + (plus ? " +" : " -");
        }
    } else {
        name = input;
    }
    return pad > 1 ? "Pad " + std::to_string(pad) + " " + name : name;
}
}

const std::vector<ControlsHelp::Action>& ControlsHelp::actions()
{
    static const std::vector<Action> all = {
        {"Move left", "+moveleft"},
        {"Move right", "+moveright"},
        {"Up / jump", "+moveup"},
        {"Down", "+movedown"},
        {"Fire", "+attack"},
        {"Grappling hook", "+fire 1"},
        {"Fire swarm", "+fire 10"},
        {"Next weapon", "nextweap"},
        {"Previous weapon", "prevweap"},
        {"Choose weapon", "useitem "},
        {"Upgrades", "+showupgrades"},
        {"Map", "+showmap"},
        {"Pause", "pause"},
        {"Quick save", "savegame quicksave"},
        {"Quick load", "loadgame quicksave"},
        {"Screenshot", "screenshot"},
        {"Controls help", "controlshelp"},
    };
    return all;
}

ControlsHelp::ControlsHelp()
    : MenuFrame("Controls", screenName, frameWidth,
                rowsY + rowHeight * static_cast<float>(actions().size()) + 40.0f)
{
    const float keyX = 20.0f + labelWidth;
    const float mouseX = keyX + keyWidth;
    const float padX = mouseX + mouseWidth;
    for (auto [text, x, w] : {std::tuple{"Keyboard", keyX, keyWidth}, std::tuple{"Mouse", mouseX, mouseWidth},
                              std::tuple{"Gamepad", padX, padWidth}})
        addLabel(text, x, headingsY, w, rowHeight)->setShadow(true);
    float y = rowsY;
    for (const Action& action : actions()) {
        addLabel(action.label, 20.0f, y, labelWidth, rowHeight);
        cells.push_back({addLabel("", keyX, y, keyWidth, rowHeight), addLabel("", mouseX, y, mouseWidth, rowHeight),
                         addLabel("", padX, y, padWidth, rowHeight)});
        y += rowHeight;
    }
    addLabel("Escape: menu      ` (backquote): console      F1 or Escape closes this", 20.0f, y + 8.0f,
             frameWidth - 40.0f, rowHeight);
    refresh();
}

ControlsHelp::Device ControlsHelp::deviceOf(const std::string& key)
{
    if (startsWith(key, "joy"))
        return gamepad;
    const std::string name = upper(key);
    if (startsWith(name, "MOUSE") || startsWith(name, "MWHEEL"))
        return mouse;
    return keyboard;
}

std::string ControlsHelp::friendlyName(const std::string& key)
{
    static const std::pair<const char*, const char*> mouseNames[] = {
        {"MOUSE1", "Left button"}, {"MOUSE2", "Right button"}, {"MOUSE3", "Middle button"},
        {"MWHEELUP", "Wheel up"},  {"MWHEELDOWN", "Wheel down"}};
    for (const auto& [raw, name] : mouseNames)
        if (upper(key) == raw)
            return name;
    switch (deviceOf(key)) {
    case gamepad:
        return padName(key);
    case mouse:
        return "Button " + key.substr(5);
    default:
        return upper(key);
    }
}

std::string ControlsHelp::describe(const GameInput& input, const Action& action, Device device)
{
    const std::string command = action.command;
    const bool family = !command.empty() && command.back() == ' ';
    std::string text;
    size_t count = 0;
    for (const auto& [key, binding] : input.getBindings()) {
        if (deviceOf(key) != device || !(family ? startsWith(binding, command) : binding == command))
            continue;
        if (++count > (family ? mostFamilyKeys : mostKeys))
            break;
        text += (text.empty() ? "" : family ? " " : ", ") + friendlyName(key);
    }
    return text.empty() ? "none" : text;
}

const std::string& ControlsHelp::cell(size_t row, Device device) const
{
    return cells.at(row)[static_cast<size_t>(device)]->getText();
}

void ControlsHelp::refresh()
{
    Game* game = Game::current();
    const GameInput* input = game ? game->getGameInput() : nullptr;
    for (size_t row = 0; row < cells.size(); ++row)
        for (Device device : {keyboard, mouse, gamepad})
            cells[row][device]->setText(input ? describe(*input, actions()[row], device) : "none");
}

void ControlsHelp::draw(IRenderer& renderer)
{
    // Bindings change from the console and the Controls menu while it shows.
    if (isEnabled())
        refresh();
    MenuFrame::draw(renderer);
}

void ControlsHelp::keyDown(int symbol, int character, const std::string& keyName)
{
    if (keyName == "f1" && isShown()) {
        close();
        return;
    }
    MenuFrame::keyDown(symbol, character, keyName);
}

void ControlsHelp::onShow() { refresh(); }

void ControlsHelp::onClose()
{
    if (!overGame) {
        MenuFrame::onClose();
        return;
    }
    overGame = false;
    MenuFrame::onClose();
    if (Game* game = Game::current())
        game->getInputManager().hideGUI();
}

void ControlsHelp::toggle(Game& game)
{
    GUIManager* gui = game.getGUIManager();
    auto* help = gui ? dynamic_cast<ControlsHelp*>(gui->findComponent(screenName)) : nullptr;
    if (!help)
        return;
    if (gui->isVisible() && help->isShown()) {
        help->close();
        return;
    }
    const bool fromGame = !gui->isVisible() && game.isLevelLoaded();
    game.getInputManager().showGUI();
    showScreen(screenName);
    help->overGame = fromGame;
}
