#pragma once
// A scalar that swings between two bounds: pulsing sky colours and fades.

class ColourCycler {
public:
    float minimum = 0.0f;
    float maximum = 0.0f;
    float current = 0.0f;
    float speed = 0.0f;
    bool rising = true;

    virtual ~ColourCycler() = default;

    virtual void setMin(float v) { minimum = v; }
    virtual void setMax(float v) { maximum = v; }
    // Moves by speed * dt; overshooting a bound clamps to it and turns round.
    virtual void update(float dt);
    virtual void setCurrent(float v) { current = v; }
    virtual void setRising(bool v) { rising = v; }
    virtual float getCurrent() const { return current; }
    virtual void setSpeed(float v) { speed = v; }
};
