#include "gui/Label.h"

#include "render/FontRenderer.h"
#include "render/IRenderer.h"

Label::Label() { setBounds(64.0f, 64.0f, 100.0f, 32.0f); }

void Label::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    if (FontRenderer* font = textFont(renderer, fontName, fontSize)) {
        renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
        const float oldScale = font->getScale();
        const std::string shown = fitLine(*font, text, width);
        const float tx = centredLeft(*font, shown, x, width);
        const float ty = font->centredY(y, height, shown);
        if (shadow)
            font->drawTextShadowed(tx, ty, shown);
        else
            font->drawText(tx, ty, shown);
        font->setScale(oldScale);
    }
    drawChildren(renderer);
}
