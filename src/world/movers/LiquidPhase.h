#pragma once
// The slow wobble of a liquid's texture. One phase per liquid kind is shared
// by every body of that kind, so all the water in a level moves together; it
// advances once per level time however many bodies ask.
class LiquidPhase {
public:
    explicit LiquidPhase(bool forwards) : forwards(forwards) {}

    // The phase in degrees after advancing it for the level time `now` (ms)
    // by the frame time `frameSeconds`.
    float advance(float now, float frameSeconds);
    // The same for the running game's level time and frame time.
    float advanceWithGame();
    float value() const { return phase; }
    // Back to the level-start value (tests, level changes).
    void reset()
    {
        phase = -20.0f;
        lastTime = -1.0f;
    }

private:
    bool forwards;
    float phase = -20.0f;
    float lastTime = -1.0f;
};
