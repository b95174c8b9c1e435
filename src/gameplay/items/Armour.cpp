#include "gameplay/items/Armour.h"

#include "gameplay/Difficulty.h"
#include "gameplay/player/Player.h"

Armour::Armour()
{
    type = "armour";
    kind = 3;
    respawnDelay = 5000.0f;
    amount = 0;
}

std::unique_ptr<Body> Armour::clone() const { return std::make_unique<Armour>(); }

bool Armour::giveTo(Player& player)
{
    if (player.armour >= player.maxarmour)
        return false;
    player.addArmour(Difficulty::scalePickup(amount));
    announce(16, "Armour");
    return true;
}

void Armour::readAttributes(const std::map<std::string, std::string>& attrs)
{
    respawnDelay = 20000.0f;
    amount = 50;
    RespawnableBody::readAttributes(attrs);
}
