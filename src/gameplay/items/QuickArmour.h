#pragma once
// A small armour shard that comes back quickly.
#include "gameplay/items/RespawnableBody.h"

class QuickArmour : public RespawnableBody {
public:
    QuickArmour();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
};
