#pragma once
// A walking bomb. Once it has watched the player for half a second it flies
// at it; it blows up when the player gets within its blast distance, or two
// seconds after the player first came within its trigger range.
#include "gameplay/enemies/EnemyBase.h"

class KamikazeGrunt : public EnemyBase {
public:
    static constexpr float engageRange = 290.0f;
    static constexpr float chargeDelay = 500.0f;
    static constexpr float fuseMillis = 2000.0f;

    KamikazeGrunt();
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    void think(float dt) override;
    // Explodes first (once), then dies as any enemy.
    void die() override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    // The blast: area damage of type 512 over the trigger range, with the
    // explosion's effects and sound. Runs once; think then kills the body.
    virtual void specialAction();

    float triggerRange = 64.0f;
    float blastDistance = 44.8f;
    int blastDamage = 50;
    // Level time the fuse burns out; 0 while it is not lit.
    float fuseTime = 0.0f;
    bool exploded = false;
};
