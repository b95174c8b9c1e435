#include "gui/TransFrame.h"

#include "render/IRenderer.h"

TransFrame::TransFrame() { setBounds(64.0f, 364.0f, 200.0f, 200.0f); }

void TransFrame::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    if (hasFill || !background.empty()) {
        const bool textured = !background.empty();
        renderer.setTexturing(textured);
        renderer.setBlending(fill.a < 255.0f || textured);
        if (textured)
            renderer.bindTexture(background);
        if (hasFill)
            renderer.setColour(fill);
        else
            renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
        renderer.drawQuad(x, y, 0.0f, width, height);
        renderer.setTexturing(false);
    }
    if (border)
        drawBorder(renderer);
    drawChildren(renderer);
}
