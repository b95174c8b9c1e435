#pragma once
// Quad damage: four times the damage for thirty seconds.
#include "gameplay/items/RespawnableBody.h"

class QuadDamage : public RespawnableBody {
public:
    QuadDamage();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
};
