#pragma once
// The grappling hook: flies from the player until it bites into something
// solid, then pulls the player towards it on every think. The weapon that
// launched it removes it when the player lets go.
#include "gameplay/projectiles/Projectile.h"

class GrappleWeapon;

class GrappleProjectile : public Projectile {
public:
    // Within this distance the pull slows so the player settles at the hook.
    static constexpr float closeDistance = 40.0f;
    static constexpr float closePullSpeed = 50.0f;

    GrappleProjectile();
    // Clears the launcher's and the player's links to this hook.
    ~GrappleProjectile() override;
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    // Pulls the owner while attached.
    void think(float dt) override;
    // A hook never pushes what it touches.
    bool collidesWith(Body* other) override;

    bool attached = false;
    float pullSpeed = 400.0f;
    GrappleWeapon* weapon = nullptr;

private:
    bool soundPlayed = false;
};
