#include "render/Hud.h"

#include <cmath>

#include "render/IRenderer.h"
#include "render/TextHudItem.h"

namespace {
int scaled(int value, int window, int design)
{
    return static_cast<int>(std::lround(static_cast<double>(value) * window / design));
}
}

void Hud::resize(int w, int h)
{
    screenWidth = w;
    screenHeight = h;
    layout();
    for (const auto& item : items) {
        scaleItem(*item, item->x, item->y);
        item->pixelWidth = scaled(item->width, w, designWidth);
        item->pixelHeight = scaled(item->height, h, designHeight);
        if (auto* text = dynamic_cast<TextHudItem*>(item.get()))
            text->scale = static_cast<float>(h) / static_cast<float>(designHeight);
    }
}

void Hud::draw(IRenderer& renderer)
{
    renderer.begin2D();
    for (const auto& item : items)
        if (item->visible)
            item->draw(renderer);
    renderer.end2D();
}

HudItem* Hud::addItem(std::unique_ptr<HudItem> item)
{
    items.push_back(std::move(item));
    HudItem* added = items.back().get();
    if (screenWidth > 0 && screenHeight > 0) {
        scaleItem(*added, added->x, added->y);
        added->pixelWidth = scaled(added->width, screenWidth, designWidth);
        added->pixelHeight = scaled(added->height, screenHeight, designHeight);
    }
    return added;
}

void Hud::update(Player*) {}

void Hud::scaleItem(HudItem& item, int px, int py)
{
    item.pixelX = scaled(px, screenWidth, designWidth);
    item.pixelY = scaled(py, screenHeight, designHeight);
}

void Hud::layout() {}
