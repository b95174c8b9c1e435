#pragma once
// An objective the player has to destroy: a hard drive shows its health over
// its starting health ("80/100") at its top-left corner, explodes when it
// dies and is kept alive by engineers standing next to it.
#include "gameplay/enemies/EnemyBase.h"

class HardDrive : public EnemyBase {
public:
    HardDrive();
    std::unique_ptr<Body> clone() const override;
    void think(float dt) override;
    void deathEffects() override;
    // The health text.
    void drawExtras(IRenderer& renderer) override;
    // What drawExtras writes, e.g. "80/100".
    std::string healthText() const;
};
