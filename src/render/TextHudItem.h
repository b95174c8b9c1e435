#pragma once
// A line of text on the HUD in the "vera" font, optionally shadowed. The
// text is scaled with the window like every other item. An item given a
// width keeps its text inside it: shrunk a little and cut with "...", or
// wrapped onto lines below the first when `wrap` is set.
#include <string>
#include <vector>

#include "render/HudItem.h"

class FontRenderer;

class TextHudItem : public HudItem {
public:
    void draw(IRenderer& renderer) override;
    virtual void setText(const std::string& t) { text = t; }
    // Stores the size only: the HUD font is always "vera".
    virtual void setFont(const std::string& name, int size);
    // The lines drawn, for the font already selected at the item's scale
    // (which a squeezed line lowers).
    std::vector<std::string> layoutLines(FontRenderer& font) const;
    float lineHeight() const { return static_cast<float>(fontSize) * scale * 1.25f; }

    int fontSize = 12;
    std::string fontName = "vera";
    std::string text;
    bool shadow = false;
    bool wrap = false;
    // Window height / design height, set by the Hud when it scales items.
    float scale = 1.0f;
};
