#pragma once
// Invincibility: no damage taken for thirty seconds.
#include "gameplay/items/RespawnableBody.h"

class Invincibility : public RespawnableBody {
public:
    Invincibility();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
};
