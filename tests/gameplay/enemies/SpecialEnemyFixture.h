#pragma once
// The level-logic fixture with a level loaded (floor at y 0 from x -1000 to
// 1000, a ledge from x 100 to 300), the player standing at x -600, rand
// seeded, and helpers to put enemies in the world and think them at a
// chosen level time.
#include <cstdlib>
#include <string>

#include "world/logic/LogicFixture.h"
#include "world/quadtree/QuadTree.h"

class SpecialEnemyFixture : public LogicFixture {
protected:
    void SetUp() override
    {
        LogicFixture::SetUp();
        std::srand(7);
        loadLevel();
        placePlayer(-600.0f, 16.0f);
    }

    void placePlayer(float x, float y)
    {
        player->setPosition(Vector(x, y));
        player->transform();
        player->updateBounds();
        game->getQuadTree().update(player);
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

    // Living bodies of class T in the world.
    template <class T>
    int count()
    {
        int n = 0;
        for (Body* body : game->getBodies())
            if (dynamic_cast<T*>(body) && !body->cancleanup)
                ++n;
        return n;
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
