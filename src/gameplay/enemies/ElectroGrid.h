#pragma once
// An electric grid: a polygon that is on (visible, outlined, hurting a
// player or swarm member that touches it) or off (invisible, harmless),
// switching every "timeon" / "timeoff" ms. A time of 0 holds that phase for
// good; a trigger restarts the running phase, once per phase.
#include "world/gamebody/GameBody.h"

class ElectroGrid : public GameBody {
public:
    static constexpr int fatalDamage = 10000;
    static constexpr float hearingRange = 512.0f;

    ElectroGrid();
    std::unique_ptr<Body> clone() const override;
    // "on", "pain", "timeon", "timeoff", "fatal".
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void think(float dt) override;
    void onTriggered(GameBody* activator) override;
    void onTouch(TouchInfo& info) override;
    // The bright outline along the polygon.
    void drawExtras(IRenderer& renderer) override;

    bool on = false;
    int pain = 0;
    float switchTime = 0.0f;
    float timeOn = 0.0f;
    float timeOff = 0.0f;
    bool wasTriggered = false;
    bool fatal = false;

private:
    // Visibility and vertex colours for the current phase.
    void showPhase();
    void playNearPlayer(int soundId) const;
};
