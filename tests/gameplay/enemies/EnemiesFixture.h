#pragma once
// The firing-range world with helpers for enemy tests: enemies are spawned
// into the world at a point with a level applied, the player stands on the
// floor at x -400 in god mode, and think() is called directly when a test
// wants one decision rather than a stretch of frames.
#include "gameplay/WeaponsFixture.h"
#include "gameplay/enemies/EnemyBase.h"

class EnemiesFixture : public WeaponsFixture {
protected:
    void SetUp() override
    {
        WeaponsFixture::SetUp();
        player->setGodMode(true);
    }

    template <class T>
    T* spawnEnemy(float x, float y, int level = 1, float size = 16.0f)
    {
        auto* enemy = new T();
        enemy->applyLevel(level);
        return spawn(enemy, x, y, size);
    }
};
