#include "gui/Slider.h"

#include <algorithm>

#include "gui/SliderListener.h"
#include "render/IRenderer.h"

Slider::Slider()
{
    focusable = true;
    grabber = add(std::make_unique<GUIComponent>());
    setBounds(64.0f, 364.0f, 160.0f, 20.0f);
}

float Slider::travel() const
{
    return std::max(0.0f, vertical ? height - grabber->getHeight() : width - grabber->getWidth());
}

void Slider::placeGrabber()
{
    const float t = range != 0.0f ? (value - minimum) / range : 0.0f;
    if (vertical)
        grabber->setBounds(x, y - t * travel(), width, grabberSize);
    else
        grabber->setBounds(x + t * travel(), y, grabberSize, height);
}

void Slider::valueFromGrabber()
{
    keepInside(grabber);
    const float along = vertical ? y - grabber->getY() : grabber->getX() - x;
    const float t = travel() > 0.0f ? along / travel() : 0.0f;
    value = minimum + range * t;
    tellListener();
}

void Slider::tellListener()
{
    if (listener && notify)
        listener->valueChanged(this, value);
}

void Slider::slideGrabber(float d)
{
    if (vertical)
        grabber->moveBy(0.0f, -d);
    else
        grabber->moveBy(d, 0.0f);
    valueFromGrabber();
}

void Slider::setBounds(float newX, float newY, float w, float h)
{
    GUIComponent::setBounds(newX, newY, w, h);
    placeGrabber();
}

void Slider::setRange(float lo, float hi)
{
    minimum = lo;
    maximum = std::max(lo, hi);
    range = maximum - minimum;
    setValue(value);
}

void Slider::setValue(float v)
{
    value = std::clamp(v, minimum, maximum);
    placeGrabber();
    tellListener();
}

GUIComponent* Slider::componentAt(float px, float py)
{
    return enabled && contains(px, py) ? this : nullptr;
}

void Slider::mouseDown(float px, float py, int button)
{
    if (button == 4 || button == 5) {
        setValue(value + (button == 5 ? step : -step));
        return;
    }
    playSound("data/sounds/gui/MouseTick.wav");
    GUIComponent::mouseDown(px, py, button);
    if (!grabber->contains(px, py)) {
        // Centre the grabber under the click.
        if (vertical)
            slideGrabber(grabber->getY() - grabber->getHeight() / 2.0f - py);
        else
            slideGrabber(px - (grabber->getX() + grabber->getWidth() / 2.0f));
    }
}

void Slider::mouseUp(float px, float py, int button)
{
    if (pressed)
        playSound("data/sounds/gui/MouseSquare.wav");
    GUIComponent::mouseUp(px, py, button);
}

void Slider::mouseDrag(float dx, float dy)
{
    if (!pressed)
        return;
    // SDL's dy points down the window, the way a vertical bar's value grows.
    slideGrabber(vertical ? dy : dx);
}

void Slider::keyDown(int symbol, int character, const std::string& keyName)
{
    const std::string less = vertical ? "up" : "left";
    const std::string more = vertical ? "down" : "right";
    if (keyName == less)
        setValue(value - step);
    else if (keyName == more)
        setValue(value + step);
    else
        GUIComponent::keyDown(symbol, character, keyName);
}

void Slider::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    renderer.setTexturing(true);
    renderer.bindTexture("data/gui/bg.png");
    renderer.setColour(60.0f, 60.0f, 60.0f, 255.0f);
    if (vertical)
        renderer.drawQuad(x + width / 2.0f - 3.0f, y, 0.0f, 6.0f, height);
    else
        renderer.drawQuad(x, y - height / 2.0f + 3.0f, 0.0f, width, 6.0f);
    drawSunkenBevel(renderer, x, y, width, height);
    renderer.setTexturing(true);
    if (focused)
        renderer.setColour(190.0f, 220.0f, 255.0f, 255.0f);
    else
        renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    renderer.drawImage(grabber->getX(), grabber->getY(), 0.0f, grabber->getWidth(), grabber->getHeight(),
                       grabberImage);
    drawChildren(renderer);
}
