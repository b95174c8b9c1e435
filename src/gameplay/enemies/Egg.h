#pragma once
// An egg (laid by an egg layer or placed in a level) falls to the ground and
// waits. When a player it can see comes within 200 it cracks, and a second
// later five swarmers of its level hatch from it and the egg is gone.
#include "gameplay/enemies/EnemyBase.h"

class Egg : public EnemyBase {
public:
    static constexpr float crackRange = 200.0f;
    static constexpr float hatchDelayMillis = 1000.0f;
    static constexpr int broodSize = 5;

    Egg();
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    void think(float dt) override;
    // Blood burst and gibs of a violent death, then the cash roll.
    void deathEffects() override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    // The hatching: five swarmers of the egg's level around it. Called by
    // think when the hatch time has passed; the egg then dies.
    virtual void specialAction();

    bool cracked = false;
    float hatchTime = 0.0f;

private:
    // The whole or the cracked shell for the current level.
    void showShell();
};
