#include "gui/GUIComponent.h"

#include <algorithm>

#include "core/Game.h"
#include "gui/ActionListener.h"
#include "input/InputManager.h"
#include "render/FontRenderer.h"
#include "render/TextFit.h"
#include "render/IRenderer.h"
#include "sound/ISound.h"

GUIComponent::~GUIComponent() = default;

GUIComponent* GUIComponent::addChildRelative(std::unique_ptr<GUIComponent> child)
{
    if (!child)
        return nullptr;
    child->setPosition(x + child->x, y - child->y);
    return addChild(std::move(child));
}

GUIComponent* GUIComponent::addChild(std::unique_ptr<GUIComponent> child)
{
    if (!child)
        return nullptr;
    child->setParent(this);
    children.push_back(std::move(child));
    return children.back().get();
}

std::unique_ptr<GUIComponent> GUIComponent::removeChild(GUIComponent* child, bool destroy)
{
    auto it = std::find_if(children.begin(), children.end(), [child](const auto& c) { return c.get() == child; });
    if (it == children.end())
        return nullptr;
    std::unique_ptr<GUIComponent> owned = std::move(*it);
    children.erase(it);
    owned->setParent(nullptr);
    if (destroy)
        return nullptr;
    return owned;
}

void GUIComponent::bringToFront(GUIComponent* child)
{
    auto it = std::find_if(children.begin(), children.end(), [child](const auto& c) { return c.get() == child; });
    if (it != children.end())
        children.splice(children.begin(), children, it);
    if (parent)
        parent->bringToFront(this);
}

void GUIComponent::addActionListener(std::unique_ptr<ActionListener> listener)
{
    if (listener)
        listeners.push_back(std::move(listener));
}

void GUIComponent::removeActionListener(ActionListener* listener)
{
    listeners.erase(std::remove_if(listeners.begin(), listeners.end(),
                                   [listener](const auto& l) { return l.get() == listener; }),
                    listeners.end());
}

void GUIComponent::fireAction(const std::string& command, GUIComponent* source)
{
    // By index: a listener may add another while it runs.
    for (size_t i = 0; i < listeners.size(); ++i)
        listeners[i]->actionPerformed(command, source);
}

void GUIComponent::moveBy(float dx, float dy)
{
    x += dx;
    y += dy;
    moveChildrenBy(dx, dy);
}

void GUIComponent::moveChildrenBy(float dx, float dy)
{
    for (auto& c : children)
        c->moveBy(dx, dy);
}

bool GUIComponent::keepInside(GUIComponent* child)
{
    if (!child)
        return false;
    float dx = 0.0f;
    float dy = 0.0f;
    if (child->x + child->width > x + width)
        dx = x + width - (child->x + child->width);
    if (child->x + dx < x)
        dx = x - child->x;
    if (child->y - child->height < y - height)
        dy = (y - height) - (child->y - child->height);
    if (child->y + dy > y)
        dy = y - child->y;
    if (dx == 0.0f && dy == 0.0f)
        return false;
    child->moveBy(dx, dy);
    return true;
}

void GUIComponent::setPosition(float newX, float newY) { moveBy(newX - x, newY - y); }

void GUIComponent::setSize(float w, float h)
{
    width = w;
    height = h;
}

void GUIComponent::setBounds(float newX, float newY, float w, float h)
{
    setPosition(newX, newY);
    setSize(w, h);
}

void GUIComponent::update(float w, float h)
{
    for (auto it = children.rbegin(); it != children.rend(); ++it)
        (*it)->update(w, h);
}

void GUIComponent::draw(IRenderer& renderer)
{
    if (enabled)
        drawChildren(renderer);
}

void GUIComponent::drawChildren(IRenderer& renderer)
{
    for (auto it = children.rbegin(); it != children.rend(); ++it)
        (*it)->draw(renderer);
}

void GUIComponent::drawBevel(IRenderer& renderer, float bx, float by, float w, float h, float topLeftGrey,
                             float bottomRightGrey, float lineWidth)
{
    renderer.setTexturing(false);
    renderer.setColour(topLeftGrey, topLeftGrey, topLeftGrey, 255.0f);
    renderer.drawLine(bx, by, bx + w, by, lineWidth);
    renderer.drawLine(bx, by, bx, by - h, lineWidth);
    renderer.setColour(bottomRightGrey, bottomRightGrey, bottomRightGrey, 255.0f);
    renderer.drawLine(bx, by - h, bx + w, by - h, lineWidth);
    renderer.drawLine(bx + w, by, bx + w, by - h, lineWidth);
}

void GUIComponent::drawSunkenBevel(IRenderer& renderer, float bx, float by, float w, float h)
{
    drawBevel(renderer, bx, by, w, h, 0.0f, 192.0f, 1.0f);
}

void GUIComponent::drawBorder(IRenderer& renderer) { drawBevel(renderer, x, y, width, height, 192.0f, 0.0f, 1.0f); }

void GUIComponent::drawCentredText(IRenderer&, FontRenderer& font, const std::string& text, float bx, float by,
                                   float w, float h)
{
    const float oldScale = font.getScale();
    const std::string shown = fitLine(font, text, w);
    font.drawText(centredLeft(font, shown, bx, w), font.centredY(by, h, shown), shown);
    font.setScale(oldScale);
}

std::string GUIComponent::fitLine(FontRenderer& font, const std::string& text, float w)
{
    // A little smaller first, then cut with "...", so a long text never
    // spills onto its neighbours.
    const float room = std::max(0.0f, w - 2.0f * textMargin);
    const float scale = font.getScale();
    font.setScale(TextFit::fittingScale(font, text, room, scale, scale * smallestTextScale));
    return TextFit::elide(font, text, room);
}

float GUIComponent::centredLeft(FontRenderer& font, const std::string& text, float bx, float w)
{
    return std::max(bx + textMargin, bx + (w - TextFit::drawnWidth(font, text)) / 2.0f);
}

GUIComponent* GUIComponent::componentAt(float px, float py)
{
    if (!enabled || !contains(px, py))
        return nullptr;
    for (auto& c : children)
        if (GUIComponent* hit = c->componentAt(px, py))
            return hit;
    return this;
}

bool GUIComponent::contains(float px, float py) const
{
    return px >= x && px <= x + width && py >= y - height && py <= y;
}

bool GUIComponent::intersects(float ox, float oy, float w, float h) const
{
    return ox < x + width && ox + w > x && oy > y - height && oy - h < y;
}

void GUIComponent::mouseEnter()
{
    if (hovered)
        return;
    hovered = true;
    onMouseEnter();
}

void GUIComponent::mouseExit()
{
    if (!hovered)
        return;
    hovered = false;
    onMouseExit();
}

void GUIComponent::mouseDrag(float, float) {}

void GUIComponent::mouseDown(float, float, int) { pressed = true; }

void GUIComponent::mouseUp(float px, float py, int button)
{
    if (!pressed)
        return;
    pressed = false;
    if (hovered && enabled)
        clicked(px, py, button);
}

void GUIComponent::clicked(float, float, int) {}

void GUIComponent::keyDown(int symbol, int character, const std::string& keyName)
{
    if (parent) {
        parent->keyDown(symbol, character, keyName);
        return;
    }
    if (keyName == "ESCAPE")
        if (Game* g = Game::current())
            g->getInputManager().hideGUI();
}

void GUIComponent::keyUp(int symbol, int character, const std::string& keyName)
{
    if (parent)
        parent->keyUp(symbol, character, keyName);
}

GUIComponent* GUIComponent::findComponent(const std::string& wanted)
{
    if (wanted.empty())
        return nullptr;
    if (name == wanted)
        return this;
    for (auto& c : children)
        if (GUIComponent* found = c->findComponent(wanted))
            return found;
    return nullptr;
}

bool GUIComponent::isShown() const
{
    for (const GUIComponent* c = this; c; c = c->parent)
        if (!c->enabled)
            return false;
    return true;
}

bool GUIComponent::holds(const GUIComponent* c) const
{
    if (c == this)
        return true;
    for (const auto& child : children)
        if (child->holds(c))
            return true;
    return false;
}

FontRenderer* GUIComponent::textFont(IRenderer& renderer, const std::string& fontName, int size)
{
    FontRenderer* font = renderer.getFontRenderer();
    if (!font)
        return nullptr;
    // Glyphs are textured quads; bevels and borders leave texturing off.
    renderer.setTexturing(true);
    font->selectFont(fontName, size);
    return font;
}

void GUIComponent::playSound(const std::string& soundName)
{
    if (Game* g = Game::current())
        if (ISound* s = g->getSound())
            s->play(soundName, 0, 100);
}
