#pragma once
// Molten rock: as thick as water to move through, and it burns 10 health
// every 200 ms from anything that can be hurt. Its texture heaves.
#include "world/gamebody/GameBody.h"
#include "world/movers/LiquidPhase.h"

class Lava : public GameBody {
public:
    static constexpr int burnDamage = 10;
    static constexpr float burnInterval = 200.0f;

    Lava();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    void think(float dt) override;
    bool isLiquid() const override;
    void liquidTextureMotion(float& offsetU, float& offsetV, float unusedA, float unusedB, float& scaleU,
                             float& scaleV) override;

    static LiquidPhase& phase();
};
