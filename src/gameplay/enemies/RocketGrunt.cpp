#include "gameplay/enemies/RocketGrunt.h"

#include <algorithm>
#include <string>

#include "gameplay/weapons/RocketWeapon.h"

RocketGrunt::RocketGrunt()
{
    type = "rocketgrunt";
    closeDistance = 64.0f;
    auto gun = std::make_unique<RocketWeapon>();
    gun->enemyWeapon = true;
    gun->speed = 400.0f;
    gun->rocketKnockback = 1.0f;
    weapon = std::move(gun);
    setLevel(1);
    setHealthForLevel(1);
}

std::unique_ptr<Body> RocketGrunt::clone() const { return std::make_unique<RocketGrunt>(); }

RocketWeapon& RocketGrunt::gun() const { return static_cast<RocketWeapon&>(*weapon); }

void RocketGrunt::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    static constexpr float damages[] = {25.0f, 35.0f, 80.0f, 80.0f, 110.0f};
    gun().projectileDamage = damages[level - 1];
    gun().radius = level == 5 ? 128.0f : 64.0f;
    if (level <= 2)
        setImage("data/images/rocketenemy" + std::to_string(level) + ".png");
}

void RocketGrunt::setHealthForLevel(int newLevel)
{
    static constexpr int healths[] = {50, 800, 80, 100, 120};
    health = initialhealth = healths[std::clamp(newLevel, minLevel, maxLevel) - 1];
}
