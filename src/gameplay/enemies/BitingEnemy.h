#pragma once
// The small creatures that hurt by contact (bacteria and swarmers): a player
// touching one is bitten for its attack value at most every 500 ms, and the
// biter stops dead. They die in a small burst of blood.
#include "gameplay/enemies/EnemyBase.h"

class BitingEnemy : public EnemyBase {
public:
    static constexpr float biteMillis = 500.0f;

    BitingEnemy();
    std::unique_ptr<Body> clone() const override;
    // The bite.
    void onTouch(TouchInfo& info) override;
    // The small blood burst, then the cash roll.
    void deathEffects() override;

    int attack = 0;
    float nextBiteTime = 0.0f;
    float speed = 250.0f;

protected:
    // Steers at the player when it is a target within `range` and in plain
    // view past other enemies; true when it did.
    bool chasePlayer(float range);
};
