#include "gui/GUIClock.h"

#include <cstdio>

#include "render/FontRenderer.h"
#include "render/IRenderer.h"

GUIClock::GUIClock()
{
    setBounds(64.0f, 64.0f, 100.0f, 32.0f);
    timer.start();
}

std::string GUIClock::getText()
{
    timer.tick();
    const long seconds = timer.elapsed() > 0.0f ? static_cast<long>(timer.elapsed() / 1000.0f) : 0;
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%02ld:%02ld", seconds / 60, seconds % 60);
    return buffer;
}

void GUIClock::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    if (FontRenderer* font = textFont(renderer, "vera", 18)) {
        renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
        drawCentredText(renderer, *font, getText(), x, y, width, height);
    }
    drawChildren(renderer);
}
