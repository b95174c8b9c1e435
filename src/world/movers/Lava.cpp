#include "world/movers/Lava.h"

#include <cmath>

#include "world/movers/Water.h"

namespace {
constexpr float degrees = 3.14159265f / 180.0f;
}

Lava::Lava()
{
    type = "lava";
    kind = 12;
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> Lava::clone() const { return std::make_unique<Lava>(); }

LiquidPhase& Lava::phase()
{
    static LiquidPhase shared(false);
    return shared;
}

void Lava::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (!other)
        return;
    other->inliquid = true;
    other->liquidfriction = Water::liquidFriction;
    auto* victim = dynamic_cast<GameBody*>(other);
    if (victim && victim->nextpaintime < now()) {
        victim->takeDamage(burnDamage, -1);
        victim->nextpaintime = now() + burnInterval;
    }
}

void Lava::think(float) {}

bool Lava::isLiquid() const { return true; }

void Lava::liquidTextureMotion(float& offsetU, float& offsetV, float, float, float& scaleU, float& scaleV)
{
    const float a = phase().advanceWithGame() * degrees;
    offsetU = std::cos(8.0f * a);
    offsetV = std::sin(8.0f * a);
    const float w = std::sin(a);
    scaleU = scaleV = w * (w >= 0.0f ? 0.5f : 0.15f) + 1.0f;
}
