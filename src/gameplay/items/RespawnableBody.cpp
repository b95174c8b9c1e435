#include "gameplay/items/RespawnableBody.h"

#include <tinyxml.h>

#include "core/Game.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/player/Player.h"
#include "render/GameHUD.h"
#include "sound/ISound.h"
#include "world/level/LevelValues.h"

RespawnableBody::RespawnableBody()
{
    type = "respawnablebody";
    thinks = true;
    showdamage = false;
    entity = true;
    setTraceThrough(true);
}

std::unique_ptr<Body> RespawnableBody::clone() const { return std::make_unique<RespawnableBody>(); }

const std::string* RespawnableBody::findAttribute(const std::map<std::string, std::string>& attrs,
                                                  const std::string& name)
{
    for (const auto& entry : attrs)
        if (sameName(entry.first, name))
            return &entry.second;
    return nullptr;
}

void RespawnableBody::pickUp()
{
    visible = false;
    nextRespawn = now() + respawnDelay;
}

void RespawnableBody::respawn()
{
    visible = true;
    startEffect("itemrespawn2");
    if (Game* game = Game::current())
        if (ISound* sound = game->getSound())
            sound->playIdAt(15, pos, 0);
}

bool RespawnableBody::giveTo(Player&) { return false; }

void RespawnableBody::think(float dt)
{
    GameBody::think(dt);
    if (!visible && respawns && now() > nextRespawn)
        respawn();
}

void RespawnableBody::onTouch(TouchInfo& info)
{
    auto* player = dynamic_cast<Player*>(info.other);
    if (!player || player->kind != 1 || player->dead || !visible)
        return;
    if (giveTo(*player))
        pickUp();
}

bool RespawnableBody::collidesWith(Body* other) { return !other || other->kind != 1; }

void RespawnableBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    if (const std::string* v = findAttribute(attrs, "respawndelay"))
        respawnDelay = readFloat(*v);
    if (const std::string* v = findAttribute(attrs, "amount"))
        amount = readInt(*v);
}

void RespawnableBody::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (element && hasValue(element, "nextrespawn"))
        nextRespawn = readFloat(attributeText(element, "nextrespawn"));
}

void RespawnableBody::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (element)
        element->SetAttribute("nextrespawn", writeFloat(nextRespawn));
}

void RespawnableBody::announce(int soundId, const std::string& text)
{
    if (Game* game = Game::current())
        if (ISound* sound = game->getSound())
            sound->playIdAt(soundId, pos, 0);
    if (GameHUD* hud = GameplaySingleton::get().hud)
        hud->pickupMessage(text);
    spawnText(pos, text, 12, true, 0.75f, "vera");
}
