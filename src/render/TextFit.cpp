#include "render/TextFit.h"

#include <algorithm>

#include "render/FontRenderer.h"

namespace TextFit {
namespace {
const std::string ellipsis = "...";

// Pen positions are rounded to pixels while drawing: allow half a pixel a glyph.
float roundingSlack(const std::string& text) { return 0.5f * static_cast<float>(text.size()); }
}

float drawnWidth(FontRenderer& font, const std::string& text)
{
    return font.textWidth(text) * font.getScale() + roundingSlack(text);
}

std::vector<std::string> wrapMeasured(const std::string& text, float maxWidth,
                                      const std::function<float(const std::string&)>& width)
{
    std::vector<std::string> lines;
    size_t paragraphStart = 0;
    while (paragraphStart <= text.size()) {
        size_t paragraphEnd = text.find('\n', paragraphStart);
        if (paragraphEnd == std::string::npos)
            paragraphEnd = text.size();
        const std::string paragraph = text.substr(paragraphStart, paragraphEnd - paragraphStart);
        std::string line;
        size_t pos = 0;
        while (pos < paragraph.size()) {
            const size_t blank = paragraph.find(' ', pos);
            std::string word = paragraph.substr(pos, blank == std::string::npos ? std::string::npos : blank - pos);
            pos = blank == std::string::npos ? paragraph.size() : blank + 1;
            const std::string joined = line.empty() ? word : line + " " + word;
            if (width(joined) <= maxWidth) {
                line = joined;
                continue;
            }
            if (!line.empty())
                lines.push_back(line);
            // A word wider than the box is cut where it overflows.
            while (word.size() > 1 && width(word) > maxWidth) {
                size_t fit = 1;
                while (fit < word.size() && width(word.substr(0, fit + 1)) <= maxWidth)
                    ++fit;
                lines.push_back(word.substr(0, fit));
                word.erase(0, fit);
            }
            line = word;
        }
        lines.push_back(line);
        paragraphStart = paragraphEnd + 1;
    }
    return lines;
}

std::vector<std::string> wrap(FontRenderer& font, const std::string& text, float maxWidth)
{
    return wrapMeasured(text, maxWidth, [&font](const std::string& s) { return drawnWidth(font, s); });
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
