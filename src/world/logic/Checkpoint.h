#pragma once
// Saves the game where the player passes: floating "Checkpoint" text, a HUD
// line and a save at the start of the next frame. Targets can also force a
// checkpoint (without arming it).
#include "world/logic/Trigger.h"

class Checkpoint : public Trigger {
public:
    Checkpoint();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    void onTriggered(GameBody* activator) override;

private:
    void checkpointAction();
};
