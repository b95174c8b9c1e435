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
    // Drawn from the bottom-left corner; the item hangs down from (x, y).
    const float left = static_cast<float>(pixelX);
    const float bottom = static_cast<float>(pixelY - pixelHeight);
    const float w = static_cast<float>(pixelWidth);
    const float h = static_cast<float>(pixelHeight);
    renderer.setColour(colour);
    renderer.drawImage(left, bottom, 0.0f, w, h, image, additive, clamp);
    if (!glow)
        return;
    float alpha = colour.a;
    for (int i = 0; i < glowSteps && alpha > 0.0f; ++i) {
        renderer.setColour(colour.r, colour.g, colour.b, alpha);
        renderer.drawImage(left, bottom, 0.0f, w, h, glowImage, true, clamp);
        alpha -= static_cast<float>(glowAlphaStep);
    }
}
