#pragma once
// Word wrapping and line drawing shared by the text panels: text is broken
// at blanks (and at "\n") into lines no wider than a box, measured with the
// game's "vera" 12 font, or at an estimated 7 pixels a character without one.
#include <string>
#include <vector>

class FontRenderer;
class IRenderer;

class TextLayout {
public:
    static constexpr float lineHeight = 16.0f;
    static constexpr float padding = 5.0f;

    // Lines of text no wider than width; a word longer than a line is cut.
    static std::vector<std::string> wrap(const std::string& text, float width);
    static std::vector<std::string> wrap(const std::string& text, float width, FontRenderer* font);
    // How many lines fit in a box of that height.
    static int linesFitting(float height);
    // Draws lines from `first` on, inside the box with its top-left at (x, y).
    static void drawLines(IRenderer& renderer, const std::vector<std::string>& lines, int first, float x, float y,
                          float width, float height);
};
