#pragma once
// A heads-up display laid out in a fixed design resolution and scaled to the
// window: owns its items, draws them in insertion order in 2D mode, and
// recomputes every item's pixel rectangle on resize. Stretched to the window
// by default; with keepProportions every item is scaled alike (by the
// window's smaller ratio times interfaceScale) and keeps its distance to
// its anchor edges, so nothing widens on a wide screen.
#include <memory>
#include <vector>

#include "render/HudItem.h"

class IRenderer;
class Player;

class Hud {
public:
    Hud(int designW, int designH) : designWidth(designW), designHeight(designH) {}
    virtual ~Hud() = default;

    // The window is w x h: lays out, then scales every item.
    virtual void resize(int w, int h);
    virtual void draw(IRenderer& renderer);
    // Takes ownership; returns the item for further setup.
    virtual HudItem* addItem(std::unique_ptr<HudItem> item);
    // Per-frame refresh from the player; nothing here.
    virtual void update(Player* player);
    // Pixel position of `item` from design coordinates (px, py).
    virtual void scaleItem(HudItem& item, int px, int py);
    // Called by resize before the items are scaled; nothing here.
    virtual void layout();

    // Window pixels per design unit for this item with keepProportions.
    // Subclasses may give groups of items a smaller scale to make them fit.
    virtual float scaleFor(const HudItem& item) const;
    // The window's smaller ratio to the design times interfaceScale.
    float uniformScale() const;

    template <class T>
    T* add()
    {
        return static_cast<T*>(addItem(std::make_unique<T>()));
    }
    const std::vector<std::unique_ptr<HudItem>>& getItems() const { return items; }

    int designWidth;
    int designHeight;
    int screenWidth = 0;
    int screenHeight = 0;
    bool keepProportions = false;
    float interfaceScale = 1.0f;

protected:
    // Pixel size (and text scale) of one item for the current window.
    void sizeItem(HudItem& item) const;
    // The anchor an Auto axis resolves to, from the item's design place.
    static HudItem::Anchor resolve(HudItem::Anchor anchor, int position, int extent, int design);

    std::vector<std::unique_ptr<HudItem>> items;
};
