#pragma once
// Makes bodies of "spawnedtype" at its position: one at once for every
// trigger it accepts, and then, once active, more from its think while fewer
// than maxalive of its own are alive, at most "maxspawned" in all and one
// per "spawndelay" ms.
#include "world/gamebody/GameBody.h"

class Spawner : public GameBody {
public:
    Spawner();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void onTriggered(GameBody* activator) override;
    void think(float dt) override;
    // Creates one body and puts it in the world; the trigger and the think
    // call it once their limits allow. Returns the body (owned by the world)
    // or null without a running game.
    virtual Body* spawn();

    std::string spawnedtype;
    int spawnlevel = 0;
    float spawndelay = 0.0f;
    int maxspawned = 0;
    float untriggertimer = 0.0f;
    int numspawned = 0;
    float nextspawn = 0.0f;
    bool active = false;
    bool triggered = false;
    float untriggertime = 0.0f;
};
