#include "gameplay/weapons/GrappleWeapon.h"

#include <memory>

#include "core/Game.h"
#include "gameplay/player/Player.h"
#include "gameplay/projectiles/GrappleProjectile.h"

GrappleWeapon::GrappleWeapon() { delay = 10.0f; }

bool GrappleWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    if (hook || !beginShot(time))
        return false;
    auto projectile = std::make_unique<GrappleProjectile>();
    GrappleProjectile* h = projectile.get();
    h->makeRectangle(8.0f, 8.0f, RGBAColour(255.0f, 255.0f, 255.0f, 255.0f));
    h->weapon = this;
    h->noFlash = true;
    hook = h;
    auto* player = dynamic_cast<Player*>(owner);
    if (player) {
        player->grappling = true;
        player->hook = h;
        player->hookAttached = false;
    }
    h->launch(dynamic_cast<GameBody*>(owner), position, aim, time);
    if (!Game::current()) {
        // Nowhere to put it: nothing was fired.
        projectile.reset();
        return false;
    }
    projectile.release();
    playShotSound(3, position);
    return true;
}

void GrappleWeapon::stopFiring(float)
{
    if (!hook)
        return;
    GrappleProjectile* h = hook;
    hook = nullptr;
    if (auto* player = dynamic_cast<Player*>(h->getOwner())) {
        player->hook = nullptr;
        player->grappling = false;
        player->hookAttached = false;
    }
    h->weapon = nullptr;
    if (Game* game = Game::current())
        game->markForRemoval(h);
}

void GrappleWeapon::reset()
{
    FireableWeapon::reset();
    hook = nullptr;
}

int GrappleWeapon::ammoAfterShot(int) { return -1; }
