#include "world/logic/SoundBody.h"

#include "core/Game.h"
#include "sound/ISound.h"
#include "world/level/LevelValues.h"

SoundBody::SoundBody()
{
    type = "soundbody";
    showdamage = false;
    thinks = true;
    thinkInterval = 200.0f;
}

std::unique_ptr<Body> SoundBody::clone() const { return std::make_unique<SoundBody>(); }

void SoundBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "sound"))
            sound = value;
        else if (sameName(name, "volume"))
            volume = readInt(value);
        else if (sameName(name, "loops"))
            loops = readInt(value);
    }
}

void SoundBody::think(float dt)
{
    GameBody::think(dt);
    Game* game = Game::current();
    ISound* audio = game ? game->getSound() : nullptr;
    Body* player = game ? game->getPlayer() : nullptr;
    if (!audio || !player)
        return;
    const float dx = player->pos.x - pos.x;
    const float dy = player->pos.y - pos.y;
    const float d2 = dx * dx + dy * dy;
    if (!isPlaying() && d2 < hearingRangeSquared) {
        channel = audio->playAt(pos, sound, loops, volume);
    } else if (isPlaying() && d2 > hearingRangeSquared) {
        audio->stopChannel(channel);
        channel = -1;
    }
}
