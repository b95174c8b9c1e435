#include "gameplay/items/Invincibility.h"

#include "gameplay/player/Player.h"

Invincibility::Invincibility()
{
    type = "invincibility";
    respawnDelay = 60000.0f;
    hasGlow = true;
}

std::unique_ptr<Body> Invincibility::clone() const { return std::make_unique<Invincibility>(); }

bool Invincibility::giveTo(Player& player)
{
    player.giveInvincibility(0.0f);
    startEffect("invinciblepickup");
    return true;
}
