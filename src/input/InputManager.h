#pragma once
// Routes keyboard and mouse events from the event pump to one of three input
// targets: the GUI, the console or the game. It names keys from
// data/keymaps.xml, tracks modifiers and the mouse in screen and world
// coordinates, and switches targets on Escape (the GUI) and backquote (the
// console). Gamepad buttons, hats and stick directions get key-like names
// ("joy1_button1", "joy1_hat_up", "joy1_axis1_plus") so the game binds them
// like keys. One instance, held by the Game.
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "world/geometry/Vector.h"

class Console;
class GameInput;
class GUIManager;
class InputTarget;
union SDL_Event;
struct _SDL_Joystick;

class InputManager {
public:
    static constexpr int escapeSymbol = 27;
    static constexpr int backquoteSymbol = 96;

    InputManager();
    InputManager(const InputManager&) = delete;
    InputManager& operator=(const InputManager&) = delete;
    virtual ~InputManager();

    // The last mouse position in world coordinates (depth 0) and in 2D screen
    // coordinates (window pixels, origin bottom left).
    virtual Vector* getWorldMouse();
    virtual Vector* getScreenMouse();
    virtual void setWorldMouse(float x, float y);
    // Enter or leave the renderer's 2D mode, only when `flag` is true: the
    // current target's getUses2D() decides.
    virtual void begin2DIfNeeded(bool flag);
    virtual void end2DIfNeeded(bool flag);

    // Event pump entry points.
    void setModifiers(int sdlModState);
    void keyEvent(bool pressed, int symbol, int character);
    void keyUp(int symbol);
    void mouseMotion(float x, float y, float dx, float dy);
    void mouseButtonDown(float x, float y, int button);
    void mouseButtonUp(float x, float y, int button);
    // Joystick buttons, hats and axes, as press and release of their names
    // for the game target; false for any other kind of event.
    bool joystickEvent(const SDL_Event& event);

    // Opens every joystick SDL sees (after the video is up) and logs each.
    void openJoysticks();

    // Names of pad inputs; joysticks, buttons, hats and axes count from 1 in
    // names and from 0 in SDL. The first hat has no number in its name.
    static std::string joyButtonName(int joystick, int button);
    static std::string joyHatName(int joystick, int hat, int direction);
    static std::string joyAxisName(int joystick, int axis, int sign);
    // The stick dead zone from `joy_deadzone`, as a fraction of full tilt.
    static float joyDeadZone();

    // Makes `name` the current target, remembering the old one as the
    // previous target, and runs the deactivate/activate hooks. While the
    // console is open, `name` only becomes the target it returns to.
    void setTarget(const std::string& name);
    // Back to the game from the GUI, when a level is loaded and the GUI shows.
    void hideGUI();
    // The GUI over a still of the game, taking the input; nothing when it shows.
    void showGUI();

    // Reads the key names; false (with a line in the log) when the file cannot
    // be read or parsed.
    bool loadKeyNames(const std::string& fileName);
    // The name of an SDL key symbol; "" for one the key map does not name.
    std::string keyName(int symbol) const;

    // The three targets by role; each is also entered in the target map under
    // "gui", "console" or "game". Not owned.
    void setGUI(GUIManager* target);
    void setConsole(Console* target);
    void setGameInput(GameInput* target);
    // Any target under any name (tests, tools). Null removes the name.
    void addTarget(const std::string& name, InputTarget* target);
    InputTarget* getTarget(const std::string& name) const;
    InputTarget* getCurrent() const { return getTarget(currentTarget); }

    const std::string& getCurrentTarget() const { return currentTarget; }
    const std::string& getPreviousTarget() const { return previousTarget; }
    // Sets the name without running any hook (start-up).
    void setCurrentTarget(const std::string& name) { currentTarget = name; }
    // State of a modifier by its SDL bit number (0 left shift ... 14 mode).
    bool getModifier(int bit) const;
    const std::map<int, std::string>& getKeyNames() const { return keyNames; }
    float getRawX() const { return rawX; }
    float getRawY() const { return rawY; }
    float getRawDX() const { return rawDX; }
    float getRawDY() const { return rawDY; }

private:
    void escapePressed(bool& dispatch);
    void toggleConsole();
    // The target the console hands the keys back to when it closes.
    std::string returnTarget() const;
    void joyButton(int joystick, int button, bool pressed);
    void joyHat(int joystick, int hat, int value);
    void joyAxis(int joystick, int axis, int value);
    // Press or release of a pad input's name; only the game binds pads.
    void joyInput(const std::string& name, bool pressed);

    float rawX = 0.0f;
    float rawY = 0.0f;
    float rawDX = 0.0f;
    float rawDY = 0.0f;
    std::string currentTarget = "gui";
    std::string previousTarget = "gui";
    std::map<std::string, InputTarget*> targets;
    GUIManager* gui = nullptr;
    Console* console = nullptr;
    GameInput* game = nullptr;
    std::unique_ptr<Vector> worldMouse = std::make_unique<Vector>();
    std::unique_ptr<Vector> screenMouse = std::make_unique<Vector>();
    std::map<int, std::string> keyNames;
    std::map<int, bool> modifiers;
    // Last hat bits and stick direction (-1, 0, 1), by (joystick, index), so
    // every change becomes exactly one press or release.
    std::map<std::pair<int, int>, int> hatStates;
    std::map<std::pair<int, int>, int> axisStates;
    // Owned by SDL, which closes them at SDL_Quit.
    std::vector<_SDL_Joystick*> joysticks;
};
