#include "gameplay/enemies/EnemyBase.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include <tinyxml.h>

#include "core/Game.h"
#include "gameplay/items/CashPickup.h"
#include "gameplay/player/Player.h"
#include "sound/ISound.h"
#include "world/level/LevelValues.h"
#include "world/quadtree/QuadTree.h"
#include "world/quadtree/Ray.h"
#include "world/quadtree/TraceResults.h"

EnemyBase::EnemyBase()
{
    type = "enemybase";
    setImage("data/images/debugsmiley.tga");
    entity = true;
    thinks = true;
    thinkInterval = 100.0f;
    takedamage = true;
    gravitymultiplier = 0.0f;
    health = initialhealth = 50;
    setEnemy(true);
    hasGlow = true;
}

std::unique_ptr<Body> EnemyBase::clone() const { return std::make_unique<EnemyBase>(); }

void EnemyBase::applyLevel(int newLevel)
{
    setLevel(newLevel);
    setHealthForLevel(level);
}

void EnemyBase::setLevel(int newLevel) { level = std::clamp(newLevel, minLevel, maxLevel); }

void EnemyBase::setHealthForLevel(int) {}

void EnemyBase::setSighted(Body* body)
{
    if (body != sighted) {
        sightedChanged();
        sightedTime = now();
    }
    sighted = body;
}

void EnemyBase::clearSighted() { sighted = nullptr; }

void EnemyBase::sightedChanged() {}

void EnemyBase::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    bool hasLevel = false;
    bool hasHealth = false;
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "level")) {
            setLevel(readInt(value));
            hasLevel = true;
        } else if (sameName(name, "health")) {
            hasHealth = true;
        } else if (sameName(name, "cashchance")) {
            cashChance = std::clamp(readInt(value), 0, 100);
        } else if (sameName(name, "cashmin")) {
            cashMin = std::clamp(readInt(value), 0, maxCashDrop);
        } else if (sameName(name, "cashmax")) {
            cashMax = std::clamp(readInt(value), 0, maxCashDrop);
        }
    }
    // A placed enemy gets its level's health unless the mapper chose one.
    if (hasLevel && !hasHealth)
        setHealthForLevel(level);
}

void EnemyBase::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (element && element->Attribute("level"))
        setLevel(readInt(attributeText(element, "level")));
}

void EnemyBase::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (element)
        element->SetAttribute("level", writeInt(level));
}

bool EnemyBase::givesWayTo(const Body& other) const { return dynamic_cast<const Player*>(&other) != nullptr; }

void EnemyBase::deathEffects()
{
    GameBody::deathEffects();
    cashDropped = 0;
    if (!dropsCash)
        return;
    const int roll = std::rand() % 100 + 1;
    if (roll > cashChance)
        return;
    if (cashMin == 0 && cashMax == 0)
        return;
    const int spanCount = std::max(1, cashMax - cashMin + 1);
    cashDropped = cashMin + std::rand() % spanCount;
    CashPickup::spawnCash(pos, cashDropped, 150.0f, 200.0f);
}

void EnemyBase::die()
{
    const bool wasAlive = !dying && !inlimbo;
    GameBody::die();
    if (wasAlive)
        std::printf("Enemy %s (%s) died, dropping %d cash\n", type.c_str(), id.c_str(), cashDropped);
}

void EnemyBase::playSoundHere(int soundId) const
{
    Game* game = Game::current();
    if (ISound* sound = game ? game->getSound() : nullptr)
        sound->playIdAt(soundId, pos, 0);
}

void EnemyBase::reportAttack()
{
    if (attackReported)
        return;
    attackReported = true;
    std::printf("Enemy %s (%s) attacks\n", type.c_str(), id.c_str());
}

Player* EnemyBase::currentPlayer()
{
    Game* game = Game::current();
    return game ? dynamic_cast<Player*>(game->getPlayer()) : nullptr;
}

Player* EnemyBase::targetPlayer()
{
    Player* player = currentPlayer();
    if (!player || player->dead || player->notarget)
        return nullptr;
    return player;
}

bool EnemyBase::canSee(bool ignoreEnemies) const
{
    const Player* player = currentPlayer();
    return player && lineOfSight(*this, *player, ignoreEnemies);
}

bool EnemyBase::lineOfSight(const Body& viewer, const Body& target, bool ignoreEnemies)
{
    Game* game = Game::current();
    if (!game)
        return false;
    TraceResults results;
    game->getQuadTree().trace(Ray(viewer.pos, target.pos), results, true);
    QuadTree::sortResults(results);
    const bool viewerIsSwarm = viewer.type == "swarmmember";
    for (const TraceResult& hit : results.results) {
        const Body* body = hit.body;
        if (!body || body == &viewer)
            continue;
        if (body == &target && !(viewerIsSwarm && body == game->getPlayer()))
            return true;
        if (body->kind == 11 || body->kind == 12)
            continue;
        if (viewerIsSwarm && body == game->getPlayer())
            continue;
        // Doors are neutral GameBodies but must still block the view.
        if (body->type == "door" || body->type == "alphadoor")
            return false;
        if (const auto* other = dynamic_cast<const GameBody*>(body)) {
            if (!other->isEnemy() && !other->isPlayerSide())
                continue;
            if (ignoreEnemies && other->isEnemy())
                continue;
        }
        if (body->type == "detail")
            continue;
        return false;
    }
    return false;
}

void EnemyBase::steer(Vector& velocity, const Vector& direction, float accel, float maxSpeed)
{
    velocity.x += direction.x * accel * 0.2f;
    velocity.y += direction.y * accel;
    const float speed = velocity.length2D();
    if (speed > maxSpeed && speed > 0.0f) {
        const float scale = maxSpeed / speed;
        velocity.x *= scale;
        velocity.y *= scale;
    }
}

void EnemyBase::patrol(float now)
{
    if (now <= nextTurnTime)
        return;
    vel = Vector(patrolRight ? patrolSpeed : -patrolSpeed, 0.0f);
    patrolRight = !patrolRight;
    nextTurnTime = now + patrolPeriod;
}

void EnemyBase::setImage(const std::string& path)
{
    setTexture(path);
    textured = true;
}
