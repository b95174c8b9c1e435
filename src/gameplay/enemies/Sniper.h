#pragma once
// Walks its beat whatever happens and, when the player is visible and close,
// fires a railgun slug that pierces everything living on its way. The aim
// wanders sideways so a moving player is not always hit. Before each shot it
// holds a red aiming line on the player for a moment, the player's warning.
#include <memory>

#include "gameplay/enemies/EnemyBase.h"

class RailgunWeapon;

class Sniper : public EnemyBase {
public:
    static constexpr float fireRange = 192.0f;
    // Largest sideways miss of an aimed shot, in world units at the target.
    static constexpr float aimError = 60.0f;
    // How long the aiming line shows before the shot.
    static constexpr float aimMillis = 700.0f;

    Sniper();
    ~Sniper() override;
    std::unique_ptr<Body> clone() const override;
    void setLevel(int newLevel) override;
    void setHealthForLevel(int newLevel) override;
    void think(float dt) override;
    // The aiming line while it takes aim.
    void drawExtras(IRenderer& renderer) override;
    // Whether it is taking aim at the player now.
    bool isAiming() const { return sighted != nullptr; }
    RailgunWeapon& gun() const { return *weapon; }

private:
    std::unique_ptr<RailgunWeapon> weapon;
};
