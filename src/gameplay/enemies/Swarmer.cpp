#include "gameplay/enemies/Swarmer.h"

namespace {
struct SwarmerLevel {
    int attack;
    int health;
};
constexpr SwarmerLevel levels[2] = {{7, 10}, {15, 20}};
}

Swarmer::Swarmer()
{
    type = "swarmer";
    speed = 250.0f;
    setLevel(1);
    setHealthForLevel(1);
}

std::unique_ptr<Body> Swarmer::clone() const { return std::make_unique<Swarmer>(); }

void Swarmer::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    if (level > 2)
        return;
    attack = levels[level - 1].attack;
    setImage("data/images/swarmer" + std::to_string(level) + ".png");
}

void Swarmer::setHealthForLevel(int newLevel)
{
    if (newLevel < minLevel || newLevel > 2)
        return;
    health = initialhealth = levels[newLevel - 1].health;
}

void Swarmer::afterTargets()
{
    BitingEnemy::afterTargets();
    expireTime = now() + lifeMillis;
}

void Swarmer::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    if (now() > expireTime) {
        die();
        return;
    }
    chasePlayer(sightRange);
}
