#include "world/movers/JumpPad.h"

#include "core/Game.h"
#include "sound/ISound.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int jumpSound = 28;
}

JumpPad::JumpPad()
{
    type = "jumppad";
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> JumpPad::clone() const { return std::make_unique<JumpPad>(); }

void JumpPad::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "speed"))
            speed.fromString(value);
        else if (sameName(name, "additive"))
            additive = readBool(value);
    }
}

void JumpPad::afterTargets()
{
    GameBody::afterTargets();
    startEffect("jumppad");
    kind = 5;
}

void JumpPad::onTouch(TouchInfo& info)
{
    if (info.other)
        launch(*info.other);
}

void JumpPad::launch(Body& other)
{
    if (additive) {
        other.vel.x += speed.x;
        other.vel.y += speed.y;
    } else {
        other.vel.x = speed.x;
        other.vel.y = speed.y;
    }
    if (Game* game = Game::current())
        if (ISound* sound = game->getSound())
            sound->playIdAt(jumpSound, renderpos, 0);
}
