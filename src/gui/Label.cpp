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
        const float tx = font->centredX(x, width, text);
        const float ty = font->centredY(y, height, text);
        if (shadow)
            font->drawTextShadowed(tx, ty, text);
        else
            font->drawText(tx, ty, text);
    }
    drawChildren(renderer);
}
