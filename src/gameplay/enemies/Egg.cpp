#include "gameplay/enemies/Egg.h"

#include <cstdio>

#include <tinyxml.h>

#include "core/Game.h"
#include "gameplay/enemies/EnemyEffects.h"
#include "gameplay/enemies/Swarmer.h"
#include "gameplay/player/Player.h"
#include "gameplay/projectiles/Gib.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "world/geometry/Geometry.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int crackSound = 40;
constexpr int hatchSound = 41;
constexpr int healthByLevel[2] = {200, 250};
}

Egg::Egg()
{
    type = "egg";
    thinkInterval = 50.0f;
    gravitymultiplier = 1.0f;
    vel = Vector();
    setLevel(1);
    setHealthForLevel(1);
}

std::unique_ptr<Body> Egg::clone() const { return std::make_unique<Egg>(); }

void Egg::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    if (level <= 2)
        showShell();
}

void Egg::setHealthForLevel(int newLevel)
{
    if (newLevel < minLevel || newLevel > 2)
        return;
    health = initialhealth = healthByLevel[newLevel - 1];
}

void Egg::showShell()
{
    const int shown = level <= 2 ? level : 2;
    setImage(std::string("data/images/egg") + (cracked ? "cracked" : "") + std::to_string(shown) + ".png");
}

void Egg::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    const float t = now();
    if (!cracked) {
        Player* player = targetPlayer();
        if (player && pos.distance2D(player->pos) < crackRange && canSee(true)) {
            cracked = true;
            showShell();
            EnemyEffects::sound(crackSound, pos);
            hatchTime = t + hatchDelayMillis;
        }
    } else if (hatchTime < t) {
        specialAction();
        die();
    }
}

void Egg::specialAction()
{
    Game* game = Game::current();
    if (!game)
        return;
    for (int i = 0; i < broodSize; ++i) {
        auto* swarmer = new Swarmer();
        swarmer->makeRectangle(8.0f, 8.0f);
        swarmer->applyLevel(level);
        swarmer->vel = Vector();
        swarmer->setPosition(pos + randomDirection() * FireableWeapon::uniform(2.0f, 8.0f));
        swarmer->transform();
        swarmer->updateBounds();
        swarmer->afterTargets();
        swarmer->afterAssembly();
        game->spawnBody(swarmer);
    }
    EnemyEffects::sound(hatchSound, pos);
    std::printf("Egg %s hatched %d swarmers\n", id.c_str(), broodSize);
}

void Egg::deathEffects()
{
    if (showdamage)
        startEffect("debugbloodexplosion");
    if (gibbable && health < -10)
        Gib::spawnGibs(pos, 100.0f, 200.0f, 8.0f, 10.0f);
    EnemyEffects::cashRollOnly(*this);
}

void Egg::readState(TiXmlElement* element)
{
    EnemyBase::readState(element);
    if (!element)
        return;
    cracked = readBool(attributeText(element, "cracked"));
    hatchTime = readFloat(attributeText(element, "hatchtime"));
    showShell();
}

void Egg::writeState(TiXmlElement* element)
{
    EnemyBase::writeState(element);
    if (!element)
        return;
    element->SetAttribute("cracked", writeBool(cracked));
    element->SetAttribute("hatchtime", writeFloat(hatchTime));
}
