#pragma once
// An image stretched over its box in a tint colour (save-game thumbnails,
// cut-scene pictures).
#include <string>

#include "gui/GUIComponent.h"
#include "world/geometry/RGBAColour.h"

class Picture : public GUIComponent {
public:
    Picture();

    void draw(IRenderer& renderer) override;

    void setImage(const std::string& i) { image = i; }
    const std::string& getImage() const { return image; }
    void setColour(const RGBAColour& c) { colour = c; }

private:
    std::string image = "data/gui/test.png";
    RGBAColour colour{255.0f, 255.0f, 255.0f, 255.0f};
};
