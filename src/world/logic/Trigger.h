#pragma once
// An invisible touch trigger: the player walking into it fires its targets,
// then it re-arms after "untriggertimer" ms (never with "triggeronce").
#include "world/logic/TriggerBody.h"

class Trigger : public TriggerBody {
public:
    Trigger();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;

protected:
    // Whether the touching body may fire this trigger; the player here.
    virtual bool acceptsToucher(const TouchInfo& info) const;
};
