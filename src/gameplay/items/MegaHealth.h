#pragma once
// Fills health to the maximum; glows with its own effect while it waits.
#include "gameplay/items/Health.h"

class MegaHealth : public Health {
public:
    MegaHealth();
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
    // The waiting glow starts on the first think while available (levels can
    // load before the effects do) and again on every respawn.
    void think(float dt) override;
    void respawn() override;

private:
    void startGlow();
    ParticleSystem* glowEffect = nullptr;
};
