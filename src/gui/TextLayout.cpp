#include "gui/TextLayout.h"

#include <algorithm>

#include "core/Game.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "render/TextFit.h"

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
    return TextFit::wrapMeasured(text, width, [font](const std::string& s) { return measure(font, s); });
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
