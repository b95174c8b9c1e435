#pragma once
// A plain panel: an optional fill colour (see-through below alpha 255), an
// optional background image and an optional border under its children. The
// main interface and the cut-scene pages are built on it.
#include <string>

#include "gui/GUIComponent.h"
#include "world/geometry/RGBAColour.h"

class TransFrame : public GUIComponent {
public:
    TransFrame();

    void draw(IRenderer& renderer) override;

    void setFillColour(const RGBAColour& colour)
    {
        fill = colour;
        hasFill = true;
    }
    void clearFill() { hasFill = false; }
    // "" for none.
    void setBackground(const std::string& image) { background = image; }
    const std::string& getBackground() const { return background; }
    void setBorder(bool on) { border = on; }

private:
    RGBAColour fill{0.0f, 0.0f, 0.0f, 160.0f};
    bool hasFill = false;
    std::string background;
    bool border = false;
};
