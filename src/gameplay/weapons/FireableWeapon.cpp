#include "gameplay/weapons/FireableWeapon.h"

#include <cmath>
#include <cstdlib>
#include <vector>

#include "core/Game.h"
#include "gameplay/weapons/WeaponDefinitions.h"
#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "sound/ISound.h"
#include "world/gamebody/GameBody.h"
#include "world/quadtree/QuadTree.h"
#include "world/quadtree/Ray.h"
#include "world/quadtree/TraceResults.h"

namespace {
constexpr float pi = 3.14159265358979f;
// Enemy shots share one mixing channel so a crowd cannot drown the player's.
constexpr int enemyChannel = 2;

Vector unitTowards(const Vector& from, const Vector& to)
{
    Vector d(to.x - from.x, to.y - from.y);
    const float len = d.length2D();
    return len > 0.0f ? Vector(d.x / len, d.y / len) : Vector();
}

void push(GameBody& body, const Vector& from, float knockback)
{
    body.addVelocity(unitTowards(from, body.pos) * knockback);
}

TraceResults traceSegment(const Vector& from, const Vector& to)
{
    TraceResults results;
    if (Game* game = Game::current()) {
        game->getQuadTree().trace(Ray(from, to), results, true);
        QuadTree::sortResults(results);
    }
    return results;
}
}

bool FireableWeapon::fire(Body*, const Vector&, const Vector&, float) { return false; }

void FireableWeapon::stopFiring(float) {}

bool FireableWeapon::canFire(float time) const { return time >= nextFireTime; }

void FireableWeapon::reset() { nextFireTime = 0.0f; }

void FireableWeapon::applyDefinition() {}

int FireableWeapon::ammoAfterShot(int ammo) { return ammo - 1; }

float FireableWeapon::uniform(float lo, float hi)
{
    if (lo == 0.0f && hi == 0.0f)
        return 0.0f;
    return lo + (hi - lo) * static_cast<float>(std::rand() % 32768) / 32768.0f;
}

bool FireableWeapon::beginShot(float time)
{
    if (!canFire(time))
        return false;
    nextFireTime = time + delay;
    return true;
}

Vector FireableWeapon::muzzlePoint(Body* owner, const Vector& position, const Vector& aim)
{
    const float out = owner ? owner->radius - 4.0f : 0.0f;
    return position + aim * out;
}

int FireableWeapon::scaledDamage(Body* owner) const
{
    if (auto* g = dynamic_cast<GameBody*>(owner))
        return g->scaleDamage(damage);
    return damage;
}

Vector FireableWeapon::spreadPoint(const Vector& muzzle, const Vector& aim) const
{
    Vector far = muzzle + aim * range;
    Vector side(-aim.y, aim.x);
    const float len = side.length2D();
    if (len <= 0.0f)
        return far;
    side = side * (1.0f / len);
    const float r = uniform(-spread, spread);
    const float u = uniform(0.0f, 1.0f);
    return far + side * (r * std::sin(2.0f * pi * u));
}

namespace {
// Traces never stop at the shooter or at trigger-like bodies.
bool ignoredByTraces(Body* b, Body* owner)
{
    auto* g = dynamic_cast<GameBody*>(b);
    return !b || b == owner || (g && g->isTraceThrough());
}

// A shot reaching a GameBody: knockback away from the muzzle, then damage.
void strike(Body* b, const Vector& muzzle, float knockback, int damage, int damageType)
{
    auto* g = dynamic_cast<GameBody*>(b);
    if (!g)
        return;
    push(*g, muzzle, knockback);
    if (g->takedamage)
        g->takeDamage(damage, damageType);
}
}

FireableWeapon::Shot FireableWeapon::hitscan(Body* owner, const Vector& muzzle, const Vector& farPoint,
                                             float knockback, int damage, int damageType)
{
    Shot shot;
    shot.end = farPoint;
    for (const TraceResult& r : traceSegment(muzzle, farPoint).results) {
        if (ignoredByTraces(r.body, owner) || !r.body->solid)
            continue;
        shot.hit = r.body;
        shot.end = r.point;
        strike(r.body, muzzle, knockback, damage, damageType);
        break;
    }
    shot.end.z = muzzle.z;
    return shot;
}

FireableWeapon::Shot FireableWeapon::pierce(Body* owner, const Vector& muzzle, const Vector& farPoint,
                                            float knockback, int damage, int damageType)
{
    Shot shot;
    shot.end = farPoint;
    // Damage only marks a dying body for removal, so the results stay valid.
    for (const TraceResult& r : traceSegment(muzzle, farPoint).results) {
        if (ignoredByTraces(r.body, owner))
            continue;
        if (r.body->entity) {
            strike(r.body, muzzle, knockback, damage, damageType);
            continue;
        }
        if (r.body->solid) {
            shot.hit = r.body;
            shot.end = r.point;
            break;
        }
    }
    shot.end.z = muzzle.z;
    return shot;
}

void FireableWeapon::radialDamage(const Vector& centre, float radius, float force, int damage, int damageType,
                                  Body* attacker)
{
    Game* game = Game::current();
    if (!game || radius <= 0.0f)
        return;
    Vector c = centre;
    c.z -= 0.1f;
    std::vector<Body*> inRange;
    game->getQuadTree().withinRadius(c, radius, inRange);
    auto* attackerBody = dynamic_cast<GameBody*>(attacker);
    for (Body* b : inRange) {
        const Vector d = b->pos - c;
        const float dist = std::sqrt(d.x * d.x + d.y * d.y + d.z * d.z + d.w * d.w);
        if (dist > 0.0f) {
            Vector pushBy = d * (std::fabs(radius - dist) * (120.0f / radius) * force / dist);
            pushBy.y *= 1.5f;
            // The lowered centre only shapes the fall-off: a push out of the
            // plane would carry a body (a struck player) off its drawing depth.
            pushBy.z = 0.0f;
            pushBy.w = 0.0f;
            b->addVelocity(pushBy);
        }
        auto* g = dynamic_cast<GameBody*>(b);
        if (!g || b == attacker)
            continue;
        if (attackerBody && attackerBody->isPlayerSide() && g->isPlayerSide())
            continue;
        g->takeDamage(damage, damageType);
    }
}

ParticleSystem* FireableWeapon::effect(const std::string& name, const Vector& from, const Vector& to)
{
    Game* game = Game::current();
    ParticleManager* particles = game ? game->getParticleManager() : nullptr;
    ParticleSystem* system = particles ? particles->createSystem(name) : nullptr;
    if (!system)
        return nullptr;
    system->setEndpoints(from, to);
    system->emitInitial();
    return system;
}

void FireableWeapon::tracer(const Vector& muzzle, const Vector& end)
{
    const Vector dir = unitTowards(muzzle, end);
    const float total = muzzle.distance2D(end);
    const float s = uniform(0.0f, total / 2.0f);
    const float length = s < total / 4.0f ? uniform(48.0f, 108.0f) : uniform(32.0f, 96.0f);
    const Vector from = muzzle + dir * s;
    const Vector to = s + length > total ? end : from + dir * length;
    effect("tracer", raised(from, 0.2f), raised(to, 0.2f));
}

void FireableWeapon::bulletEffects(const Vector& muzzle, const Vector& end)
{
    effect("bullethit", raised(end, 0.2f));
    effect("spark", raised(end, 0.2f));
    tracer(muzzle, end);
}

void FireableWeapon::playShotSound(int soundId, const Vector& at) const
{
    Game* game = Game::current();
    ISound* sound = game ? game->getSound() : nullptr;
    if (!sound)
        return;
    if (enemyWeapon)
        sound->playIdOnChannelAt(soundId, enemyChannel, at, 0);
    else
        sound->playIdAt(soundId, at, 0);
}

void FireableWeapon::copyCommon(const std::string& element, bool withRange, bool withSpread)
{
    const WeaponDefinition* def = WeaponDefinitions::find(element);
    if (!def)
        return;
    damage = def->damage;
    delay = def->delay;
    knockback = def->knockback;
    if (withRange)
        range = def->range;
    if (withSpread)
        spread = def->spread;
}
