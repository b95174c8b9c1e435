#pragma once
// The level-logic fixture with a level loaded (floor at y 0 from x -1000 to
// 1000, a ledge from x 100 to 300), the player standing at x -600, rand
// seeded, and a helper to think a body at a chosen level time.
#include <algorithm>
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

    // One think of `body` with the level clock at `ms`.
    static void thinkAt(Body& body, float ms)
    {
        at(ms);
        body.think(0.025f);
    }

    bool played(int id) const { return std::count(sound->ids.begin(), sound->ids.end(), id) > 0; }
};
