#pragma once
// Shared base of the race pieces the player drives through (start,
// checkpoint, end, reset, end block). Holds the trigger state level logic
// uses: a touch triggers the piece, and it re-arms "untriggertimer" ms later
// unless "triggeronce" is set. The checkers look shows red while triggered.
#include <map>
#include <string>

#include "world/gamebody/GameBody.h"

class DefaultGameplay;

class RaceTriggerBody : public GameBody {
public:
    static constexpr const char* idleImage = "data/images/checkers.png";
    static constexpr const char* triggeredImage = "data/images/checkersred.png";

    RaceTriggerBody();

    // "untriggertimer" and "triggeronce"; overrides call the base first.
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;

    // triggered := true; untriggerTime := now + untriggerTimer.
    void activate();
    // True when the contact's other body is the player.
    static bool touchedByPlayer(const TouchInfo& info);
    // The running controller, or null outside a game.
    static DefaultGameplay* gameplay();

    bool triggered = false;
    float untriggerTimer = 0.0f;
    bool triggerOnce = false;
    float untriggerTime = 0.0f;

protected:
    // The plain trigger think: re-arms once untriggerTime has passed. True
    // when it re-armed the body just now.
    bool triggerThink();
    // triggerThink with the checkers image following the state.
    bool checkersThink();
    // The attribute's value by case-insensitive name, or null.
    static const std::string* findAttribute(const std::map<std::string, std::string>& attrs,
                                            const std::string& name);
};
