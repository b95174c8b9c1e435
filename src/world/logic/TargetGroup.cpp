#include "world/logic/TargetGroup.h"

TargetGroup::TargetGroup()
{
    type = "targetgroup";
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> TargetGroup::clone() const { return std::make_unique<TargetGroup>(); }

void TargetGroup::onTriggered(GameBody* activator)
{
    // Groups naming themselves or each other stop where the chain loops.
    if (passingTriggerOn)
        return;
    passingTriggerOn = true;
    const std::vector<Body*> targetsNow = targetList;
    for (Body* target : targetsNow)
        if (auto* gameTarget = dynamic_cast<GameBody*>(target))
            gameTarget->onTriggered(activator);
    passingTriggerOn = false;
}
