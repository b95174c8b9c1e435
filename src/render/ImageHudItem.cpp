#include "render/ImageHudItem.h"

#include "render/IRenderer.h"

void ImageHudItem::setImage(const std::string& base, const std::string& extension)
{
    image = base + extension;
    glowImage = base + "_glow" + extension;
}

void ImageHudItem::draw(IRenderer& renderer)
{
    if (image.empty())
        return;
    // drawImage hangs the picture down from its top-left corner, like the item.
    const float left = static_cast<float>(pixelX);
    const float top = static_cast<float>(pixelY);
    const float w = static_cast<float>(pixelWidth);
    const float h = static_cast<float>(pixelHeight);
    renderer.setColour(colour);
    renderer.drawImage(left, top, 0.0f, w, h, image, additive, clamp);
    if (!glow)
        return;
    float alpha = colour.a;
    for (int i = 0; i < glowSteps && alpha > 0.0f; ++i) {
        renderer.setColour(colour.r, colour.g, colour.b, alpha);
        renderer.drawImage(left, top, 0.0f, w, h, glowImage, true, clamp);
        alpha -= static_cast<float>(glowAlphaStep);
    }
}
