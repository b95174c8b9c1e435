#include "gameplay/items/QuadDamage.h"

#include "gameplay/player/Player.h"

QuadDamage::QuadDamage()
{
    type = "quad";
    respawnDelay = 30000.0f;
    hasGlow = true;
}

std::unique_ptr<Body> QuadDamage::clone() const { return std::make_unique<QuadDamage>(); }

bool QuadDamage::giveTo(Player& player)
{
    player.giveQuad(4.0f);
    startEffect("quadpickup");
    return true;
}
