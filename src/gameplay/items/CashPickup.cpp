#include "gameplay/items/CashPickup.h"

#include <cmath>

#include "core/Game.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/FireableWeapon.h"

CashPickup::CashPickup()
{
    type = "cashpickup";
    respawnDelay = 5000.0f;
    respawns = false;
    setTexture("data/images/cash.png");
    textured = true;
    hasGlow = true;
}

std::unique_ptr<Body> CashPickup::clone() const { return std::make_unique<CashPickup>(); }

bool CashPickup::giveTo(Player& player)
{
    setMass(0.0f);
    solid = false;
    player.giveCash(amount);
    spawnText(pos, "Cash", 12, true, 0.75f, "vera");
    return true;
}

void CashPickup::spawnCash(const Vector& position, int count, float speedMin, float speedMax)
{
    Game* game = Game::current();
    if (!game)
        return;
    for (int i = 0; i < count; ++i) {
        auto coin = std::make_unique<CashPickup>();
        coin->setMass(10.0f);
        coin->makeRectangle(16.0f, 16.0f);
        coin->setPosition(position);
        coin->solid = true;
        coin->amount = 1;
        const float angle = FireableWeapon::uniform(0.0f, 6.2831853f);
        coin->vel = Vector(std::cos(angle), std::sin(angle)) * FireableWeapon::uniform(speedMin, speedMax);
        coin->gravitymultiplier = 1.0f;
        game->spawnBody(coin.release());
    }
}
