#include "gui/Button.h"

#include "render/FontRenderer.h"
#include "render/IRenderer.h"

Button::Button()
{
    setBounds(64.0f, 64.0f, 100.0f, 32.0f);
    focusable = true;
}

void Button::drawPanel(IRenderer& renderer)
{
    renderer.setTexturing(true);
    renderer.bindTexture("data/gui/bg.png");
    if (hovered && pressed)
        renderer.setColour(64.0f, 131.0f, 255.0f, 255.0f);
    else if (hovered)
        renderer.setColour(162.0f, 162.0f, 162.0f, 255.0f);
    else
        renderer.setColour(125.0f, 125.0f, 125.0f, 255.0f);
    renderer.drawQuad(x, y, 0.0f, width, height);
    renderer.setTexturing(false);
    drawBorder(renderer);
}

void Button::drawLabel(IRenderer& renderer, const std::string& label)
{
    FontRenderer* font = textFont(renderer, "vera", 12);
    if (!font)
        return;
    if (hovered)
        renderer.setColour(0.0f, 0.0f, 0.0f, 255.0f);
    else
        renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    drawCentredText(renderer, *font, label, x, y, width, height);
}

void Button::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    drawPanel(renderer);
    drawLabel(renderer, text);
    drawChildren(renderer);
}

void Button::clicked(float, float, int)
{
    playSound(clickSound);
    fireAction(command, this);
}
