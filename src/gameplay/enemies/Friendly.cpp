#include "gameplay/enemies/Friendly.h"

#include <algorithm>

#include "gameplay/enemies/SwarmMember.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/MeleeWeapon.h"
#include "gameplay/weapons/PlasmaPistolWeapon.h"

Friendly::Friendly() : melee(std::make_unique<MeleeWeapon>()), plasma(std::make_unique<PlasmaPistolWeapon>())
{
    type = "friendly";
    setEnemy(false);
    setPlayerSide(true);
    dropsCash = false;
    setMass(10.0f);
    setImage("data/images/friendly.png");
    melee->enemyWeapon = false;
    melee->delay = 1000.0f;
    melee->damage = 5;
    melee->damageType = 1024;
    melee->radius = 32.0f;
    plasma->enemyWeapon = false;
    plasma->delay = 500.0f;
    setHealthForLevel(1);
}

Friendly::~Friendly() = default;

std::unique_ptr<Body> Friendly::clone() const { return std::make_unique<Friendly>(); }

void Friendly::setHealthForLevel(int newLevel)
{
    static constexpr int healths[] = {100, 150, 200, 250, 300};
    health = initialhealth = healths[std::clamp(newLevel, minLevel, maxLevel) - 1];
}

void Friendly::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    const float t = now();
    if (GameBody* enemy = SwarmMember::nearestVisibleEnemy(*this, huntRange)) {
        const Vector d = enemy->pos - pos;
        const float dist = d.length2D();
        const Vector u = dist > 0.0f ? Vector(d.x / dist, d.y / dist) : Vector(1.0f, 0.0f);
        if (dist > 16.0f)
            steer(vel, u, accel, accel);
        if (dist < melee->radius)
            melee->fire(this, pos, u, t);
        plasma->fire(this, pos, u, t);
        return;
    }
    Player* player = currentPlayer();
    if (!player || player->dead)
        return;
    const Vector d = player->pos - pos;
    const float dist = d.length2D();
    if (dist > waitDistance)
        vel = Vector();
    else if (dist > followNear && dist < huntRange)
        steer(vel, Vector(d.x / dist, d.y / dist), accel, accel);
}
