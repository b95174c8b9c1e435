#include "render/TextFit.h"

#include <algorithm>

#include "render/FontRenderer.h"

namespace TextFit {
namespace {
const std::string ellipsis = "...";

// Pen positions are rounded to pixels while drawing: allow half a pixel a glyph.
float roundingSlack(const std::string& text) { return 0.5f * static_cast<float>(text.size()); }

// The longest head of the text (at least one character) no wider than maxWidth.
size_t fittingHead(FontRenderer& font, const std::string& text, float maxWidth)
{
    size_t n = text.size();
    while (n > 1 && drawnWidth(font, text.substr(0, n)) > maxWidth)
        --n;
    return n;
}
}

float drawnWidth(FontRenderer& font, const std::string& text)
{
    return font.textWidth(text) * font.getScale() + roundingSlack(text);
}

std::vector<std::string> wrap(FontRenderer& font, const std::string& text, float maxWidth)
{
    std::vector<std::string> lines;
    std::string line;
    size_t pos = 0;
    while (pos < text.size()) {
        const size_t start = text.find_first_not_of(' ', pos);
        if (start == std::string::npos)
            break;
        size_t end = text.find(' ', start);
        if (end == std::string::npos)
            end = text.size();
        std::string word = text.substr(start, end - start);
        pos = end;
        const std::string joined = line.empty() ? word : line + " " + word;
        if (drawnWidth(font, joined) <= maxWidth) {
            line = joined;
            continue;
        }
        if (!line.empty())
            lines.push_back(line);
        line.clear();
        while (word.size() > 1 && drawnWidth(font, word) > maxWidth) {
            const size_t head = fittingHead(font, word, maxWidth);
            lines.push_back(word.substr(0, head));
            word.erase(0, head);
        }
        line = word;
    }
    if (!line.empty() || lines.empty())
        lines.push_back(line);
    return lines;
}

std::string elide(FontRenderer& font, const std::string& text, float maxWidth)
{
    if (drawnWidth(font, text) <= maxWidth)
        return text;
    size_t n = text.size();
    while (n > 0 && drawnWidth(font, text.substr(0, n) + ellipsis) > maxWidth)
        --n;
    return text.substr(0, n) + ellipsis;
}

float fittingScale(FontRenderer& font, const std::string& text, float maxWidth, float preferred,
                   float smallest)
{
    // The glyphs scale, the rounding slack does not.
    const float glyphs = font.textWidth(text);
    const float room = maxWidth - roundingSlack(text);
    if (glyphs * preferred <= room || glyphs <= 0.0f)
        return preferred;
    // A hair under, so float rounding cannot leave the text a fraction too wide.
    return std::clamp(room / glyphs * 0.999f, smallest, preferred);
}
}
