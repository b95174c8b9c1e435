#include "gameplay/enemies/Engineer.h"

#include <vector>

#include "core/Game.h"
#include "gameplay/enemies/EnemyEffects.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "world/quadtree/QuadTree.h"

namespace {
constexpr float flySpeed = 180.0f;
constexpr float effectRange = 512.0f;
constexpr int repairSound = 42;
}

Engineer::Engineer()
{
    type = "engineer";
    health = initialhealth = maxhealth = 50;
    dropsCash = false;
    vel = Vector();
    setImage("data/images/engineerenemy.png");
}

std::unique_ptr<Body> Engineer::clone() const { return std::make_unique<Engineer>(); }

GameBody* Engineer::findRepairTarget() const
{
    Game* game = Game::current();
    if (!game)
        return nullptr;
    std::vector<Body*> near;
    game->getQuadTree().withinRadius(pos, searchRadius, near);
    GameBody* best = nullptr;
    float bestDistance = 0.0f;
    for (Body* body : near) {
        auto* candidate = dynamic_cast<GameBody*>(body);
        if (!candidate || candidate->cancleanup || (candidate->type != "cpu" && candidate->type != "harddrive"))
            continue;
        const float d = pos.distance2D(candidate->pos);
        if (!best || d < bestDistance) {
            best = candidate;
            bestDistance = d;
        }
    }
    return best;
}

void Engineer::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo)
        return;
    GameBody* target = findRepairTarget();
    if (!target)
        return;
    float distance = 0.0f;
    const Vector d = EnemyEffects::towards(pos, target->pos, distance);
    const float t = now();
    if (distance > repairDistance) {
        steer(vel, d, flySpeed, flySpeed);
        repairing = false;
    } else if (nextRepairTime < t && distance < repairDistance) {
        vel = Vector();
        target->addHealth(repairAmount);
        repairing = true;
        nextRepairTime = t + repairMillis;
    }
    Game* game = Game::current();
    const Body* player = game ? game->getPlayer() : nullptr;
    if (repairing && nextEffectTime < t && player && pos.distance2D(player->pos) < effectRange) {
        const Vector at = pos + d * 8.0f;
        startEffect("engineering", Vector(at.x, at.y, pos.z + 0.1f));
        nextEffectTime = t + 1500.0f + FireableWeapon::uniform(500.0f, 1500.0f);
        EnemyEffects::sound(repairSound, pos);
    }
}
