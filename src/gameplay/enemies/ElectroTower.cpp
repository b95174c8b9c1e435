#include "gameplay/enemies/ElectroTower.h"

#include <algorithm>

#include "gameplay/enemies/EnemyEffects.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/LightningWeapon.h"
#include "render/IRenderer.h"

namespace {
constexpr int alertSound = 31;
}

ElectroTower::ElectroTower() : weapon(std::make_unique<LightningWeapon>())
{
    type = "electrotower";
    thinkInterval = 50.0f;
    health = initialhealth = maxhealth = 100;
    hasGlow = false;
    vel = Vector();
    weapon->delay = 100.0f;
    weapon->knockback = 0.25f;
    weapon->damage = 500;
    weapon->enemyWeapon = true;
    setImage("data/images/electrotower1.png");
}

ElectroTower::~ElectroTower() = default;

std::unique_ptr<Body> ElectroTower::clone() const { return std::make_unique<ElectroTower>(); }

void ElectroTower::sightedChanged() { EnemyEffects::sound(alertSound, pos); }

void ElectroTower::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    vel = Vector();
    Player* player = targetPlayer();
    if (player && pos.distance2D(player->pos) < reach && canSee(false)) {
        setSighted(player);
        setImage("data/images/electrotowersighted1.png");
        float distance = 0.0f;
        const Vector u = EnemyEffects::towards(pos, player->pos, distance);
        if (distance > 0.0f)
            aim = u;
        if (now() - sightedTime > warmUpMillis)
            weapon->fire(this, pos, aim, now());
        return;
    }
    clearSighted();
    setImage("data/images/electrotower1.png");
}

void ElectroTower::step(float dt)
{
    EnemyBase::step(dt);
    if (weapon->firing && (!sighted || inlimbo || dying))
        weapon->stopFiring(now());
}

void ElectroTower::deathEffects()
{
    EnemyEffects::explosion(pos);
    EnemyEffects::cashRollOnly(*this);
}

void ElectroTower::drawExtras(IRenderer& renderer)
{
    EnemyBase::drawExtras(renderer);
    const float size = std::max(bounds->maxX - bounds->minX, bounds->maxY - bounds->minY) * 1.5f;
    const float pulse = sighted ? 230.0f : 140.0f;
    renderer.drawTintedSprite(renderpos.x, renderpos.y, renderpos.z + zShift + 0.1f, size, size,
                              "data/particles/magneticpulse.png", RGBAColour(120.0f, 200.0f, 255.0f, pulse));
}
