#pragma once
// Hears a slider or scroll bar move: the list box follows its scroll bar and
// option screens follow their sliders through this.
class GUIComponent;

class SliderListener {
public:
    virtual ~SliderListener() = default;

    // Called by the slider whenever its value changes (drag or setValue),
    // while its notify flag is on.
    virtual void valueChanged(GUIComponent* source, float value) = 0;
};
