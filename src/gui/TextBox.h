#pragma once
// A one-line text entry (save-game names and the like). While focused it
// takes letters, digits, spaces, "-", "_" and "." at its cursor; backspace and delete
// remove, the arrows, home and end move the cursor, Enter fires its command.
// The cursor blinks once a second.
#include <string>

#include "core/BasicTimer.h"
#include "gui/Button.h"

class TextBox : public Button {
public:
    TextBox();

    void draw(IRenderer& renderer) override;
    // A click only takes the focus (and ticks); it fires nothing.
    void clicked(float px, float py, int button) override;
    // Edits the text; Escape goes to the parent, other keys are ignored.
    void keyDown(int symbol, int character, const std::string& keyName) override;
    // Restarts the blink so the cursor shows at once.
    void setFocused(bool f) override;

    // Cut to the length limit; the cursor goes to the end.
    void setText(const std::string& t);
    const std::string& getText() const { return text; }
    size_t getCursor() const { return cursor; }
    // Whether '"' (shift and the quote key) types, for names given as the
    // save commands take them.
    void setAcceptsQuotes(bool on) { acceptsQuotes = on; }
    void setMaxLength(size_t n);
    size_t getMaxLength() const { return maxLength; }

private:
    // The character a key name types, or 0 for one that types nothing.
    static char typedCharacter(const std::string& keyName, bool shift);
    static bool shiftHeld();

    BasicTimer blink;
    size_t cursor = 0;
    size_t maxLength = 32;
    bool acceptsQuotes = false;
};
