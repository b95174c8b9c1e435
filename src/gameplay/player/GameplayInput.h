#pragma once
// The input target "game" during play: registers the player's control
// commands, keeps their held state, and turns it into a movement force once
// per simulation step (free thrust or platform mode with a short jump
// allowance, chosen by "movemode") and into weapon actions once per frame.
#include <vector>

#include "input/GameInput.h"
#include "world/physics/Collision.h"

class GameVar;
class Player;

class GameplayInput : public GameInput {
public:
    // Movement modes of "movemode": platform is 2, anything else is free thrust.
    static constexpr int platformMode = 2;
    // Upward push is allowed this long after leaving the ground (seconds).
    static constexpr float jumpAllowance = 0.3f;
    // A walking player climbs ledges up to this high without a jump.
    static constexpr float stepHeight = 8.0f;
    // Holding up in water swims upward no faster than this (units/s).
    static constexpr float swimSpeed = 60.0f;
    // Seconds since the last ground contact that still count as walking.
    static constexpr float walkingAirTime = 0.1f;
    // How deep a resting body may sit in its floor, and the step-up's grain.
    static constexpr float restingSink = 0.5f;

    GameplayInput() = default;
    ~GameplayInput() override = default;

    // The bindings' commands, then the control commands.
    void init() override;
    // Per simulation step: applyControls for a live Player.
    void step(Body* player, float stepLength) override;
    // Per frame: updatePlayer for a live Player.
    void update(Body* player) override;
    // All held controls let go.
    void releaseAll() override;

    // The control commands and the "movemode" handle.
    virtual void registerCommands();
    // Movement force for one step (nothing while the player is dead).
    virtual void applyControls(Player* player, float stepTime);
    // Firing and weapon selection (nothing while the player is dead).
    virtual void updatePlayer(Player* player);

    // The force applyControls would apply, without applying it (and with the
    // same side effects on the jump state). Exposed for tuning and tests.
    Vector computeForce(Player& player, float stepTime);
    // Lifts a grounded player walking into a low ledge on top of it. True
    // when it did.
    bool stepUp(Player& player, float direction, float stepTime);

    // Held state of the controls, process-wide like the bindings that set it.
    static bool moveRight, moveLeft, moveUp, moveDown;
    static bool boost, grapple, attack, fireById, slow;
    static bool nextWeaponRequested, previousWeaponRequested;
    static int fireWeaponId;

private:
    // Whether solid level geometry overlaps the player's shape moved by `shift`.
    bool blockedAt(Player& player, const Vector& shift, const std::vector<Body*>& near);

    GameVar* moveMode = nullptr;
    Collision overlapTest;
    std::vector<Body*> nearby;
};
