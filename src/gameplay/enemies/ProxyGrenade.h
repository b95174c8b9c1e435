#pragma once
// A proximity mine: it drops to the ground and blows up when anything that
// can be hurt (and is not another mine or notarget) comes within 96 units in
// plain view. Shooting it sets it off too.
#include "gameplay/enemies/EnemyBase.h"

class ProxyGrenade : public EnemyBase {
public:
    static constexpr float triggerRadius = 96.0f;
    static constexpr int blastDamage = 100;
    static constexpr float blastForce = 0.5f;
    static constexpr int blastDamageType = 512;

    ProxyGrenade();
    std::unique_ptr<Body> clone() const override;
    void think(float dt) override;
    // Explodes first when that has not happened yet, then the usual death.
    void die() override;
    // The blast makes the show; only the cash roll is left.
    void deathEffects() override;
    // The pulsing glow over the mine.
    void drawExtras(IRenderer& renderer) override;
    // The explosion: area blast and effects, once. die() runs it.
    virtual void specialAction();

    bool exploded = false;

private:
    // The first body close enough to set the mine off; null when none.
    GameBody* findVictim() const;
};
