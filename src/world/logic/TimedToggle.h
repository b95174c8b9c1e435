#pragma once
// The on/off state that level logic flips and that flips itself back
// "reverttimer" ms later (pain zones, switchable particle effects). While a
// flip waits to revert, further firings are ignored; with reverttimer 0 a
// flip is for good.
class TiXmlElement;

class TimedToggle {
public:
    // Flips unless a flip is still waiting to revert; true when it flipped.
    bool toggle(float now);
    // Flips back once the revert time has passed; true when it flipped.
    bool revert(float now);
    // "wastriggered" and "reverttime" of saved games.
    void readToggleState(TiXmlElement* element);
    void writeToggleState(TiXmlElement* element) const;

    bool on = false;
    float reverttimer = 0.0f;
    bool wastriggered = false;
    float reverttime = 0.0f;
};
