#pragma once
// A gravity well: every 100 ms it pulls each movable body within "radius"
// towards itself by "force" (a negative force pushes away).
#include "world/gamebody/GameBody.h"

class Attractor : public GameBody {
public:
    Attractor();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void think(float dt) override;
    void afterTargets() override;
    // One pull on `body` (what the think does to everything in range).
    void attract(Body& body) const;

    float force = 0.0f;
    float radius = 0.0f;
};
