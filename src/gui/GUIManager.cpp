#include "gui/GUIManager.h"

#include "core/Game.h"
#include "gui/DefaultGUIFactory.h"
#include "input/InputManager.h"
#include "render/IRenderer.h"

GUIManager::GUIManager() : factory(std::make_unique<DefaultGUIFactory>())
{
    uses2D = true;
    root.setBounds(64.0f, 500.0f, 1000.0f, 1000.0f);
    root.setName("root");
}

GUIManager::~GUIManager() = default;

void GUIManager::dropStale()
{
    if (hovered && !root.holds(hovered))
        hovered = nullptr;
    if (!root.holds(focus))
        focus = &root;
    if (spare && !root.holds(spare))
        spare = nullptr;
}

void GUIManager::mouseMove(float x, float y, float dx, float dy)
{
    InputTarget::mouseMove(x, y, dx, dy);
    placeCursor(x, y);
    GUIComponent* under = root.componentAt(cursor.x, cursor.y);
    const GUIComponent* before = hovered;
    hover(under);
    if (dragging) {
        if (focus)
            focus->mouseDrag(dx, dy);
    } else if (under && under == before) {
        under->mouseDrag(dx, dy);
    }
}

void GUIManager::hover(GUIComponent* under)
{
    if (under)
        under->mouseEnter();
    if (hovered && hovered != under)
        hovered->mouseExit();
    hovered = under;
}

void GUIManager::placeCursor(float x, float y)
{
    dropStale();
    // Window rows count down; the widgets count up from the bottom.
    if (screenHeight > 0)
        cursor = Vector(x, static_cast<float>(screenHeight) - y, 0.0f);
    else
        cursor = screenMouse;
}

void GUIManager::mouseDown(float x, float y, int button)
{
    InputTarget::mouseDown(x, y, button);
    placeCursor(x, y);
    // The GUI may have opened under a still mouse: what the press lands on
    // is hovered now, not at the next motion.
    hover(root.componentAt(cursor.x, cursor.y));
    // A widget waiting for a binding takes any press, wherever it lands.
    GUIComponent* target = focus && focus->capturesMouse() ? focus : root.componentAt(cursor.x, cursor.y);
    if (target) {
        setFocus(target);
        target->mouseDown(cursor.x, cursor.y, button);
    }
    dragging = true;
}

void GUIManager::mouseUp(float x, float y, int button)
{
    InputTarget::mouseUp(x, y, button);
    placeCursor(x, y);
    GUIComponent* under = root.componentAt(cursor.x, cursor.y);
    if (under)
        under->mouseUp(cursor.x, cursor.y, button);
    // mouseUp may have closed or rebuilt part of the tree.
    dropStale();
    if (focus && focus != under)
        focus->mouseUp(cursor.x, cursor.y, button);
    dragging = false;
}

void GUIManager::keyDown(int symbol, int character, const std::string& keyName)
{
    dropStale();
    keyRepeat = !heldKeys.insert(symbol).second;
    keyTarget()->keyDown(symbol, character, keyName);
    keyRepeat = false;
}

void GUIManager::keyUp(int symbol, int character, const std::string& keyName)
{
    dropStale();
    heldKeys.erase(symbol);
    keyTarget()->keyUp(symbol, character, keyName);
}

GUIComponent* GUIManager::keyTarget()
{
    // A hidden widget keeps no keys: the nearest shown frame around it takes
    // them (a cut scene whose back arrow just hid itself still hears Escape).
    GUIComponent* target = focus ? focus : &root;
    while (target != &root && target->getParent() && !target->isShown())
        target = target->getParent();
    return target->isShown() ? target : &root;
}

void GUIManager::activate()
{
    // The mouse moved while another target had it: the cursor starts where it is now.
    if (Game* g = Game::current())
        cursor = *g->getInputManager().getScreenMouse();
    if (GUIComponent* main = root.findComponent("maininterface"))
        main->toggle();
}

void GUIManager::deactivate()
{
    // Their releases go to another target now.
    heldKeys.clear();
    if (GUIComponent* main = root.findComponent("maininterface"))
        main->toggle();
}

void GUIManager::draw(IRenderer& renderer)
{
    if (!cursorVisible)
        return;
    root.draw(renderer);
    renderer.setTexturing(true);
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    renderer.drawImage(cursor.x, cursor.y, 0.0f, cursorWidth, cursorHeight, cursorImage);
}

void GUIManager::setScreenSize(int w, int h)
{
    screenWidth = w;
    screenHeight = h;
    root.setBounds(0.0f, static_cast<float>(h), static_cast<float>(w), static_cast<float>(h));
    root.update(static_cast<float>(w), static_cast<float>(h));
}

void GUIManager::setFocus(GUIComponent* component)
{
    if (!component || !component->getParent() || component == focus)
        return;
    if (focus)
        focus->setFocused(false);
    focus = component;
    GUIComponent* parent = component->getParent();
    if (component->isFocusable()) {
        parent->bringToFront(component);
        component->setFocused(true);
    } else if (GUIComponent* grand = parent->getParent()) {
        // A click on a label still raises the frame it sits in.
        grand->bringToFront(parent);
    }
}
