#pragma once
// A line of text on the HUD in the "vera" font, optionally shadowed. The
// text is scaled with the window like every other item.
#include <string>

#include "render/HudItem.h"

class TextHudItem : public HudItem {
public:
    void draw(IRenderer& renderer) override;
    virtual void setText(const std::string& t) { text = t; }
    // Stores the size only: the HUD font is always "vera".
    virtual void setFont(const std::string& name, int size);

    int fontSize = 12;
    std::string fontName = "vera";
    std::string text;
    bool shadow = false;
    // Window height / design height, set by the Hud when it scales items.
    float scale = 1.0f;
};
