#pragma once
// A small health pack that comes back sooner.
#include "gameplay/items/Health.h"

class QuickHealth : public Health {
public:
    QuickHealth();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
};
