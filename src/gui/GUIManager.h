#pragma once
// The input target "gui": menus, option screens and cut-scene frames get the
// keyboard and mouse through it while the GUI has the input. It owns the
// widget tree under one root covering the window, finds the widget under the
// cursor, tracks hover, focus and dragging, forwards keys to the focused
// widget, and draws the tree and the mouse cursor in the 2D layer.
#include <memory>
#include <set>
#include <string>

#include "gui/GUIComponent.h"
#include "input/InputTarget.h"
#include "world/geometry/Vector.h"

class IGUIFactory;
class IRenderer;

class GUIManager : public InputTarget {
public:
    static constexpr const char* cursorImage = "data/gui/mouse3.png";
    static constexpr float cursorWidth = 16.0f;
    static constexpr float cursorHeight = 32.0f;

    GUIManager();
    ~GUIManager() override;

    // Hover follows the cursor; with a button held the focus widget is dragged.
    void mouseMove(float x, float y, float dx, float dy) override;
    // The widget under the cursor takes the focus and the press.
    void mouseDown(float x, float y, int button) override;
    // The widget under the cursor and, if another, the focus widget hear the release.
    void mouseUp(float x, float y, int button) override;
    // Keys go to the focus widget, which passes them up unless it uses them.
    void keyDown(int symbol, int character, const std::string& keyName) override;
    void keyUp(int symbol, int character, const std::string& keyName) override;
    // Gaining or losing the input toggles the screen named "maininterface".
    void activate() override;
    void deactivate() override;

    // The tree, then the cursor on top; only while the GUI is visible.
    // Called by the Game every frame inside 2D mode.
    void draw(IRenderer& renderer);
    // The root covers the new window and every widget hears the new size
    // (in interface units: window pixels divided by the interface scale).
    void setScreenSize(int w, int h);
    // The interface scale for a window: the wanted one (`uiscale`), held so
    // the window keeps at least 640 x 480 units, the room every screen is
    // laid out in, and never below 1.
    static float fittingScale(float wanted, int w, int h);
    float getScale() const { return scale; }
    // Ignored for null, for a component without a parent (the root) and for
    // the current focus. A focusable widget comes to the front of its parent.
    void setFocus(GUIComponent* component);
    GUIComponent* getFocus() const { return focus; }
    GUIComponent* getHovered() const { return hovered; }
    GUIComponent* findComponent(const std::string& wanted) { return root.findComponent(wanted); }
    GUIComponent& getRoot() { return root; }

    // A slot for the menus (the screen that opened the current one).
    GUIComponent* getSpare() const { return spare; }
    void setSpare(GUIComponent* component) { spare = component; }

    bool isVisible() const { return cursorVisible; }
    void setVisible(bool v) { cursorVisible = v; }
    bool isDragging() const { return dragging; }
    // True while a key-repeat press is being handed out: the key went down
    // earlier and has not come up yet.
    bool isKeyRepeat() const { return keyRepeat; }
    const Vector& getCursor() const { return cursor; }
    // The window in interface units.
    int getScreenWidth() const { return static_cast<int>(static_cast<float>(screenWidth) / scale); }
    int getScreenHeight() const { return static_cast<int>(static_cast<float>(screenHeight) / scale); }
    IGUIFactory& getFactory() { return *factory; }

private:
    // Hover and focus never point at a widget that left the tree.
    void dropStale();
    // Drops stale pointers and moves the cursor to window pixel (x, y).
    void placeCursor(float x, float y);
    // Enter and exit as the cursor moves onto `under` (or off everything).
    void hover(GUIComponent* under);
    // Who hears the keys: the focus, or its nearest shown ancestor.
    GUIComponent* keyTarget();

    GUIComponent root;
    GUIComponent* hovered = nullptr;
    GUIComponent* focus = &root;
    GUIComponent* spare = nullptr;
    Vector cursor;
    bool dragging = false;
    // Keys down while the GUI had the input, to tell repeats from presses.
    std::set<int> heldKeys;
    bool keyRepeat = false;
    bool cursorVisible = false;
    // Lays the tree out again when `uiscale` has changed.
    void followScale();

    int screenWidth = 0;
    int screenHeight = 0;
    float scale = 1.0f;
    std::unique_ptr<IGUIFactory> factory;
};
