#include "render/TextHudItem.h"

#include <vector>

#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "render/TextFit.h"

namespace {
// Squeezed text stays readable down to this share of its size.
constexpr float smallestShare = 0.7f;
}

void TextHudItem::setFont(const std::string&, int size) { fontSize = size; }

std::vector<std::string> TextHudItem::layoutLines(FontRenderer& font) const
{
    // The item's width, when it has one, is the room its text must fit.
    if (pixelWidth <= 0)
        return {text};
    const float room = static_cast<float>(pixelWidth);
    if (wrap)
        return TextFit::wrap(font, text, room);
    font.setScale(TextFit::fittingScale(font, text, room, scale, scale * smallestShare));
    return {TextFit::elide(font, text, room)};
}

void TextHudItem::draw(IRenderer& renderer)
{
    FontRenderer* font = renderer.getFontRenderer();
    if (!font || text.empty())
        return;
    renderer.setTexturing(true);
    renderer.setColour(colour);
    if (!font->selectFont(fontName, fontSize))
        return;
    const float oldScale = font->getScale();
    font->setScale(scale);
    // The position is the baseline: the layout sets each value 12 units below
    // its 16-unit icon's top so the two line up.
    float baseline = static_cast<float>(pixelY);
    // The font's own shadowed call draws white: the HUD's red values and
    // greyed upgrades keep their colour over a black shadow.
    for (const std::string& line : layoutLines(*font)) {
        if (shadow) {
            renderer.setColour(0.0f, 0.0f, 0.0f);
            font->drawText(static_cast<float>(pixelX) + 1.0f, baseline - 1.0f, line);
            renderer.setColour(colour);
        }
        font->drawText(static_cast<float>(pixelX), baseline, line);
        baseline -= lineHeight();
    }
    font->setScale(oldScale);
}
