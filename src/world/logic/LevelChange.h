#pragma once
// A level exit: the player touching it moves on to "leveltarget" (entering at
// "targetspawn") or plays a cut scene, after noting the level time in
// leveltimes.txt when "recordleveltimes" is on.
#include "world/gamebody/GameBody.h"

class LevelChange : public GameBody {
public:
    LevelChange();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void onTouch(TouchInfo& info) override;
    void afterTargets() override;

    std::string leveltarget;
    std::string targetspawn;
    bool iscutscene = false;
    std::string cutscene;

private:
    void recordLevelTime();
};
