#pragma once
// A trigger only a battery can fire: the player has to push or carry a
// battery into it. The battery stays where it is.
#include "world/logic/Trigger.h"

class BatterySlot : public Trigger {
public:
    BatterySlot();
    std::unique_ptr<Body> clone() const override;

protected:
    bool acceptsToucher(const TouchInfo& info) const override;
};
