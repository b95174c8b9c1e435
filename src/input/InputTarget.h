#pragma once
// Something that can hold the keyboard and mouse: the GUI, the console or the
// game. The InputManager hands every event to exactly one target, the current
// one, and keeps the target's copy of the mouse position up to date.
#include <string>

#include "world/geometry/Vector.h"

class InputTarget {
public:
    virtual ~InputTarget() = default;

    // Mouse moved to window pixel (x, y) by (dx, dy). Called by the
    // InputManager, inside 2D mode when getUses2D() is true. The base stores
    // the four values; overrides that keep them call the base first.
    virtual void mouseMove(float x, float y, float dx, float dy);
    // A mouse button (1 left, 2 middle, 3 right, 4/5 the wheel) went down at
    // window pixel (x, y). The base only logs left clicks.
    virtual void mouseDown(float x, float y, int button);
    // A mouse button came up. The base does nothing.
    virtual void mouseUp(float x, float y, int button);
    // A key went down: the SDL key symbol, its unicode character and its name
    // from data/keymaps.xml ("" when unnamed). The base does nothing.
    virtual void keyDown(int symbol, int character, const std::string& keyName);
    // A key came up. A release has no character: `character` repeats the
    // symbol. The base does nothing.
    virtual void keyUp(int symbol, int character, const std::string& keyName);
    // Whether mouse events should arrive inside the renderer's 2D mode.
    virtual bool getUses2D() const { return uses2D; }
    // The target has just lost the input (setTarget). The base does nothing.
    virtual void deactivate() {}
    // The target has just been given the input (setTarget). The base does nothing.
    virtual void activate() {}

    float getMouseX() const { return mouseX; }
    float getMouseY() const { return mouseY; }
    float getMouseDX() const { return mouseDX; }
    float getMouseDY() const { return mouseDY; }
    const Vector& getWorldMouse() const { return worldMouse; }
    const Vector& getScreenMouse() const { return screenMouse; }
    // The InputManager copies its mouse positions here before each motion.
    void setWorldMouse(const Vector& v) { worldMouse = v; }
    void setScreenMouse(const Vector& v) { screenMouse = v; }

protected:
    float mouseX = 0.0f;
    float mouseY = 0.0f;
    float mouseDX = 0.0f;
    float mouseDY = 0.0f;
    Vector worldMouse;
    Vector screenMouse;
    bool uses2D = false;
};
