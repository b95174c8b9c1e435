#include "gameplay/items/MegaHealth.h"

#include "gameplay/player/Player.h"
#include "particles/ParticleSystem.h"

MegaHealth::MegaHealth()
{
    type = "megahealth";
}

std::unique_ptr<Body> MegaHealth::clone() const { return std::make_unique<MegaHealth>(); }

bool MegaHealth::giveTo(Player& player)
{
    if (player.health >= player.maxhealth)
        return false;
    amount = player.maxhealth;
    player.addHealth(amount);
    announce(29, "MegaHealth");
    if (glowEffect) {
        detachParticleSystem(glowEffect);
        glowEffect->stop(10.0f);
        glowEffect = nullptr;
    }
    return true;
}

void MegaHealth::startGlow()
{
    if (glowEffect)
        return;
    glowEffect = startEffect("megahealth");
    if (glowEffect)
        attachParticleSystem(glowEffect);
}

void MegaHealth::think(float dt)
{
    Health::think(dt);
    if (visible)
        startGlow();
}

void MegaHealth::respawn()
{
    Health::respawn();
    startGlow();
}
