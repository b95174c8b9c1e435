#pragma once
// The level-logic fixture with a level loaded (floor at y 0 from x -1000 to
// 1000, a ledge from x 100 to 300), the player standing at x -600, rand
// seeded, and a helper to touch with a body at chosen level times.
#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <vector>

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

    // The victim's health after `by` touches it at each of the level times.
    static std::vector<int> healthAfterTouches(Body& by, GameBody& victim, std::initializer_list<float> times)
    {
        std::vector<int> healths;
        for (float t : times) {
            at(t);
            touch(by, victim);
            healths.push_back(victim.health);
        }
        return healths;
    }

    int timesPlayed(int id) const { return static_cast<int>(std::count(sound->ids.begin(), sound->ids.end(), id)); }
    bool played(int id) const { return timesPlayed(id) > 0; }
};
