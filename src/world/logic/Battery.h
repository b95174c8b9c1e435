#pragma once
// A glowing movable block the player pushes or carries into a battery slot.
#include "world/gamebody/GameBody.h"

class Battery : public GameBody {
public:
    Battery();
    std::unique_ptr<Body> clone() const override;
};
