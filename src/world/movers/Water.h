#pragma once
// Swimmable water: bodies inside move through liquid friction, and one
// falling in splashes. Its texture ripples.
#include "world/gamebody/GameBody.h"
#include "world/movers/LiquidPhase.h"

class Water : public GameBody {
public:
    static constexpr float liquidFriction = 0.8f;

    Water();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    bool isLiquid() const override;
    void liquidTextureMotion(float& offsetU, float& offsetV, float unusedA, float unusedB, float& scaleU,
                             float& scaleV) override;

    // Shared by every water body.
    static LiquidPhase& phase();
};
