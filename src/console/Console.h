#pragma once
// The in-game console: a band at the top of the screen showing every message
// printed during the run as coloured lines, and a command line whose text is
// run by the command registry. It keeps a history of typed lines, completes
// command and variable names, scrolls back, and dumps its lines to a file.
// While it is the input target it receives the key presses.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "console/ConLine.h"
#include "core/BasicTimer.h"
#include "input/InputTarget.h"
#include "world/geometry/RGBAColour.h"

class GameVar;

class Console : public InputTarget {
public:
    // Told of every line the player submits, before it runs (demo recording).
    void setLineListener(std::function<void(const std::string&)> listener) { lineListener = std::move(listener); }
    static const RGBAColour normalColour;
    static const RGBAColour warningColour;
    static const RGBAColour debugColour;
    static const RGBAColour highlightColour;
    static const RGBAColour listColour;
    // Typed lines longer than this take no more characters.
    static constexpr size_t maxInputLength = 73;
    // The oldest lines and history entries give way beyond these counts.
    static constexpr size_t maxLines = 5000;
    static constexpr size_t maxHistory = 500;

    Console();
    ~Console() override = default;

    // Registers quit, clear, condump, time and tester; looks up the con_ variables; starts the cursor blink.
    virtual void init();
    // Draws the band, the lines and the input line; called by the Game every frame in 2D mode.
    virtual void draw();

    virtual void print(const std::string& text);
    virtual void printColoured(const std::string& text, const RGBAColour& colour);
    virtual void printColoured(const std::string& text, int r, int g, int b, int a);
    virtual void printWarning(const std::string& text);
    virtual void printDebug(const std::string& text);
    // Deletes every line; the scroll position is left alone.
    virtual void clear();
    // Writes every line, oldest first, between a header with a time stamp and a footer.
    virtual bool dump(const std::string& fileName) const;

    // Editing, history, scrolling and completion by key name.
    void keyDown(int symbol, int character, const std::string& keyName) override;
    // Prints and runs the input line, then starts a new one.
    void submit();
    // Completes the input to the shortest command or variable name it begins.
    void complete();
    // Prints what the command or variable of that name is for.
    void help(const std::string& name);

    // Screen size in pixels, set by the Game after each video mode change.
    void setSize(int w, int h);
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    bool isVisible() const { return visible; }
    void setVisible(bool v) { visible = v; }
    const std::string& getInput() const { return input; }
    void setInput(const std::string& text)
    {
        input = text.substr(0, maxInputLength);
        caret = input.size();
    }
    void clearInput()
    {
        input.clear();
        caret = 0;
    }
    // Where typing goes in the input line: 0 before the first character.
    size_t getCaret() const { return caret; }
    // Lines a page key scrolls: what the band showed at the last draw.
    int getPageLines() const { return pageLines; }
    // The wheel scrolls the lines (button 4 back, 5 forward).
    void mouseDown(float x, float y, int button) override;
    // Back (negative) or forward by `count` lines, within the lines there are.
    void scroll(int count);

    const std::vector<std::unique_ptr<ConLine>>& getLines() const { return lines; }
    const std::vector<std::string>& getHistory() const { return history; }
    int getScrollLine() const { return scrollLine; }
    int getLastLine() const { return lastLine; }
    int getHistoryCursor() const { return historyCursor; }
    const std::string& getCompletion() const { return completion; }
    int getMatchCount() const { return matchCount; }
    const RGBAColour& getBackgroundColour() const { return backgroundColour; }

    // Height of the band for a screen height and the con_height fraction (clamped to 0.2-1).
    static int bandHeight(int screenHeight, float fraction);

private:
    void append(const std::string& text, const RGBAColour& colour, uint32_t kind);
    void updateBackgroundColour();

    int width = 640;
    int height = 480;
    bool visible = false;
    int historyCursor = 0;
    int scrollLine = 0;
    int lastLine = 0;
    std::vector<std::unique_ptr<ConLine>> lines;
    std::vector<std::string> history;
    std::string input;
    size_t caret = 0;
    int pageLines = 10;
    std::string completion;
    int matchCount = 0;
    BasicTimer cursorTimer;
    RGBAColour textColour = normalColour;
    RGBAColour backgroundColour{0.0f, 0.0f, 0.0f, 255.0f};
    RGBAColour edgeColour{247.0f, 120.0f, 23.0f, 255.0f};
    GameVar* conColour = nullptr;
    GameVar* showWarnings = nullptr;
    GameVar* showDebug = nullptr;
    GameVar* conHeight = nullptr;
    std::function<void(const std::string&)> lineListener;
};
