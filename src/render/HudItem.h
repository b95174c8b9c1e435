#pragma once
// One element of a heads-up display, placed by its top-left corner in the
// HUD's design units (origin bottom-left, y up, hanging down from (x, y)).
// The Hud scales the design values to window pixels on every resize.
#include "world/geometry/RGBAColour.h"

class IRenderer;

class HudItem {
public:
    // Which window edge an item keeps its distance to when the HUD keeps its
    // proportions: Auto picks by where the item sits in the design (outer
    // thirds to their edge, the middle to the centre).
    enum class Anchor { Auto, Start, Centre, End };

    HudItem() = default;
    virtual ~HudItem() = default;

    virtual void setSize(int w, int h);
    virtual void setPosition(int px, int py);
    // Draws at the pixel position; the Hud has entered 2D mode. Empty here.
    virtual void draw(IRenderer& renderer);
    // Back to white.
    virtual void resetColour();
    virtual void setColour(int r, int g, int b, int a);

    int width = 0, height = 0;
    int x = 0, y = 0;
    int pixelWidth = 0, pixelHeight = 0, pixelX = 0, pixelY = 0;
    bool visible = true;
    // Start is the left or bottom edge, End the right or top.
    Anchor anchorX = Anchor::Auto;
    Anchor anchorY = Anchor::Auto;
    RGBAColour colour{255.0f, 255.0f, 255.0f, 255.0f};
};
