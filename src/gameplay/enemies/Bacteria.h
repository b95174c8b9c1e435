#pragma once
// A bacterium drifts at the player and bites on contact. Below level 4 it
// splits three seconds after first seeing the player: it grows a level and
// buds off a twin of the new level; the next split waits at least 2 s more.
#include "gameplay/enemies/BitingEnemy.h"

class Bacteria : public BitingEnemy {
public:
    static constexpr int topLevel = 4;
    static constexpr float sightRange = 290.0f;
    static constexpr float splitDelayMillis = 3000.0f;
    static constexpr float splitPauseMillis = 2000.0f;

    Bacteria();
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    void think(float dt) override;
    // Blood where it was hit, small.
    void showDamage() override;
    // The split, called by think once an armed split is due; nothing at the
    // top level. The twin goes straight into the world.
    virtual void specialAction();

    // When the armed split goes off; 0 while none is armed.
    float splitTime = 0.0f;
    // No split is armed before this.
    float nextSplitTime = 0.0f;
};
