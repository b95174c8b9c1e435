#include "world/movers/ExplodingBarrel.h"

#include <cmath>
#include <vector>

#include "core/Game.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "sound/ISound.h"
#include "world/geometry/Geometry.h"
#include "world/quadtree/QuadTree.h"

namespace {
constexpr int explosionSound = 0;
constexpr int tracerCount = 8;
constexpr float tracerLength = 32.0f;
}

ExplodingBarrel::ExplodingBarrel()
{
    type = "explodingbarrel";
    thinks = true;
    hasGlow = false;
    takedamage = true;
    health = 2;
    initialhealth = 2;
}

std::unique_ptr<Body> ExplodingBarrel::clone() const { return std::make_unique<ExplodingBarrel>(); }

void ExplodingBarrel::deathEffects() {}

void ExplodingBarrel::die()
{
    if (dying || inlimbo)
        return;
    if (!exploded) {
        exploded = true;
        // Dying first keeps the blast from hitting this barrel again through
        // a neighbour's chain reaction.
        dying = true;
        FireableWeapon::radialDamage(pos, blastRadius, blastForce, blastDamage, blastDamageType, this);
        dying = false;
        startEffect("explosionshock");
        startEffect("explosionfire");
        startEffect("explosionspark");
        Game* game = Game::current();
        ParticleManager* particles = game ? game->getParticleManager() : nullptr;
        for (int i = 0; particles && i < tracerCount; ++i) {
            ParticleSystem* streak = particles->createSystem("tracer");
            if (!streak)
                break;
            const Vector from(pos.x, pos.y, pos.z + 0.2f);
            const Vector to = from + randomDirection() * randomInRange(0.0f, tracerLength);
            streak->setEndpoints(from, to);
            streak->emitInitial();
        }
        if (game)
            if (ISound* sound = game->getSound())
                sound->playIdAt(explosionSound, pos, 0);
    }
    GameBody::die();
}
