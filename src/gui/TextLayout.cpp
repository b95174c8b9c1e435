#include "gui/TextLayout.h"

#include <algorithm>

#include "core/Game.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

namespace {
constexpr float estimatedCharWidth = 7.0f;

float measure(FontRenderer* font, const std::string& s)
{
    return font ? font->textWidth(s) : estimatedCharWidth * static_cast<float>(s.size());
}
}

std::vector<std::string> TextLayout::wrap(const std::string& text, float width)
{
    FontRenderer* font = nullptr;
    if (Game* g = Game::current())
        if (IRenderer* r = g->getRenderer())
            font = r->getFontRenderer();
    if (font)
        font->selectFont("vera", 12);
    return wrap(text, width, font);
}

std::vector<std::string> TextLayout::wrap(const std::string& text, float width, FontRenderer* font)
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
            if (measure(font, joined) <= width) {
                line = joined;
                continue;
            }
            if (!line.empty())
                lines.push_back(line);
            // A word wider than the box is cut where it overflows.
            while (word.size() > 1 && measure(font, word) > width) {
                size_t fit = 1;
                while (fit < word.size() && measure(font, word.substr(0, fit + 1)) <= width)
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

int TextLayout::linesFitting(float height)
{
    return std::max(0, static_cast<int>((height - 2.0f * padding) / lineHeight));
}

void TextLayout::drawLines(IRenderer& renderer, const std::vector<std::string>& lines, int first, float x, float y,
                           float width, float height)
{
    FontRenderer* font = renderer.getFontRenderer();
    if (!font)
        return;
    (void)width;
    renderer.setTexturing(true);
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    font->selectFont("vera", 12);
    const int shown = linesFitting(height);
    for (int i = 0; i < shown; ++i) {
        const int line = first + i;
        if (line < 0 || line >= static_cast<int>(lines.size()))
            break;
        const float top = y - padding - lineHeight * static_cast<float>(i);
        font->drawText(x + padding, font->centredY(top, lineHeight, lines[static_cast<size_t>(line)]),
                       lines[static_cast<size_t>(line)]);
    }
}
