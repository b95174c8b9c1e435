#include "gameplay/items/MegaQuadDamage.h"

#include "gameplay/player/Player.h"

MegaQuadDamage::MegaQuadDamage()
{
    type = "megaquad";
    respawnDelay = 30000.0f;
    hasGlow = true;
}

std::unique_ptr<Body> MegaQuadDamage::clone() const { return std::make_unique<MegaQuadDamage>(); }

bool MegaQuadDamage::giveTo(Player& player)
{
    player.giveQuad(8.0f);
    startEffect("megaquadpickup");
    return true;
}
