#pragma once
// One of the player's swarm: a small flying biter released by the swarm
// weapon. It hunts the nearest visible enemy, follows the player when there
// is none, and dies when its life time runs out.
#include <memory>

#include "world/gamebody/GameBody.h"

class MeleeWeapon;

class SwarmMember : public GameBody {
public:
    static constexpr float huntRange = 290.0f;
    static constexpr float followNear = 64.0f;
    static constexpr float accel = 200.0f;
    // Extra reach of a bite beyond the blow's radius (not against objectives).
    static constexpr float reach = 64.0f;

    SwarmMember();
    ~SwarmMember() override;
    std::unique_ptr<Body> clone() const override;
    void think(float dt) override;
    // Swarm members pass through the player and each other.
    bool collidesWith(Body* other) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    // Starts the life clock: deathtime := now + lifetime. The swarm weapon
    // calls it on release; think calls it for members that never started.
    void startLife();

    // The nearest living body with the enemy flag within `range` of
    // `viewer` that it can see (other enemies in the way block the view).
    static GameBody* nearestVisibleEnemy(const Body& viewer, float range);

    MeleeWeapon& gun() const { return *weapon; }
    float lifetime = 10000.0f;

private:
    std::unique_ptr<MeleeWeapon> weapon;
};
