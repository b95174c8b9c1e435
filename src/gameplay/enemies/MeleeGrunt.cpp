#include "gameplay/enemies/MeleeGrunt.h"

#include <algorithm>

#include "gameplay/weapons/MeleeWeapon.h"

MeleeGrunt::MeleeGrunt()
{
    type = "meleegrunt";
    auto gun = std::make_unique<MeleeWeapon>();
    gun->enemyWeapon = true;
    weapon = std::move(gun);
    setLevel(1);
    setHealthForLevel(1);
}

std::unique_ptr<Body> MeleeGrunt::clone() const { return std::make_unique<MeleeGrunt>(); }

MeleeWeapon& MeleeGrunt::gun() const { return static_cast<MeleeWeapon&>(*weapon); }

void MeleeGrunt::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    gun().delay = 1000.0f;
    gun().damage = 5;
    gun().radius = 32.0f;
    setImage("data/images/meleeenemy1.png");
}

void MeleeGrunt::setHealthForLevel(int newLevel)
{
    static constexpr int healths[] = {50, 60, 80, 100, 120};
    health = initialhealth = healths[std::clamp(newLevel, minLevel, maxLevel) - 1];
}

void MeleeGrunt::attack(const Vector& aim, float dist, float now)
{
    if (dist < gun().radius)
        GruntEnemy::attack(aim, dist, now);
}
