#pragma once
// A hatchling from an egg: it chases a player it can see within 290 and
// bites on contact, and dies seven seconds after it entered the world.
#include "gameplay/enemies/BitingEnemy.h"

class Swarmer : public BitingEnemy {
public:
    static constexpr float lifeMillis = 7000.0f;
    static constexpr float sightRange = 290.0f;

    Swarmer();
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    // Starts the seven seconds (level assembly and spawning run it).
    void afterTargets() override;
    void think(float dt) override;

    // Level time at which it dies of old age.
    float expireTime = lifeMillis;
};
