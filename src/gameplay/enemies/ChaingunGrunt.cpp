#include "gameplay/enemies/ChaingunGrunt.h"

#include <algorithm>
#include <string>

#include "gameplay/weapons/ChaingunWeapon.h"

ChaingunGrunt::ChaingunGrunt()
{
    type = "chaingungrunt";
    closeDistance = 128.0f;
    auto gun = std::make_unique<ChaingunWeapon>();
    gun->enemyWeapon = true;
    weapon = std::move(gun);
    setLevel(1);
    setHealthForLevel(1);
}

std::unique_ptr<Body> ChaingunGrunt::clone() const { return std::make_unique<ChaingunGrunt>(); }

ChaingunWeapon& ChaingunGrunt::gun() const { return static_cast<ChaingunWeapon&>(*weapon); }

void ChaingunGrunt::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    static constexpr float delays[] = {333.0f, 250.0f, 200.0f, 125.0f, 100.0f};
    gun().delay = delays[level - 1];
    gun().damage = level == 1 ? 6 : 12;
    gun().knockback = level == 1 ? 10.0f : 20.0f;
    if (level == 1)
        setImage("data/images/chaingunenemy1.png");
}

void ChaingunGrunt::setHealthForLevel(int newLevel)
{
    static constexpr int healths[] = {2000, 60, 80, 100, 120};
    health = initialhealth = healths[std::clamp(newLevel, minLevel, maxLevel) - 1];
}
