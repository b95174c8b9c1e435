#pragma once
// An ally on the player's side: it hunts the nearest visible enemy with a
// plasma pistol and a close blow, and otherwise keeps near the player,
// waiting where it is when the player runs far ahead.
#include <memory>

#include "gameplay/enemies/EnemyBase.h"

class MeleeWeapon;
class PlasmaPistolWeapon;

class Friendly : public EnemyBase {
public:
    static constexpr float huntRange = 290.0f;
    static constexpr float followNear = 64.0f;
    // Farther than this from the player it stops and waits.
    static constexpr float waitDistance = 400.0f;
    static constexpr float accel = 200.0f;

    Friendly();
    ~Friendly() override;
    std::unique_ptr<Body> clone() const override;
    void setHealthForLevel(int newLevel) override;
    void think(float dt) override;

    MeleeWeapon& blow() const { return *melee; }
    PlasmaPistolWeapon& pistol() const { return *plasma; }

private:
    std::unique_ptr<MeleeWeapon> melee;
    std::unique_ptr<PlasmaPistolWeapon> plasma;
};
