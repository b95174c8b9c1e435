#include "render/TextHudItem.h"

#include "render/FontRenderer.h"
#include "render/IRenderer.h"

void TextHudItem::setFont(const std::string&, int size) { fontSize = size; }

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
    const float baseline = static_cast<float>(pixelY);
    // The font's own shadowed call draws white: the HUD's red values and
    // greyed upgrades keep their colour over a black shadow.
    if (shadow) {
        renderer.setColour(0.0f, 0.0f, 0.0f);
        font->drawText(static_cast<float>(pixelX) + 1.0f, baseline - 1.0f, text);
        renderer.setColour(colour);
    }
    font->drawText(static_cast<float>(pixelX), baseline, text);
    font->setScale(oldScale);
}
