#pragma once
// A horizontal slider: a grabber dragged along a track maps its position to a
// value between a minimum and a maximum. A click on the track jumps the
// grabber there; the wheel and the arrow keys step it. Scrollbar is the
// vertical kind.
#include <string>

#include "gui/GUIComponent.h"

class SliderListener;

class Slider : public GUIComponent {
public:
    static constexpr float grabberSize = 20.0f;

    Slider();

    void draw(IRenderer& renderer) override;
    // The grabber is part of the slider: hits land on the slider itself.
    GUIComponent* componentAt(float px, float py) override;
    // Ticks and starts a drag; a press beside the grabber jumps it there.
    // The wheel (buttons 4 and 5) steps the value instead.
    void mouseDown(float px, float py, int button) override;
    // Plays the release sound, then the base behaviour.
    void mouseUp(float px, float py, int button) override;
    // While pressed the grabber follows the motion along the track.
    void mouseDrag(float dx, float dy) override;
    // Arrow keys step the value; other keys go to the parent.
    void keyDown(int symbol, int character, const std::string& keyName) override;
    // Lays the grabber out again for the new box, keeping the value.
    void setBounds(float newX, float newY, float w, float h) override;

    virtual void setRange(float minimum, float maximum);
    virtual float getValue() const { return value; }
    // Clamped to the range; moves the grabber and tells the listener.
    virtual void setValue(float v);
    virtual void setNotify(bool on) { notify = on; }

    // Not owned; null for none.
    void setListener(SliderListener* l) { listener = l; }
    float getMinimum() const { return minimum; }
    float getMaximum() const { return maximum; }
    // How far one wheel notch or arrow key moves the value.
    void setStep(float s) { step = s; }
    float getStep() const { return step; }
    const GUIComponent& getGrabber() const { return *grabber; }

protected:
    // The grabber's travel along the track, in pixels.
    float travel() const;
    // Value from where the grabber stands now, clamped to the track.
    void valueFromGrabber();
    void placeGrabber();
    void tellListener();
    // Moves the grabber along the track by d pixels (towards the maximum).
    void slideGrabber(float d);

    GUIComponent* grabber = nullptr;
    float minimum = 0.0f;
    float maximum = 20.0f;
    float range = 20.0f;
    float value = 0.0f;
    float step = 1.0f;
    bool notify = true;
    bool vertical = false;
    SliderListener* listener = nullptr;
    std::string grabberImage = "data/gui/hgrabber.png";
};
