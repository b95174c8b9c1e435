#pragma once
// A spawner that lays eggs of its "spawnlevel": lobbed gently in a random
// direction while the player is away, flung at the player when it is near
// and in sight.
#include "gameplay/enemies/SpawnerGrunt.h"

class EggLayer : public SpawnerGrunt {
public:
    static constexpr float nearRange = 290.0f;
    static constexpr float dropSpeed = 8.0f;
    static constexpr float throwSpeed = 300.0f;

    EggLayer();
    std::unique_ptr<Body> clone() const override;
    // Eggs are the only thing it lays, whatever a level file says.
    void readAttributes(const std::map<std::string, std::string>& attrs) override;

protected:
    void launch(Body& body) override;
};
