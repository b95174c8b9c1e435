#pragma once
// Cash: counts towards the automatic upgrades. Taken for good.
#include "gameplay/items/RespawnableBody.h"

class CashPickup : public RespawnableBody {
public:
    CashPickup();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;

    // `count` coins of 1 thrown from `position` at random speeds (enemy deaths).
    static void spawnCash(const Vector& position, int count, float speedMin, float speedMax);
};
