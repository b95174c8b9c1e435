#include "gameplay/enemies/Bacteria.h"

#include <cstdio>

#include "core/Game.h"
#include "gameplay/enemies/EnemyEffects.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "world/geometry/Geometry.h"

namespace {
// The wet burst of a hatching egg, not the click of a wall switch.
constexpr int splitSound = 41;

struct BacteriaLevel {
    int attack;
    int health;
};
constexpr BacteriaLevel levels[Bacteria::topLevel] = {{5, 140}, {6, 145}, {8, 150}, {10, 160}};
}

Bacteria::Bacteria()
{
    type = "bacteria";
    speed = 250.0f;
    setLevel(1);
    setHealthForLevel(1);
}

std::unique_ptr<Body> Bacteria::clone() const { return std::make_unique<Bacteria>(); }

void Bacteria::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    if (level > topLevel)
        return;
    attack = levels[level - 1].attack;
    setImage("data/images/bacteria" + std::to_string(level) + ".png");
}

void Bacteria::setHealthForLevel(int newLevel)
{
    if (newLevel < minLevel || newLevel > topLevel)
        return;
    health = initialhealth = levels[newLevel - 1].health;
}

void Bacteria::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    const float t = now();
    if (chasePlayer(sightRange) && level < topLevel && splitTime == 0.0f && nextSplitTime < t)
        splitTime = t + splitDelayMillis;
    if (splitTime != 0.0f && splitTime < t) {
        splitTime = 0.0f;
        nextSplitTime = t + splitPauseMillis;
        specialAction();
    }
}

void Bacteria::showDamage() { startEffect("debugbloodsmall"); }

void Bacteria::specialAction()
{
    if (level >= topLevel)
        return;
    EnemyEffects::sound(splitSound, pos);
    applyLevel(level + 1);
    std::printf("Bacteria %s split at level %d\n", id.c_str(), level);
    Game* game = Game::current();
    if (!game)
        return;
    auto* twin = new Bacteria();
    twin->makeRectangle(16.0f, 16.0f);
    twin->applyLevel(level);
    twin->vel = Vector();
    twin->setPosition(pos + randomDirection() * FireableWeapon::uniform(16.0f, 20.0f));
    twin->transform();
    twin->updateBounds();
    twin->afterTargets();
    twin->afterAssembly();
    game->spawnBody(twin);
}
