#include "gameplay/projectiles/Gib.h"

#include <cmath>
#include <cstdlib>

#include "core/Game.h"
#include "gameplay/DefaultGameplay.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "particles/ParticleSystem.h"
#include "render/GameHUD.h"
#include "sound/ISound.h"

Gib::Gib()
{
    type = "gib";
    setMass(1.0f);
    restitution = 0.3f;
    thinks = true;
    takedamage = false;
    showdamage = false;
    entity = true;
    setTexture("data/images/gib.png");
    textured = true;
    hasGlow = true;
    setTraceThrough(true);
}

std::unique_ptr<Body> Gib::clone() const { return std::make_unique<Gib>(); }

void Gib::bounceSound(Body& body, float& nextTime)
{
    const float t = GameBody::now();
    if (t < nextTime || std::fabs(body.vel.y) <= 8.0f)
        return;
    nextTime = t + 250.0f;
    Game* game = Game::current();
    if (ISound* sound = game ? game->getSound() : nullptr)
        sound->playIdAt(std::rand() % 2 == 0 ? 12 : 13, body.pos, 0);
}

void Gib::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (other && other->solid && other->visible && !other->isMovable())
        bounceSound(*this, nextBounceSoundTime);
}

void Gib::think(float)
{
    if (!counted || now() <= deathTime)
        return;
    counted = false;
    if (DefaultGameplay* gameplay = GameplaySingleton::get().gameplay)
        gameplay->gibRemoved();
    if (Game* game = Game::current())
        game->markForRemoval(this);
}

int Gib::spawnGibs(const Vector& position, float speedMin, float speedMax, float sizeMin, float sizeMax)
{
    int n = 2 + std::rand() % 4;
    if (DefaultGameplay* gameplay = GameplaySingleton::get().gameplay)
        gameplay->allocateGibs(n);
    Game* game = Game::current();
    if (n <= 0 || !game)
        return 0;
    const float t = now();
    for (int i = 0; i < n; ++i) {
        auto gib = std::make_unique<Gib>();
        const float side = FireableWeapon::uniform(sizeMin, sizeMax);
        gib->makeRectangle(side, side);
        gib->setPosition(position);
        gib->solid = true;
        const float angle = FireableWeapon::uniform(0.0f, 6.2831853f);
        gib->vel = Vector(std::cos(angle), std::sin(angle)) * FireableWeapon::uniform(speedMin, speedMax);
        gib->gravitymultiplier = 1.0f;
        if (ParticleSystem* trail = FireableWeapon::effect("bloodtrail", FireableWeapon::raised(position, 0.2f)))
            gib->attachParticleSystem(trail);
        gib->deathTime = t + lifeMs;
        game->spawnBody(gib.release());
    }
    if (GameHUD* hud = GameplaySingleton::get().hud)
        hud->flashScreen(RGBAColour(255.0f, 10.0f, 20.0f, 150.0f));
    return n;
}
