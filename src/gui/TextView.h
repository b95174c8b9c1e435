#pragma once
// Wrapped lines of text in a panel, scrolled a line at a time by the wheel,
// the arrow keys and page up/down (or by scrollTo). TextArea adds a scroll
// bar to drag.
#include <string>
#include <vector>

#include "gui/GUIComponent.h"

class TextView : public GUIComponent {
public:
    TextView();

    void draw(IRenderer& renderer) override;
    // Wraps the text again for the new width.
    void setBounds(float newX, float newY, float w, float h) override;
    // The wheel scrolls.
    void mouseDown(float px, float py, int button) override;
    // Up, down, page up and page down scroll; the rest goes to the parent.
    void keyDown(int symbol, int character, const std::string& keyName) override;

    // Replaces the text ("\n" starts a new line) and scrolls to the top.
    virtual void setText(const std::string& t);
    // Appends one paragraph.
    virtual void addLine(const std::string& line);
    // Shows lines from `first` on, clamped so the panel stays full where it can.
    virtual void scrollTo(int first);
    void scrollBy(int lines) { scrollTo(firstLine + lines); }
    int getFirstLine() const { return firstLine; }
    int getMaxFirstLine() const;
    const std::vector<std::string>& getLines() const { return lines; }
    const std::string& getText() const { return text; }

protected:
    // The width the lines are wrapped to.
    virtual float textWidth() const;
    void rewrap();

    std::string text;
    std::vector<std::string> lines;
    int firstLine = 0;
};
