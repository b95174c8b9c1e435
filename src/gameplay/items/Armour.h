#pragma once
// Armour plates: add armour unless the player is already at the maximum.
#include "gameplay/items/RespawnableBody.h"

class Armour : public RespawnableBody {
public:
    Armour();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
    // Level-placed armour waits longer and gives 50.
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
};
