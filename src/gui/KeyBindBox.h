#pragma once
// Shows the keys bound to one command and rebinds it: a click arms the box,
// then the next key or mouse button pressed becomes a binding of the command
// (Escape gives up). A command keeps at most two keys; a third replaces
// them. After binding the box fires "bindupdate" so a screen can refresh
// every box.
#include <string>
#include <vector>

#include "gui/Button.h"

class KeyBindBox : public Button {
public:
    static constexpr size_t maxKeys = 2;

    KeyBindBox();

    void draw(IRenderer& renderer) override;
    // A click arms the box.
    void clicked(float px, float py, int button) override;
    // While armed a press binds its mouse button, wherever it lands.
    void mouseDown(float px, float py, int button) override;
    bool capturesMouse() const override { return waiting; }
    // While armed: Escape disarms, any named key is bound (not the repeats
    // of a key held since before). Otherwise Enter
    // arms the box and other keys go to the parent.
    void keyDown(int symbol, int character, const std::string& keyName) override;
    // Losing the focus disarms.
    void setFocused(bool f) override;

    // The command whose keys the box shows and sets ("+attack").
    void setBindCommand(const std::string& c);
    const std::string& getBindCommand() const { return bindCommand; }
    // Reads the bindings again; "unbound" when the command has no key.
    void refresh();
    const std::string& getShown() const { return shown; }
    bool isWaiting() const { return waiting; }
    void arm();
    void disarm() { waiting = false; }
    // Binds the key name to the command (after unbinding the command's keys
    // when it already has two), then refreshes and fires "bindupdate".
    void bind(const std::string& keyName);
    // The first keys, in name order, bound to exactly this command: the
    // keyboard and mouse ones, or the gamepad ones in a pad box.
    std::vector<std::string> boundKeys() const;
    // A pad box shows the command's gamepad bindings and cannot be armed.
    void setPad(bool p);
    bool isPad() const { return pad; }
    static bool isPadName(const std::string& keyName);

private:
    std::string bindCommand;
    std::string shown = "unbound";
    bool waiting = false;
    bool pad = false;
};
