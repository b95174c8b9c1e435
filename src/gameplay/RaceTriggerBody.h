#pragma once
// Shared base of the race pieces the player drives through (start,
// checkpoint, end, reset, end block). Holds the trigger state level logic
// uses: a touch triggers the piece, and it re-arms "untriggertimer" ms later
// unless "triggeronce" is set. The checkers look shows red while triggered.
#include <map>
#include <string>

#include "world/logic/TriggerBody.h"

class DefaultGameplay;

class RaceTriggerBody : public TriggerBody {
public:
    static constexpr const char* idleImage = "data/images/checkers.png";
    static constexpr const char* triggeredImage = "data/images/checkersred.png";

    // The running controller, or null outside a game.
    static DefaultGameplay* gameplay();

protected:
    // triggerThink with the checkers image following the state.
    bool checkersThink();
    // The attribute's value by case-insensitive name, or null.
    static const std::string* findAttribute(const std::map<std::string, std::string>& attrs,
                                            const std::string& name);
};
