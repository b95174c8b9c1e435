#include "gui/ImageButton.h"

#include "render/IRenderer.h"

void ImageButton::setImages(const std::string& normal, const std::string& hover, const std::string& held)
{
    normalImage = normal;
    hoverImage = hover;
    pressedImage = held;
}

const std::string& ImageButton::currentImage() const
{
    if (hovered && pressed)
        return pressedImage;
    return hovered ? hoverImage : normalImage;
}

void ImageButton::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    renderer.setTexturing(true);
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    renderer.drawImage(x, y, 0.0f, width, height, currentImage());
    drawChildren(renderer);
}
