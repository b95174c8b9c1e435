#pragma once
// The trigger state shared by the level-logic bodies that a touch or a
// target fires (triggers, switches, checkpoints, message bodies, sky
// transitions, the race pieces): activating marks the body triggered, and its
// think re-arms it "untriggertimer" ms later unless "triggeronce" is set.
#include <map>
#include <string>

#include "world/gamebody/GameBody.h"

class TriggerBody : public GameBody {
public:
    TriggerBody();

    // "untriggertimer" and "triggeronce"; overrides call the base first.
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    // The trigger think; overrides call the base (or triggerThink).
    void think(float dt) override;

    // triggered := true; untriggerTime := now + untriggerTimer.
    void activate();
    // True when the contact's other body is the player.
    static bool touchedByPlayer(const TouchInfo& info);

    bool triggered = false;
    float untriggerTimer = 0.0f;
    bool triggerOnce = false;
    float untriggerTime = 0.0f;

protected:
    // Re-arms once untriggerTime has passed; true when it re-armed just now.
    bool triggerThink();
};
