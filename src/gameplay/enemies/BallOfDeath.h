#pragma once
// A killer ball shuttling between its start point and start + "openoffset"
// at "speed", resting "timeopen" ms at each end (a sliding door's motion
// that never waits for a trigger). Touching it costs the player 500 health.
#include "gameplay/enemies/EnemyBase.h"
#include "world/movers/SlideMotion.h"

class BallOfDeath : public EnemyBase, public SlideMotion {
public:
    static constexpr int touchDamage = 500;

    BallOfDeath();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    // Sets off from where the level put it.
    void afterTargets() override;
    void think(float dt) override;
    void step(float dt) override;
    void onTouch(TouchInfo& info) override;
};
