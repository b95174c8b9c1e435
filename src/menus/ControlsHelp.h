#pragma once
// The controls overlay: what each action is bound to right now, on the
// keyboard, the mouse and a gamepad. Opened by the command "controlshelp"
// (F1 by default) over the game, or from the Options menu; F1 or Escape
// closes it. It reads the bindings as it draws, so a key bound in the
// console or the Controls menu shows at once.
#include <array>
#include <string>
#include <vector>

#include "menus/MenuFrame.h"

class Game;
class GameInput;
class Label;

class ControlsHelp : public MenuFrame {
public:
    static constexpr const char* screenName = "controlshelp";

    struct Action {
        const char* label;
        // The command, or a prefix ending in a space for a family of them
        // ("useitem " covers every weapon key).
        const char* command;
    };
    static const std::vector<Action>& actions();
    enum Device { keyboard, mouse, gamepad };

    ControlsHelp();

    // The command: opens the overlay over the game, or closes it.
    static void toggle(Game& game);
    // Reads the bindings into the table.
    void refresh();
    void draw(IRenderer& renderer) override;
    void keyDown(int symbol, int character, const std::string& keyName) override;
    void onShow() override;
    void onClose() override;

    // The keys of one device bound to an action, as players name them
    // ("none" when there is none).
    static std::string describe(const GameInput& input, const Action& action, Device device);
    // "MOUSE1" -> "Left button", "joy1_button1" -> "A", "f5" -> "F5".
    static std::string friendlyName(const std::string& key);
    static Device deviceOf(const std::string& key);
    const std::string& cell(size_t row, Device device) const;

private:
    std::vector<std::array<Label*, 3>> cells;
    // Opened by the command over a level: closing returns to the game.
    bool overGame = false;
};
