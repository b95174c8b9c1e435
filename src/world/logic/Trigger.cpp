#include "world/logic/Trigger.h"

Trigger::Trigger() { type = "trigger"; }

std::unique_ptr<Body> Trigger::clone() const { return std::make_unique<Trigger>(); }

bool Trigger::acceptsToucher(const TouchInfo& info) const { return touchedByPlayer(info); }

void Trigger::onTouch(TouchInfo& info)
{
    if (triggered || !acceptsToucher(info))
        return;
    activate();
    triggerTargets();
}
