#include "gameplay/enemies/SpawnerGrunt.h"

#include <cmath>
#include <cstdio>

#include <tinyxml.h>

#include "core/Game.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "world/level/BodyFactory.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int spawnSound = 19;
}

SpawnerGrunt::SpawnerGrunt()
{
    type = "spawnergrunt";
    startPatrol();
    maxalive = 3;
    cashMin = 1;
    cashMax = 2;
    cashChance = 50;
    setImage("data/images/spawnerenemy1.png");
}

std::unique_ptr<Body> SpawnerGrunt::clone() const { return std::make_unique<SpawnerGrunt>(); }

void SpawnerGrunt::readAttributes(const std::map<std::string, std::string>& attrs)
{
    EnemyBase::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "spawntype"))
            spawntype = value;
        else if (sameName(name, "maxalive"))
            maxalive = readInt(value);
        else if (sameName(name, "spawndelay"))
            spawndelay = readFloat(value);
        else if (sameName(name, "spawnlevel"))
            spawnlevel = readInt(value);
    }
}

void SpawnerGrunt::readState(TiXmlElement* element)
{
    EnemyBase::readState(element);
    if (element)
        nextspawn = readFloat(attributeText(element, "nextspawn"));
}

void SpawnerGrunt::writeState(TiXmlElement* element)
{
    EnemyBase::writeState(element);
    if (element)
        element->SetAttribute("nextspawn", writeFloat(nextspawn));
}

void SpawnerGrunt::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    const float t = now();
    patrol(t);
    if (numalive < maxalive && t > nextspawn)
        spawnOne();
}

Body* SpawnerGrunt::spawnOne()
{
    Game* game = Game::current();
    BodyFactory* factory = game ? game->getBodyFactory() : nullptr;
    std::unique_ptr<Body> made = factory ? factory->create(spawntype) : nullptr;
    // An unknown type would be retried every think; wait as for a success.
    nextspawn = now() + spawndelay;
    // The factory answers an unknown name with a plain body: not offspring.
    if (!made || made->type != spawntype) {
        if (!warnedUnknownType)
            std::printf("%s %s: cannot spawn unknown type \"%s\"\n", type.c_str(), id.c_str(), spawntype.c_str());
        warnedUnknownType = true;
        return nullptr;
    }
    Body* body = made.release();
    body->makeRectangle(16.0f, 16.0f);
    if (auto* child = dynamic_cast<GameBody*>(body))
        adopt(child);
    numalive += 1;
    const float angle = FireableWeapon::uniform(0.0f, 6.2831853f);
    body->setPosition(pos + Vector(std::cos(angle), std::sin(angle)) * spawnDistance);
    if (auto* enemy = dynamic_cast<EnemyBase*>(body))
        enemy->applyLevel(spawnlevel);
    body->transform();
    body->updateBounds();
    body->afterTargets();
    body->afterAssembly();
    launch(*body);
    game->spawnBody(body);
    startEffect("itemrespawn2");
    playSoundHere(spawnSound);
    return body;
}

void SpawnerGrunt::launch(Body&) {}
