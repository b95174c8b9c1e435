#pragma once
// Fans one event out to many bodies: everything in its target list is fired
// with the activator the group itself received, so targets see who started
// the chain (the switch), not the group.
#include "world/gamebody/GameBody.h"

class TargetGroup : public GameBody {
public:
    TargetGroup();
    std::unique_ptr<Body> clone() const override;
    void onTriggered(GameBody* activator) override;
};
