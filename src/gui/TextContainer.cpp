#include "gui/TextContainer.h"

#include "gui/TextLayout.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

TextContainer::TextContainer() { setBounds(64.0f, 364.0f, 200.0f, 100.0f); }

void TextContainer::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    if (FontRenderer* font = textFont(renderer, fontName, 12)) {
        TextLayout::drawLines(renderer, TextLayout::wrap(text, width - 2.0f * TextLayout::padding, font), 0, x, y,
                              width, height);
    }
    drawChildren(renderer);
}
