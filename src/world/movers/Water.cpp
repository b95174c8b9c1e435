#include "world/movers/Water.h"

#include <cmath>

#include "core/Game.h"
#include "sound/ISound.h"

namespace {
constexpr int splashSound = 11;
constexpr float degrees = 3.14159265f / 180.0f;
}

Water::Water()
{
    type = "water";
    kind = 11;
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> Water::clone() const { return std::make_unique<Water>(); }

LiquidPhase& Water::phase()
{
    static LiquidPhase shared(true);
    return shared;
}

void Water::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (!other)
        return;
    if (!other->inliquidlastframe) {
        if (Game* game = Game::current())
            if (ISound* sound = game->getSound())
                sound->playIdAt(splashSound, other->renderpos, 0);
        startEffect("watersplash", Vector(other->pos.x, other->pos.y, other->pos.z + 0.2f));
    }
    other->inliquid = true;
    other->liquidfriction = liquidFriction;
}

bool Water::isLiquid() const { return true; }

void Water::liquidTextureMotion(float& offsetU, float& offsetV, float, float, float&, float&)
{
    const float a = phase().advanceWithGame() * degrees;
    offsetU = std::cos(10.0f * a);
    offsetV = std::sin(5.0f * a);
}
