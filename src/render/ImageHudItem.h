#pragma once
// An image on the HUD, optionally with its "_glow" twin drawn additively on
// top a few times with falling alpha.
#include <string>

#include "render/HudItem.h"

class ImageHudItem : public HudItem {
public:
    void draw(IRenderer& renderer) override;
    // image = base + extension; glowImage = base + "_glow" + extension.
    virtual void setImage(const std::string& base, const std::string& extension);

    std::string image;
    std::string glowImage;
    bool clamp = false;
    bool additive = false;
    bool glow = false;
    int glowSteps = 1;
    int glowAlphaStep = 0;
};
