#include "gameplay/items/Health.h"

#include "gameplay/Difficulty.h"
#include "gameplay/player/Player.h"

Health::Health()
{
    type = "health";
    kind = 2;
    respawnDelay = 5000.0f;
    amount = 50;
}

std::unique_ptr<Body> Health::clone() const { return std::make_unique<Health>(); }

bool Health::giveTo(Player& player)
{
    if (player.health >= player.maxhealth)
        return false;
    player.addHealth(Difficulty::scalePickup(amount));
    announce(18, "Health");
    return true;
}

void Health::readAttributes(const std::map<std::string, std::string>& attrs)
{
    respawnDelay = 20000.0f;
    amount = 50;
    RespawnableBody::readAttributes(attrs);
}
