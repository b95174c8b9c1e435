#include "world/logic/BatterySlot.h"

BatterySlot::BatterySlot() { type = "batteryslot"; }

std::unique_ptr<Body> BatterySlot::clone() const { return std::make_unique<BatterySlot>(); }

bool BatterySlot::acceptsToucher(const TouchInfo& info) const
{
    return info.other && info.other->type == "battery";
}
