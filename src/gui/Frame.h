#pragma once
// A movable window: a 30-pixel title bar to drag it by, a body for its
// widgets and a close button in the top-right corner. Escape or the close
// button hides it. The menus are frames.
#include <string>

#include "gui/GUIComponent.h"

class ImageButton;

class Frame : public GUIComponent {
public:
    static constexpr float titleHeight = 30.0f;

    Frame();

    void draw(IRenderer& renderer) override;
    // Keeps the close button in the top-right corner and remembers the size.
    void setBounds(float newX, float newY, float w, float h) override;
    // A press in the title bar starts a drag.
    void mouseDown(float px, float py, int button) override;
    void mouseUp(float px, float py, int button) override;
    // While dragged by the title bar the frame follows the mouse (SDL's dy
    // points down), staying inside its parent.
    void mouseDrag(float dx, float dy) override;
    // "ESCAPE" closes a shown frame; everything else goes to the parent.
    void keyDown(int symbol, int character, const std::string& keyName) override;

    // Hides the frame ("closeframe").
    virtual void close();
    // Called after the frame was closed by its button or Escape. Nothing here;
    // screens that tidy up on closing override it.
    virtual void onClose() {}
    // Back to the size last given by setBounds.
    virtual void restoreSize();

    void setTitle(const std::string& t) { title = t; }
    const std::string& getTitle() const { return title; }
    ImageButton* getCloseButton() const { return closeButton; }
    bool isBeingDragged() const { return titleDrag; }

private:
    void placeCloseButton();

    std::string title = "Test Frame";
    ImageButton* closeButton = nullptr;
    bool titleDrag = false;
    float rememberedWidth = 200.0f;
    float rememberedHeight = 200.0f;
};
