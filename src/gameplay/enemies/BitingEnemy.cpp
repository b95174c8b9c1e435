#include "gameplay/enemies/BitingEnemy.h"

#include "gameplay/enemies/EnemyEffects.h"
#include "gameplay/player/Player.h"

BitingEnemy::BitingEnemy() { type = "bitingenemy"; }

std::unique_ptr<Body> BitingEnemy::clone() const { return std::make_unique<BitingEnemy>(); }

void BitingEnemy::onTouch(TouchInfo& info)
{
    EnemyBase::onTouch(info);
    Player* player = currentPlayer();
    if (!player || info.other != player || dying || inlimbo)
        return;
    const float t = now();
    if (nextBiteTime >= t)
        return;
    player->takeDamage(attack, -1);
    nextBiteTime = t + biteMillis;
    vel = Vector();
}

void BitingEnemy::deathEffects()
{
    if (showdamage)
        startEffect("smallbloodexplosion");
    EnemyEffects::cashRollOnly(*this);
}

bool BitingEnemy::chasePlayer(float range)
{
    Player* player = targetPlayer();
    if (!player || pos.distance2D(player->pos) >= range || !canSee(true))
        return false;
    float distance = 0.0f;
    steer(vel, EnemyEffects::towards(pos, player->pos, distance), speed, speed);
    return true;
}
