#include "gameplay/items/QuickArmour.h"

#include "gameplay/Difficulty.h"
#include "gameplay/player/Player.h"

QuickArmour::QuickArmour()
{
    type = "quickarmour";
    kind = 3;
    respawnDelay = 5000.0f;
    // A level's "amount" overrides this.
    amount = 20;
}

std::unique_ptr<Body> QuickArmour::clone() const { return std::make_unique<QuickArmour>(); }

bool QuickArmour::giveTo(Player& player)
{
    if (player.armour >= player.maxarmour)
        return false;
    player.addArmour(Difficulty::scalePickup(amount));
    announce(16, "Quick Armour");
    return true;
}
