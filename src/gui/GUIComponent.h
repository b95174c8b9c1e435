#pragma once
// The base of every widget: a box in window pixels (origin bottom left, y up,
// placed by its top-left corner, extending down to y - height) with owned
// children and action listeners. The GUIManager drives the event hooks; a
// widget handles what it understands and passes keys on to its parent.
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "gui/ActionListener.h"

class FontRenderer;
class IRenderer;

class GUIComponent {
public:
    GUIComponent() = default;
    GUIComponent(const GUIComponent&) = delete;
    GUIComponent& operator=(const GUIComponent&) = delete;
    // Deletes the children and the listeners.
    virtual ~GUIComponent();

    // Appends the child with its (x, y) taken as relative to this component's
    // top-left corner; the child (and its own children) move there.
    virtual GUIComponent* addChildRelative(std::unique_ptr<GUIComponent> child);
    // Appends the child where it stands.
    virtual GUIComponent* addChild(std::unique_ptr<GUIComponent> child);
    // Unlinks the child. With destroy it is deleted and null comes back;
    // otherwise the caller gets it. Null as well when it is not a child.
    virtual std::unique_ptr<GUIComponent> removeChild(GUIComponent* child, bool destroy);
    virtual void setParent(GUIComponent* newParent) { parent = newParent; }
    virtual GUIComponent* getParent() const { return parent; }
    // Makes the child the topmost, then asks this component's parent to do
    // the same for this component, so the whole chain comes forward.
    virtual void bringToFront(GUIComponent* child);

    // Takes ownership.
    virtual void addActionListener(std::unique_ptr<ActionListener> listener);
    // Unlinks and deletes it.
    virtual void removeActionListener(ActionListener* listener);
    // Every listener's actionPerformed, in the order they were added.
    virtual void fireAction(const std::string& command, GUIComponent* source);

    // Moves this component and everything below it.
    virtual void moveBy(float dx, float dy);
    virtual void moveChildrenBy(float dx, float dy);
    // Pulls the child back inside this box on each side it overflows; true
    // when it moved.
    virtual bool keepInside(GUIComponent* child);
    // Moves the top-left corner there; the children follow.
    virtual void setPosition(float newX, float newY);
    virtual void setSize(float w, float h);
    // setPosition then setSize. Widgets with parts to lay out override it
    // and call the base first.
    virtual void setBounds(float newX, float newY, float w, float h);
    // The window is (w, h) pixels now (GUIManager::setScreenSize). The base
    // passes it to the children, last to first.
    virtual void update(float w, float h);
    // Draws the children from last to first, so the first is on top, while
    // enabled. Widgets draw themselves and then call drawChildren.
    virtual void draw(IRenderer& renderer);
    // Sunken and raised bevels, lines of width 1 with texturing off.
    virtual void drawSunkenBevel(IRenderer& renderer, float bx, float by, float w, float h);
    virtual void drawBorder(IRenderer& renderer);
    // Text centred in the box (top-left bx, by) in the current colour and
    // font, shrunk or cut to fit its width.
    virtual void drawCentredText(IRenderer& renderer, FontRenderer& font, const std::string& text, float bx,
                                 float by, float w, float h);

    // The deepest enabled component under the point, front to back; null
    // when this one is disabled or the point lies outside.
    virtual GUIComponent* componentAt(float px, float py);
    virtual bool contains(float px, float py) const;
    virtual bool intersects(float ox, float oy, float w, float h) const;

    // The cursor came onto or left this component; the hooks run on change only.
    virtual void mouseEnter();
    virtual void mouseExit();
    // Hooks for mouseEnter and mouseExit. Nothing here.
    virtual void onMouseEnter() {}
    virtual void onMouseExit() {}
    // Mouse motion over the hovered component, or (while a button is held)
    // over the focus component, in SDL's relative units (dy down). Nothing here.
    virtual void mouseDrag(float dx, float dy);
    // A button went down on this component (x, y in 2D window pixels). The
    // base marks it pressed; overrides call it.
    virtual void mouseDown(float px, float py, int button);
    // A button came up. The base clears pressed and, when the press began
    // here and the cursor is still over an enabled component, calls clicked.
    virtual void mouseUp(float px, float py, int button);
    // A completed click. Nothing here.
    virtual void clicked(float px, float py, int button);
    // A key for the focused widget. The base passes it to the parent; at the
    // root, "ESCAPE" leaves the GUI for the game. Overrides pass on what they
    // do not use.
    virtual void keyDown(int symbol, int character, const std::string& keyName);
    virtual void keyUp(int symbol, int character, const std::string& keyName);
    // The GUIManager gives or takes the focus.
    virtual void setFocused(bool f) { focused = f; }
    virtual bool isFocused() const { return focused; }
    // True while this widget wants every mouse press, wherever it lands (a
    // key-binding box waiting for its key). Asked by the GUIManager.
    virtual bool capturesMouse() const { return false; }
    virtual void setName(const std::string& n) { name = n; }
    virtual const std::string& getName() const { return name; }
    // This if the name matches, else the first match below, depth first; null.
    virtual GUIComponent* findComponent(const std::string& wanted);
    // Show-or-hide hook for screens that switch themselves (the main
    // interface, when the GUI gains or loses the input). Nothing here.
    virtual void toggle() {}

    // Adds a child and hands it back as its own type.
    template <class T>
    T* add(std::unique_ptr<T> child)
    {
        T* raw = child.get();
        addChild(std::move(child));
        return raw;
    }
    template <class T>
    T* addRelative(std::unique_ptr<T> child)
    {
        T* raw = child.get();
        addChildRelative(std::move(child));
        return raw;
    }

    float getX() const { return x; }
    float getY() const { return y; }
    float getWidth() const { return width; }
    float getHeight() const { return height; }
    bool isEnabled() const { return enabled; }
    void setEnabled(bool e) { enabled = e; }
    // Enabled, and so is every component above it.
    bool isShown() const;
    bool isHovered() const { return hovered; }
    bool isPressed() const { return pressed; }
    bool isFocusable() const { return focusable; }
    void setFocusable(bool f) { focusable = f; }
    // Topmost first.
    const std::list<std::unique_ptr<GUIComponent>>& getChildren() const { return children; }
    // Whether c is this component or lies anywhere below it.
    bool holds(const GUIComponent* c) const;

protected:
    // The children, last to first, so the first ends on top.
    void drawChildren(IRenderer& renderer);
    // Four lines round a box: top and left in one grey, bottom and right in
    // another, texturing off.
    static void drawBevel(IRenderer& renderer, float bx, float by, float w, float h, float topLeftGrey,
                          float bottomRightGrey, float lineWidth);
    // Texturing on and the font selected, ready for text; null without a
    // font renderer.
    static FontRenderer* textFont(IRenderer& renderer, const std::string& fontName, int size);
    // The part of a line that fits a box of width w, at a scale it sets on
    // the font (at least smallestTextScale of the old one); the caller puts
    // the old scale back after drawing.
    static std::string fitLine(FontRenderer& font, const std::string& text, float w);
    // Left x of the text centred in the box, never left of its margin.
    static float centredLeft(FontRenderer& font, const std::string& text, float bx, float w);
    static constexpr float textMargin = 4.0f;
    static constexpr float smallestTextScale = 0.8f;
    // Plays a click sound by name through the game's sound system (loops 0,
    // volume 100); silent without a game.
    static void playSound(const std::string& soundName);

    GUIComponent* parent = nullptr;
    std::list<std::unique_ptr<GUIComponent>> children;
    std::vector<std::unique_ptr<ActionListener>> listeners;
    float x = 0.0f;
    float y = 0.0f;
    float width = 0.0f;
    float height = 0.0f;
    bool focusable = false;
    bool focused = false;
    bool enabled = true;
    bool hovered = false;
    bool pressed = false;
    std::string name;
};
