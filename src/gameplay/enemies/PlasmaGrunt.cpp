#include "gameplay/enemies/PlasmaGrunt.h"

#include <algorithm>
#include <string>

#include "gameplay/weapons/PlasmaPistolWeapon.h"

PlasmaGrunt::PlasmaGrunt()
{
    type = "plasmagrunt";
    closeDistance = 128.0f;
    auto gun = std::make_unique<PlasmaPistolWeapon>();
    gun->enemyWeapon = true;
    weapon = std::move(gun);
    setLevel(1);
    setHealthForLevel(1);
}

std::unique_ptr<Body> PlasmaGrunt::clone() const { return std::make_unique<PlasmaGrunt>(); }

PlasmaPistolWeapon& PlasmaGrunt::gun() const { return static_cast<PlasmaPistolWeapon&>(*weapon); }

void PlasmaGrunt::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    // Level 5 has no row of its own and keeps what it had.
    static constexpr float delays[] = {500.0f, 500.0f, 250.0f, 500.0f};
    static constexpr int damages[] = {4, 15, 15, 35};
    if (level > 4)
        return;
    gun().delay = delays[level - 1];
    gun().damage = damages[level - 1];
    setImage("data/images/plasmaenemy" + std::to_string(level) + ".png");
}

void PlasmaGrunt::setHealthForLevel(int newLevel)
{
    static constexpr int healths[] = {50, 150, 200, 120, 130};
    health = initialhealth = healths[std::clamp(newLevel, minLevel, maxLevel) - 1];
}
