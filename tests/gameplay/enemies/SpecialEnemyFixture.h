#pragma once
// The level-logic fixture with a level loaded (floor at y 0 from x -1000 to
// 1000, a ledge from x 100 to 300), the player standing at x -600, rand
// seeded, and helpers to put enemies in the world and think them at a
// chosen level time.
#include <cstdlib>
#include <string>

#include "world/logic/LogicFixture.h"

class SpecialEnemyFixture : public LogicFixture {
protected:
    void SetUp() override
    {
        LogicFixture::SetUp();
        std::srand(7);
        loadLevel();
        placePlayer(-600.0f, 16.0f);
    }

    // A new T of `size` at (x, y), assembled and in the world.
    template <class T>
    T* spawn(float x, float y, float size = 16.0f)
    {
        auto* body = new T();
        body->makeRectangle(size, size);
        body->setPosition(Vector(x, y));
        body->transform();
        body->updateBounds();
        body->afterTargets();
        game->spawnBody(body);
        return body;
    }

    // One think of `body` with the level clock at `ms`.
    static void thinkAt(Body& body, float ms)
    {
        at(ms);
        body.think(0.025f);
    }

    bool played(int id) const
    {
        for (int played : sound->ids)
            if (played == id)
                return true;
        return false;
    }
};
