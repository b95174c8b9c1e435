#include "gameplay/enemies/SwarmMember.h"

#include <tinyxml.h>

#include <algorithm>

#include "core/Game.h"
#include "gameplay/enemies/EnemyBase.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/MeleeWeapon.h"
#include "world/geometry/BRect.h"
#include "world/level/LevelValues.h"

SwarmMember::SwarmMember() : weapon(std::make_unique<MeleeWeapon>())
{
    type = "swarmmember";
    setTexture("data/images/swarmmember.png");
    textured = true;
    entity = true;
    thinks = true;
    thinkInterval = 100.0f;
    takedamage = true;
    gravitymultiplier = 0.0f;
    setMass(10.0f);
    health = initialhealth = 50;
    hasGlow = true;
    setPlayerSide(true);
    weapon->enemyWeapon = false;
    weapon->delay = 1000.0f;
    weapon->damage = 5;
    weapon->radius = 32.0f;
}

SwarmMember::~SwarmMember() = default;

std::unique_ptr<Body> SwarmMember::clone() const { return std::make_unique<SwarmMember>(); }

void SwarmMember::startLife() { deathtime = now() + lifetime; }

GameBody* SwarmMember::nearestVisibleEnemy(const Body& viewer, float range)
{
    Game* game = Game::current();
    if (!game)
        return nullptr;
    GameBody* best = nullptr;
    float bestDist = range;
    for (Body* body : game->getBodies()) {
        auto* g = dynamic_cast<GameBody*>(body);
        if (!g || g == &viewer || !g->isEnemy() || g->dying || g->inlimbo || g->cancleanup)
            continue;
        const float dist = (g->pos - viewer.pos).length2D();
        if (dist < bestDist && EnemyBase::lineOfSight(viewer, *g, false)) {
            best = g;
            bestDist = dist;
        }
    }
    return best;
}

void SwarmMember::think(float dt)
{
    GameBody::think(dt);
    if (inlimbo || dying)
        return;
    const float t = now();
    // Level files and old saves give no life end: the clock starts now.
    if (deathtime <= 0.0f)
        startLife();
    if (t > deathtime) {
        die();
        return;
    }
    if (GameBody* enemy = nearestVisibleEnemy(*this, huntRange)) {
        const Vector d = enemy->pos - pos;
        const float dist = d.length2D();
        if (dist > 16.0f)
            EnemyBase::steer(vel, Vector(d.x / dist, d.y / dist), accel, accel);
        const bool objective = enemy->type == "harddrive" || enemy->type == "cpu";
        // Objectives are bigger than the bite: measure to their edge, or a
        // member pressed against one could never reach it.
        float gap = dist;
        if (objective) {
            const BRect& box = *enemy->bounds;
            const Vector edge(std::clamp(pos.x, box.minX, box.maxX), std::clamp(pos.y, box.minY, box.maxY));
            gap = (edge - pos).length2D();
        }
        const float strike = weapon->radius + (objective ? 0.0f : reach);
        // The bite lands on the target: the reach is the swarm's lunge.
        if (gap < strike)
            weapon->fire(this, enemy->pos, Vector(), t);
        return;
    }
    Player* player = EnemyBase::currentPlayer();
    if (!player)
        return;
    const Vector d = player->pos - pos;
    const float dist = d.length2D();
    if (dist > followNear && dist < huntRange)
        EnemyBase::steer(vel, Vector(d.x / dist, d.y / dist), accel, accel);
}

bool SwarmMember::collidesWith(Body* other)
{
    if (!other)
        return true;
    if (other->type == "swarmmember" || other == EnemyBase::currentPlayer())
        return false;
    return Body::collidesWith(other);
}

void SwarmMember::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    lifetime = readFloat(attributeText(element, "lifetime"));
    deathtime = readFloat(attributeText(element, "deathtime"));
}

void SwarmMember::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("lifetime", writeFloat(lifetime));
    element->SetAttribute("deathtime", writeFloat(deathtime));
}
