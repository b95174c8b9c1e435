#pragma once
// A closed-loop player for recording demos: it follows a route, reading the
// world every step, and acts only through bound keys and the aim point, as
// a player's hands would. What it sends is recorded as a normal demo, which
// replays in the real game like any other.
#include <string>
#include <vector>

#include "Route.h"
#include "core/Demo.h"
#include "world/geometry/Vector.h"

class Body;
class Game;
class GameInput;
class Player;

class DemoBot {
public:
    // Past this, an action that has not finished is a stuck route.
    static constexpr float actionSeconds = 45.0f;
    // Enemies this close are fought whatever the route says.
    static constexpr float defendRange = 170.0f;

    explicit DemoBot(Game& game);

    // Records the route's demo; `carried` is what the player brings from the
    // level before (nullptr: a new player). True once the level's exit was
    // reached; `report` says where the route went wrong otherwise.
    bool record(const Route& route, const Demo::PlayerState* carried, std::string& report);

private:
    enum Key { right, left, jump, fire, hook, keyCount };

    void set(Key key, bool down);
    void releaseKeys();
    void steer(float towards, Player& player);
    void brake(const Player& player);
    bool pushBlock(const RouteAction& action, Player& player);
    bool act(const RouteAction& action, Player& player);
    Body* nearestTarget(const Player& player, float range) const;
    Body* nearestExit(const Player& player) const;
    bool inSight(const Player& player, const Body& target) const;
    bool solidAt(const Vector& point) const;
    bool step();

    Game& game;
    GameInput* input = nullptr;
    bool trace = false;
    bool held[keyCount] = {};
    float actionTime = 0.0f;
    float stuckTime = 0.0f;
    float lastX = 0.0f;
    float jumpTime = 0.0f;
    int weaponKey = 0;
    bool hookEast = true;
    bool defending = false;
    bool runEast = true;
    bool unsticking = false;
};
