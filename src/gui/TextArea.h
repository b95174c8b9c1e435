#pragma once
// A text view with a scroll bar on its right (grabber "data/gui/grabber.png")
// that follows the first visible line and can be dragged to scroll.
#include "gui/SliderListener.h"
#include "gui/TextView.h"

class Scrollbar;

class TextArea : public TextView, public SliderListener {
public:
    static constexpr float scrollbarWidth = 16.0f;

    TextArea();
    ~TextArea() override;

    // Keeps the scroll bar on the right edge.
    void setBounds(float newX, float newY, float w, float h) override;
    // The scroll bar moves with the first line.
    void scrollTo(int first) override;
    // The scroll bar was dragged.
    void valueChanged(GUIComponent* source, float value) override;

    Scrollbar& getScrollbar() { return *scrollbar; }

protected:
    float textWidth() const override;

private:
    Scrollbar* scrollbar = nullptr;
};
