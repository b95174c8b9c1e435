#include "gameplay/enemies/GruntEnemy.h"

#include "gameplay/player/Player.h"

void GruntEnemy::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    const float t = now();
    Player* player = targetPlayer();
    if (!player) {
        patrol(t);
        return;
    }
    const Vector d = player->pos - pos;
    const float dist = d.length2D();
    const bool seen = dist > 0.0f && canSee(false);
    if (!seen || dist >= engageRange) {
        patrol(t);
        return;
    }
    const Vector u(d.x / dist, d.y / dist);
    if (dist <= closeDistance)
        patrol(t);
    else
        steer(vel, u, approachAccel, approachAccel);
    attack(u, dist, t);
}

void GruntEnemy::attack(const Vector& aim, float, float now)
{
    if (weapon && weapon->fire(this, pos, aim, now))
        reportAttack();
}
