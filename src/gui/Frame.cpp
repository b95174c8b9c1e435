#include "gui/Frame.h"

#include "gui/FrameButtonListener.h"
#include "gui/ImageButton.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

namespace {
constexpr float closeSize = 16.0f;
constexpr float closeFromRight = 20.0f;
constexpr float closeFromTop = 7.0f;
}

Frame::Frame()
{
    focusable = true;
    auto button = std::make_unique<ImageButton>();
    button->setImages("data/gui/butclose.png", "data/gui/butcloseover.png", "data/gui/butcloseclicked.png");
    button->setClickSound("data/sounds/gui/MenuSmoothClose.wav");
    button->setCommand("closeframe");
    button->setName("closebutton");
    button->addActionListener(std::make_unique<FrameButtonListener>(*this));
    closeButton = add(std::move(button));
    setBounds(64.0f, 364.0f, 200.0f, 200.0f);
}

void Frame::placeCloseButton()
{
    closeButton->setBounds(x + width - closeFromRight, y - closeFromTop, closeSize, closeSize);
}

void Frame::setBounds(float newX, float newY, float w, float h)
{
    GUIComponent::setBounds(newX, newY, w, h);
    rememberedWidth = w;
    rememberedHeight = h;
    placeCloseButton();
}

void Frame::restoreSize()
{
    setSize(rememberedWidth, rememberedHeight);
    placeCloseButton();
}

void Frame::close()
{
    enabled = false;
    titleDrag = false;
    onClose();
}

void Frame::mouseDown(float px, float py, int button)
{
    GUIComponent::mouseDown(px, py, button);
    titleDrag = button == 1 && py >= y - titleHeight;
}

void Frame::mouseUp(float px, float py, int button)
{
    titleDrag = false;
    GUIComponent::mouseUp(px, py, button);
}

void Frame::mouseDrag(float dx, float dy)
{
    if (!pressed || !titleDrag)
        return;
    moveBy(dx, -dy);
    if (parent)
        parent->keepInside(this);
}

void Frame::keyDown(int symbol, int character, const std::string& keyName)
{
    if (keyName == "ESCAPE" && isShown()) {
        close();
        return;
    }
    GUIComponent::keyDown(symbol, character, keyName);
}

void Frame::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    renderer.setTexturing(true);
    renderer.setBlending(true);
    renderer.bindTexture("data/gui/bg.png");
    renderer.setColour(89.0f, 89.0f, 89.0f, 255.0f);
    renderer.drawQuad(x, y, 0.0f, width, titleHeight);
    renderer.drawQuad(x, y - titleHeight, 0.0f, width, height - titleHeight);
    if (FontRenderer* font = textFont(renderer, "vera", 18)) {
        renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
        font->drawText(x + 8.0f, font->centredY(y, titleHeight, title), title);
    }
    drawBevel(renderer, x, y, width, height, 200.0f, 50.0f, 2.0f);
    renderer.drawLine(x, y - titleHeight, x + width, y - titleHeight, 2.0f);
    drawChildren(renderer);
}
