#pragma once
// The gameplay fixture with a level loaded and helpers for firing ranges:
// targets are square GameBodies spawned into the world, the player stands on
// the floor at x -400, and the weapon definitions start empty (built-in
// numbers) with rand seeded.
#include "gameplay/GameplayFixture.h"
#include "world/gamebody/GameBody.h"

class WeaponsFixture : public GameplayFixture {
protected:
    void SetUp() override
    {
        GameplayFixture::SetUp();
        builtInWeapons(1);
        loadLevel();
        placePlayer(-400.0f, 8.0f);
        player->inventory.initialise();
    }

    // A creature-like target: solid, an entity, takes damage.
    GameBody* target(float x, float y, int health = 1000, float size = 16.0f, float mass = 0.0f)
    {
        auto* body = spawn<GameBody>(x, y, size);
        body->setMass(mass);
        body->entity = true;
        body->takedamage = true;
        body->showdamage = false;
        body->health = health;
        body->gravitymultiplier = mass > 0.0f ? 1.0f : 0.0f;
        return body;
    }

    // Level geometry: an immovable, non-entity wall.
    Body* wall(float x, float y, float w, float h)
    {
        Body* body = spawn<Body>(x, y, w, h);
        body->setMass(0.0f);
        return body;
    }

    bool fire(int weaponId, const Vector& aim = Vector(1.0f, 0.0f))
    {
        return player->inventory.fire(player, player->pos, aim, Player::now(), weaponId);
    }
};
