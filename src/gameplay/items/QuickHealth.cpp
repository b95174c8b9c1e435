#include "gameplay/items/QuickHealth.h"

#include "gameplay/Difficulty.h"
#include "gameplay/player/Player.h"

QuickHealth::QuickHealth()
{
    type = "quickhealth";
    respawnDelay = 10000.0f;
    amount = 20;
}

std::unique_ptr<Body> QuickHealth::clone() const { return std::make_unique<QuickHealth>(); }

bool QuickHealth::giveTo(Player& player)
{
    if (player.health >= player.maxhealth)
        return false;
    player.addHealth(Difficulty::scalePickup(amount));
    announce(18, "Quick Health");
    return true;
}

// The quick pack keeps its own numbers unless the level gives others.
void QuickHealth::readAttributes(const std::map<std::string, std::string>& attrs)
{
    RespawnableBody::readAttributes(attrs);
}
