#pragma once
// The input target "game": owns the key bindings. A key (or mouse button, or
// wheel notch, named "MOUSE1" ... "MWHEELDOWN") runs its bound command text
// when pressed; when released, the "+" commands of that text run again as "-"
// commands, so "+moveleft" is held exactly as long as the key. The gameplay's
// own input (player controls) derives from this class.
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "input/InputTarget.h"
#include "world/geometry/Vector.h"

class Body;
class GameVar;

class GameInput : public InputTarget {
public:
    GameInput() = default;
    ~GameInput() override = default;

    void mouseMove(float x, float y, float dx, float dy) override;
    void mouseDown(float x, float y, int button) override;
    void mouseUp(float x, float y, int button) override;
    void keyDown(int symbol, int character, const std::string& keyName) override;
    void keyUp(int symbol, int character, const std::string& keyName) override;
    // Losing the input (console or menu opened) lets go of every held
    // control, so no key stays "down" behind the console.
    void deactivate() override;

    // Registers bind, unbind and listbinds, names the mouse buttons and looks
    // up `sensitivity`. Called once by the Game at start-up; overrides that
    // register more commands call the base first.
    virtual void init();
    // Once per simulation step, before the world steps, with the player.
    // Nothing here; the gameplay input turns held controls into forces.
    virtual void step(Body* player, float stepLength);
    // Once per frame, before the simulation steps. Nothing here.
    virtual void update(Body* player);
    // The first key in name order bound to exactly `command`, or "unbound".
    virtual std::string findKeyFor(const std::string& command) const;
    // The "//key bindings" section of a configuration script: "unbindall",
    // then every key, empty bindings included, as "bind key command".
    virtual void writeBindings(std::ostream& stream) const;
    // Lets go of every held control. Nothing here; the gameplay input clears
    // its held flags when the game loses the input.
    virtual void releaseAll();

    // The binding of a key name (any case); "" when unbound.
    std::string getBinding(const std::string& key) const;
    // Binds lower-cased text to a lower-cased key; the key "unbound" is never bound.
    void setBinding(const std::string& key, const std::string& command);
    const std::map<std::string, std::string>& getBindings() const { return bindings; }
    // Mouse button number to key name; "" for a button without one.
    std::string mouseName(int button) const;

    // The aim stick of a pad, one component at a time (0 across, 1 down, as
    // SDL reports them), each as a fraction of full tilt.
    void setAimStick(int component, float deflection);
    // The world direction (y up, unit length) the aim stick last pointed
    // past the dead zone; false when it never has or the mouse moved since,
    // so whichever the player touched last aims.
    bool getAimStick(Vector& direction) const;

    // The commands a release runs for bound text: every ";" segment that
    // starts with "+" (leading blanks count), with that "+" turned into "-".
    static std::vector<std::string> releaseCommands(const std::string& text);

    // The console commands, reading the command registry's arguments.
    void bindCommand(const std::vector<std::string>& args);
    void unbindCommand(const std::vector<std::string>& args);
    // Every binding gone (a script that sets up its own keys starts with it).
    void unbindAll();
    // Controls added to the defaults after players already had a config.txt:
    // binds each one newer than `version` whose key is free and whose command
    // has no key yet, so an older config gains it once and a player's own
    // choice stands. Returns the newest version, for the config to keep.
    int addNewerDefaults(int version);
    void listBindings() const;

protected:
    // Hands text to the command registry and runs it (a demo being
    // recorded notes it first).
    static void runText(const std::string& text);
    // Whether a binding is a fire or hook control the player set to toggle
    // (`firetoggle`, `hooktoggle`).
    static bool isToggled(const std::string& text);
    // A demo is being played: it, not the keys, steers the game.
    static bool demoPlaying();
    // Bound text a key may still run during a playback (screenshots, stop).
    static bool worksDuringDemo(const std::string& text);

    std::map<std::string, std::string> bindings;
    // Keys and buttons down now: the window system repeats a held key's
    // press, and a binding must run once per press, not 33 times a second.
    std::set<std::string> heldKeys;
    // Toggled bindings switched on by their last press.
    std::set<std::string> latched;
    std::map<int, std::string> mouseNames;
    GameVar* sensitivity = nullptr;
    float aimStick[2] = {0.0f, 0.0f};
    float aimPeak = 0.0f;  // strongest lean since the stick left the dead zone
    Vector aimDirection;
    bool stickAims = false;
};
