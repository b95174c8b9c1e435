#include "gui/Picture.h"

#include "render/IRenderer.h"

Picture::Picture() { setBounds(64.0f, 364.0f, 100.0f, 100.0f); }

void Picture::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    renderer.setTexturing(true);
    renderer.setBlending(true);
    renderer.bindTexture(image);
    renderer.setColour(colour);
    renderer.drawQuad(x, y, 0.0f, width, height);
    drawChildren(renderer);
}
