#pragma once
// Wipes the screen: every enemy nearby takes a crushing blow.
#include "gameplay/items/RespawnableBody.h"

class ScreenWiper : public RespawnableBody {
public:
    ScreenWiper();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;

    static constexpr float wipeRadius = 350.0f;
    static constexpr int wipeDamage = 500;
};
