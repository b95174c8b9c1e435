#pragma once
// Where the player enters the level: the gameplay controller picks the one
// named by a level change (or the "startpoint" one) and shows the arrival.
#include "world/gamebody/GameBody.h"

class SpawnPoint : public GameBody {
public:
    SpawnPoint();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    // The arrival sparkle; called by the gameplay controller when it places
    // the player here.
    virtual void spawnEffect();

    bool startpoint = false;
};
