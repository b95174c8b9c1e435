#pragma once
// A health pack: heals the player unless already at full health.
#include "gameplay/items/RespawnableBody.h"

class Health : public RespawnableBody {
public:
    Health();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
    // Level-placed packs wait longer and heal more than the constructor's.
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
};
