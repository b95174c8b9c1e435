#include "world/logic/Spawner.h"

#include <tinyxml.h>

#include "core/Game.h"
#include "gameplay/enemies/EnemyBase.h"
#include "sound/ISound.h"
#include "world/level/BodyFactory.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int spawnSound = 19;
}

Spawner::Spawner()
{
    type = "spawner";
    showdamage = false;
    thinks = true;
    thinkInterval = 200.0f;
    setTraceThrough(true);
}

std::unique_ptr<Body> Spawner::clone() const { return std::make_unique<Spawner>(); }

void Spawner::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "spawnedtype"))
            spawnedtype = value;
        else if (sameName(name, "spawnlevel"))
            spawnlevel = readInt(value);
        else if (sameName(name, "maxalive"))
            maxalive = readInt(value);
        else if (sameName(name, "spawndelay"))
            spawndelay = readFloat(value);
        else if (sameName(name, "maxspawned"))
            maxspawned = readInt(value);
        else if (sameName(name, "untriggertimer"))
            untriggertimer = readFloat(value);
    }
}

void Spawner::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    nextspawn = readFloat(attributeText(element, "nextspawn"));
    numspawned = readInt(attributeText(element, "numspawned"));
    active = readBool(attributeText(element, "active"));
    triggered = readBool(attributeText(element, "triggered"));
    untriggertime = readFloat(attributeText(element, "untriggertime"));
}

void Spawner::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("nextspawn", writeFloat(nextspawn));
    element->SetAttribute("numspawned", writeInt(numspawned));
    element->SetAttribute("active", writeBool(active));
    element->SetAttribute("triggered", writeBool(triggered));
    element->SetAttribute("untriggertime", writeFloat(untriggertime));
}

void Spawner::onTriggered(GameBody*)
{
    if (triggered && now() < untriggertime)
        return;
    active = true;
    triggered = true;
    if (untriggertimer > 0.0f)
        untriggertime = now() + untriggertimer;
    spawn();
}

void Spawner::think(float dt)
{
    GameBody::think(dt);
    if (triggered && untriggertime < now())
        triggered = false;
    if (maxspawned > 0 && numspawned < maxspawned && active && numalive < maxalive && nextspawn < now())
        spawn();
}

Body* Spawner::spawn()
{
    Game* game = Game::current();
    BodyFactory* factory = game ? game->getBodyFactory() : nullptr;
    std::unique_ptr<Body> made = factory ? factory->create(spawnedtype) : nullptr;
    if (!made)
        return nullptr;
    Body* body = made.release();
    body->makeRectangle(16.0f, 16.0f);
    if (auto* enemy = dynamic_cast<EnemyBase*>(body))
        enemy->applyLevel(spawnlevel);
    if (auto* child = dynamic_cast<GameBody*>(body))
        adopt(child);
    numspawned += 1;
    numalive += 1;
    nextspawn = now() + spawndelay;
    body->setPosition(pos);
    body->transform();
    body->updateBounds();
    body->afterTargets();
    body->afterAssembly();
    game->spawnBody(body);
    startEffect("itemrespawn2");
    if (ISound* sound = game->getSound())
        sound->playIdAt(spawnSound, pos, 0);
    return body;
}
