#include "world/logic/SpawnPoint.h"

#include "world/level/LevelValues.h"

SpawnPoint::SpawnPoint()
{
    type = "spawnpoint";
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> SpawnPoint::clone() const { return std::make_unique<SpawnPoint>(); }

void SpawnPoint::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs)
        if (sameName(name, "startpoint"))
            startpoint = readBool(value);
}

void SpawnPoint::spawnEffect() { startEffect("itemrespawn2"); }
