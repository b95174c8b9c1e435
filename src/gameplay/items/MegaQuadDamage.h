#pragma once
// Mega quad: eight times the damage for thirty seconds.
#include "gameplay/items/RespawnableBody.h"

class MegaQuadDamage : public RespawnableBody {
public:
    MegaQuadDamage();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
};
