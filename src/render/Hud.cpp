#include "render/Hud.h"

#include <algorithm>
#include <cmath>

#include "render/IRenderer.h"
#include "render/TextHudItem.h"

namespace {
int scaled(int value, int window, int design)
{
    return static_cast<int>(std::lround(static_cast<double>(value) * window / design));
}

int rounded(float value) { return static_cast<int>(std::lround(value)); }

// Pixel coordinate of design coordinate `value` kept at its anchor edge.
int anchored(HudItem::Anchor anchor, int value, int window, int design, float scale)
{
    switch (anchor) {
    case HudItem::Anchor::End:
        return window - rounded(static_cast<float>(design - value) * scale);
    case HudItem::Anchor::Centre:
        return window / 2 + rounded(static_cast<float>(value - design / 2) * scale);
    default:
        return rounded(static_cast<float>(value) * scale);
    }
}
}

float Hud::uniformScale() const
{
    if (designWidth <= 0 || designHeight <= 0)
        return 1.0f;
    const float fit = std::min(static_cast<float>(screenWidth) / static_cast<float>(designWidth),
                               static_cast<float>(screenHeight) / static_cast<float>(designHeight));
    return fit * interfaceScale;
}

float Hud::scaleFor(const HudItem&) const { return uniformScale(); }

HudItem::Anchor Hud::resolve(HudItem::Anchor anchor, int position, int extent, int design)
{
    if (anchor != HudItem::Anchor::Auto)
        return anchor;
    const int middle = position + extent / 2;
    if (middle * 3 < design)
        return HudItem::Anchor::Start;
    if (middle * 3 > design * 2)
        return HudItem::Anchor::End;
    return HudItem::Anchor::Centre;
}

void Hud::sizeItem(HudItem& item) const
{
    auto* text = dynamic_cast<TextHudItem*>(&item);
    if (!keepProportions) {
        item.pixelWidth = scaled(item.width, screenWidth, designWidth);
        item.pixelHeight = scaled(item.height, screenHeight, designHeight);
        if (text)
            text->scale = static_cast<float>(screenHeight) / static_cast<float>(designHeight);
        return;
    }
    const float scale = scaleFor(item);
    item.pixelWidth = rounded(static_cast<float>(item.width) * scale);
    item.pixelHeight = rounded(static_cast<float>(item.height) * scale);
    if (text)
        text->scale = scale;
}

void Hud::resize(int w, int h)
{
    screenWidth = w;
    screenHeight = h;
    layout();
    for (const auto& item : items) {
        scaleItem(*item, item->x, item->y);
        sizeItem(*item);
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
        sizeItem(*added);
    }
    return added;
}

void Hud::update(Player*) {}

void Hud::scaleItem(HudItem& item, int px, int py)
{
    if (!keepProportions) {
        item.pixelX = scaled(px, screenWidth, designWidth);
        item.pixelY = scaled(py, screenHeight, designHeight);
        return;
    }
    const float scale = scaleFor(item);
    // The item hangs down from (x, y): its vertical middle is below y.
    item.pixelX = anchored(resolve(item.anchorX, px, item.width, designWidth), px, screenWidth, designWidth, scale);
    item.pixelY = anchored(resolve(item.anchorY, py - item.height, item.height, designHeight), py, screenHeight,
                           designHeight, scale);
}

void Hud::layout() {}
