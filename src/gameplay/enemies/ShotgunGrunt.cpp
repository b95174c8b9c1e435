#include "gameplay/enemies/ShotgunGrunt.h"

#include <algorithm>
#include <string>

#include "gameplay/weapons/ShotgunWeapon.h"

ShotgunGrunt::ShotgunGrunt()
{
    type = "shotgungrunt";
    closeDistance = 64.0f;
    auto gun = std::make_unique<ShotgunWeapon>();
    gun->enemyWeapon = true;
    gun->delay = 800.0f;
    gun->knockback = 8.0f;
    weapon = std::move(gun);
    setLevel(1);
    setHealthForLevel(1);
}

std::unique_ptr<Body> ShotgunGrunt::clone() const { return std::make_unique<ShotgunGrunt>(); }

ShotgunWeapon& ShotgunGrunt::gun() const { return static_cast<ShotgunWeapon&>(*weapon); }

void ShotgunGrunt::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    static constexpr int pellets[] = {4, 5, 8, 10, 10};
    static constexpr int damages[] = {5, 5, 5, 6, 10};
    gun().numShots = pellets[level - 1];
    gun().damage = damages[level - 1];
    if (level == 1)
        setImage("data/images/shotgunenemy1.png");
}

void ShotgunGrunt::setHealthForLevel(int newLevel)
{
    static constexpr int healths[] = {50, 60, 80, 100, 120};
    health = initialhealth = healths[std::clamp(newLevel, minLevel, maxLevel) - 1];
}
