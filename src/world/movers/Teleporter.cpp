#include "world/movers/Teleporter.h"

#include "core/Game.h"
#include "sound/ISound.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int teleportSound = 19;
}

Teleporter::Teleporter()
{
    type = "teleporter";
    setTraceThrough(true);
}

std::unique_ptr<Body> Teleporter::clone() const { return std::make_unique<Teleporter>(); }

void Teleporter::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "changevelocity"))
            changevelocity = readBool(value);
        else if (sameName(name, "exitvelocity"))
            exitvelocity.fromString(value);
    }
}

void Teleporter::afterTargets()
{
    GameBody::afterTargets();
    kind = 5;
}

void Teleporter::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (!other || targetList.empty() || !targetList.front())
        return;
    const Vector destination = targetList.front()->pos;
    startEffect("itemrespawn2", Vector(other->pos.x, other->pos.y, other->pos.z + 0.2f));
    startEffect("itemrespawn2", Vector(destination.x, destination.y, destination.z + 0.2f));
    other->setPosition(destination);
    if (changevelocity)
        other->vel = exitvelocity;
    if (Game* game = Game::current())
        if (ISound* sound = game->getSound()) {
            sound->playIdAt(teleportSound, renderpos, 0);
            sound->playIdAt(teleportSound, destination, 0);
        }
}
