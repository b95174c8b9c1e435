#include "gameplay/enemies/Sniper.h"

#include <algorithm>
#include <cmath>

#include "gameplay/player/Player.h"
#include "gameplay/weapons/RailgunWeapon.h"
#include "render/IRenderer.h"

Sniper::Sniper() : weapon(std::make_unique<RailgunWeapon>())
{
    type = "sniper";
    startPatrol();
    weapon->enemyWeapon = true;
    setLevel(1);
    setHealthForLevel(1);
}

Sniper::~Sniper() = default;

std::unique_ptr<Body> Sniper::clone() const { return std::make_unique<Sniper>(); }

void Sniper::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    if (level == 1)
        setImage("data/images/sniperenemy1.png");
}

void Sniper::setHealthForLevel(int newLevel)
{
    static constexpr int healths[] = {50, 60, 80, 100, 120};
    health = initialhealth = healths[std::clamp(newLevel, minLevel, maxLevel) - 1];
}

void Sniper::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    const float t = now();
    patrol(t);
    Player* player = targetPlayer();
    const Vector d = player ? player->pos - pos : Vector();
    const float dist = d.length2D();
    if (!player || dist <= 0.0f || dist >= fireRange || !canSee(false)) {
        clearSighted();
        return;
    }
    // Cleared after every shot, so each one starts a new aim.
    setSighted(player);
    if (t - sightedTime < aimMillis || !weapon->canFire(t))
        return;
    const Vector u(d.x / dist, d.y / dist);
    const Vector muzzle = pos + u * 6.0f;
    const Vector side(-u.y, u.x);
    const float miss = FireableWeapon::uniform(-aimError, aimError) *
                       std::sin(2.0f * 3.14159265f * FireableWeapon::uniform(0.0f, 1.0f));
    Vector aim = player->pos + side * miss - muzzle;
    const float len = aim.length2D();
    if (len <= 0.0f)
        return;
    aim = Vector(aim.x / len, aim.y / len);
    if (weapon->fire(this, muzzle, aim, t)) {
        reportAttack();
        clearSighted();
    }
}

void Sniper::drawExtras(IRenderer& renderer)
{
    if (!sighted || inlimbo || dying)
        return;
    const Vector& from = renderpos;
    const Vector& to = sighted->renderpos;
    const float z = from.z + zShift + 0.1f;
    renderer.setTexturing(true);
    renderer.setAdditiveBlend();
    renderer.bindTexture("data/particles/laserbeam.tga");
    renderer.setColour(255.0f, 0.0f, 0.0f, 220.0f);
    renderer.drawBeam(from, to, z, 1.5f, true);
    renderer.setAlphaBlend();
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
}
