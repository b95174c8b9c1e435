#include "render/HudItem.h"

void HudItem::setSize(int w, int h)
{
    width = w;
    height = h;
}

void HudItem::setPosition(int px, int py)
{
    x = px;
    y = py;
}

void HudItem::draw(IRenderer&) {}

void HudItem::resetColour() { colour = RGBAColour(255.0f, 255.0f, 255.0f, 255.0f); }

void HudItem::setColour(int r, int g, int b, int a)
{
    colour = RGBAColour(static_cast<float>(r), static_cast<float>(g), static_cast<float>(b), static_cast<float>(a));
}
