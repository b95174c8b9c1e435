#pragma once
// A static tower that arcs lightning into a player it can see within 96
// units, half a second after spotting it. Its beam does 500 a hit, so the
// way past is to keep out of reach or to destroy it from afar.
#include <memory>

#include "gameplay/enemies/EnemyBase.h"

class LightningWeapon;

class ElectroTower : public EnemyBase {
public:
    static constexpr float reach = 96.0f;
    static constexpr float warmUpMillis = 500.0f;

    ElectroTower();
    ~ElectroTower() override;
    std::unique_ptr<Body> clone() const override;
    void think(float dt) override;
    // Ends the crackle as soon as the tower stops firing.
    void step(float dt) override;
    // The alert sound.
    void sightedChanged() override;
    // Explodes.
    void deathEffects() override;
    // The pulsing glow over the tower.
    void drawExtras(IRenderer& renderer) override;

    Vector aim{-1.0f, 0.0f};
    std::unique_ptr<LightningWeapon> weapon;
};
