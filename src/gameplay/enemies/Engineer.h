#pragma once
// An engineer keeps hard drives and CPUs alive: it flies to the nearest one
// within 300 and, once within 64, gives it 50 health every 500 ms with
// sparks and a repair sound while the player is near. It never patrols.
#include "gameplay/enemies/EnemyBase.h"

class Engineer : public EnemyBase {
public:
    static constexpr float searchRadius = 300.0f;
    static constexpr float repairDistance = 64.0f;
    static constexpr int repairAmount = 50;
    static constexpr float repairMillis = 500.0f;

    Engineer();
    std::unique_ptr<Body> clone() const override;
    void think(float dt) override;
    // The nearest hard drive or CPU within the search radius; the first
    // found wins a tie. Null when there is none.
    GameBody* findRepairTarget() const;

    float nextRepairTime = 0.0f;
    float nextEffectTime = 0.0f;
    bool repairing = false;
};
