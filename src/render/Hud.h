#pragma once
// A heads-up display laid out in a fixed design resolution and scaled to the
// window: owns its items, draws them in insertion order in 2D mode, and
// recomputes every item's pixel rectangle on resize.
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

protected:
    std::vector<std::unique_ptr<HudItem>> items;
};
