#pragma once
// A patrolling enemy that keeps up to "maxalive" bodies of "spawntype" alive
// around it, one per "spawndelay" ms, each given "spawnlevel". Its count
// drops as its offspring die, so killing them brings more; killing it stops
// the flow.
#include <string>

#include "gameplay/enemies/EnemyBase.h"

class SpawnerGrunt : public EnemyBase {
public:
    // Offspring appear this far from the spawner in a random direction.
    static constexpr float spawnDistance = 32.0f;

    SpawnerGrunt();
    std::unique_ptr<Body> clone() const override;
    // "spawntype", "maxalive", "spawndelay", "spawnlevel".
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void think(float dt) override;
    // Creates one offspring and puts it in the world; null without a game or
    // for a type the factory does not know.
    Body* spawnOne();

    std::string spawntype = "meleegrunt";
    float spawndelay = 3000.0f;
    int spawnlevel = 1;
    float nextspawn = 0.0f;

protected:
    // Sets the new body moving; called by spawnOne before it joins the world.
    // Here offspring start at rest.
    virtual void launch(Body& body);

private:
    bool warnedUnknownType = false;
};
