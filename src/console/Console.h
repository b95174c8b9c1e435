#pragma once
// The in-game console: a scrollback of coloured lines that commands print to.
#include <deque>
#include <string>

#include "input/InputTarget.h"
#include "world/geometry/RGBAColour.h"

struct ConsoleEntry {
    std::string text;
    RGBAColour colour;
};

class Console : public InputTarget {
public:
    static const RGBAColour normalColour;
    static const RGBAColour warningColour;
    static const RGBAColour debugColour;

    Console() { uses2D = true; }
    ~Console() override = default;

    virtual void print(const std::string& text);
    virtual void printColoured(const std::string& text, const RGBAColour& colour);
    virtual void printWarning(const std::string& text);
    virtual void printDebug(const std::string& text);

    // Draws the console band; called by the Game every frame in 2D mode.
    virtual void draw() {}

    const std::deque<ConsoleEntry>& getLines() const { return lines; }

    // Shown or hidden by the backquote key (InputManager).
    bool isVisible() const { return visible; }
    void setVisible(bool v) { visible = v; }
    // The line being typed; emptied when the console closes.
    const std::string& getInput() const { return input; }
    void clearInput() { input.clear(); }

private:
    std::deque<ConsoleEntry> lines;
    bool visible = false;
    std::string input;
};
