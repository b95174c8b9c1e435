#include "gui/GUIManager.h"

#include <algorithm>
#include <cmath>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
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
            focus->mouseDrag(dx / scale, dy / scale);
    } else if (under && under == before) {
        under->mouseDrag(dx / scale, dy / scale);
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
        cursor = Vector(x / scale, (static_cast<float>(screenHeight) - y) / scale, 0.0f);
    else
        cursor = Vector(screenMouse.x / scale, screenMouse.y / scale, 0.0f);
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
    if (Game* g = Game::current()) {
        const Vector* mouse = g->getInputManager().getScreenMouse();
        cursor = Vector(mouse->x / scale, mouse->y / scale, 0.0f);
    }
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
    followScale();
    renderer.setInterfaceScale(scale);
    root.draw(renderer);
    renderer.setTexturing(true);
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    renderer.drawImage(cursor.x, cursor.y, 0.0f, cursorWidth, cursorHeight, cursorImage);
    renderer.setInterfaceScale(1.0f);
}

float GUIManager::fittingScale(float wanted, int w, int h)
{
    constexpr float roomW = 640.0f, roomH = 480.0f;
    const float room = std::min(static_cast<float>(w) / roomW, static_cast<float>(h) / roomH);
    if (!std::isfinite(wanted) || !(room >= 1.0f))
        return 1.0f;
    return std::min(std::clamp(wanted, 1.0f, 2.0f), room);
}

void GUIManager::followScale()
{
    const GameVar* wanted = findVar("uiscale");
    if (screenWidth > 0 && fittingScale(wanted ? wanted->floatValue : 1.0f, screenWidth, screenHeight) != scale)
        setScreenSize(screenWidth, screenHeight);
}

void GUIManager::setScreenSize(int w, int h)
{
    screenWidth = w;
    screenHeight = h;
    const GameVar* wanted = findVar("uiscale");
    const float before = scale;
    scale = fittingScale(wanted ? wanted->floatValue : 1.0f, w, h);
    // The cursor stays over the same spot of the window.
    cursor = Vector(cursor.x * before / scale, cursor.y * before / scale, 0.0f);
    const float unitsW = static_cast<float>(w) / scale;
    const float unitsH = static_cast<float>(h) / scale;
    root.setBounds(0.0f, unitsH, unitsW, unitsH);
    root.update(unitsW, unitsH);
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
