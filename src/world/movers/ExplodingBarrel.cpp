#include "world/movers/ExplodingBarrel.h"

#include <cmath>
#include <vector>

#include "core/Game.h"
#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "sound/ISound.h"
#include "world/geometry/Geometry.h"
#include "world/quadtree/QuadTree.h"

namespace {
constexpr int explosionSound = 0;
constexpr int tracerCount = 8;
constexpr float tracerLength = 32.0f;
// Velocity given at the centre of a blast per unit of force.
constexpr float blastPush = 400.0f;

// Area damage around a point, falling off linearly to nothing at the edge,
// with a push away from the centre. The weapons' radial damage does the same
// job for rockets and grenades; this is the barrel's own until both share one.
void areaBlast(GameBody& attacker, const Vector& centre, float radius, float force, int damage,
               int damageType)
{
    Game* game = Game::current();
    if (!game || radius <= 0.0f)
        return;
    std::vector<Body*> near;
    game->getQuadTree().withinRadius(centre, radius, near);
    for (Body* body : near) {
        if (body == &attacker || body->cancleanup)
            continue;
        Vector away(body->pos.x - centre.x, body->pos.y - centre.y);
        const float distance = std::sqrt(away.x * away.x + away.y * away.y);
        const float share = distance >= radius ? 0.0f : 1.0f - distance / radius;
        if (share <= 0.0f)
            continue;
        if (distance > 0.0f && body->isMovable()) {
            away.normalise();
            body->addVelocity(away * (force * blastPush * share));
        }
        if (auto* victim = dynamic_cast<GameBody*>(body)) {
            const int dealt = attacker.scaleDamage(static_cast<int>(std::ceil(damage * share)));
            victim->takeDamage(dealt, damageType);
        }
    }
}
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
        areaBlast(*this, pos, blastRadius, blastForce, blastDamage, blastDamageType);
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
