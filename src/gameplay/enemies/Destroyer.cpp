#include "gameplay/enemies/Destroyer.h"

#include <tinyxml.h>

#include "gameplay/enemies/EnemyEffects.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/GrenadeWeapon.h"
#include "gameplay/weapons/RocketWeapon.h"
#include "gameplay/weapons/ShotgunWeapon.h"
#include "world/level/LevelValues.h"

Destroyer::Destroyer()
{
    type = "destroyer";
    health = initialhealth = maxhealth = 1250;
    cashMin = cashMax = 5;
    cashChance = 100;
    patrolSpeed = 128.0f;
    startPatrol();
    setImage("data/images/destroyer1.png");

    auto rockets = std::make_unique<RocketWeapon>();
    rockets->delay = 500.0f;
    rockets->speed = 400.0f;
    rockets->projectileDamage = 20.0f;
    rockets->radius = 64.0f;
    rockets->rocketKnockback = 1.0f;
    auto grenades = std::make_unique<GrenadeWeapon>();
    grenades->delay = 500.0f;
    grenades->speed = 170.0f;
    grenades->projectileDamage = 50.0f;
    grenades->radius = 32.0f;
    auto shotgun = std::make_unique<ShotgunWeapon>();
    shotgun->delay = 800.0f;
    shotgun->numShots = 4;
    shotgun->damage = 10;
    shotgun->knockback = 8.0f;
    weapons[0] = std::move(rockets);
    weapons[1] = std::move(grenades);
    weapons[2] = std::move(shotgun);
    for (auto& weapon : weapons)
        weapon->enemyWeapon = true;
}

Destroyer::~Destroyer() = default;

std::unique_ptr<Body> Destroyer::clone() const { return std::make_unique<Destroyer>(); }

void Destroyer::readState(TiXmlElement* element)
{
    EnemyBase::readState(element);
    if (!element)
        return;
    nextFire = readFloat(attributeText(element, "nextfire"));
    nextFireEnd = readFloat(attributeText(element, "nextfireend"));
    nextFireDuration = readFloat(attributeText(element, "nextfireduration"));
    nextFireDelay = readFloat(attributeText(element, "nextfiredelay"));
    const int state = readInt(attributeText(element, "weaponstate"));
    weaponState = state >= 0 && state < weaponCount ? state : 0;
    firing = readBool(attributeText(element, "firing"));
}

void Destroyer::writeState(TiXmlElement* element)
{
    EnemyBase::writeState(element);
    if (!element)
        return;
    element->SetAttribute("nextfire", writeFloat(nextFire));
    element->SetAttribute("nextfireend", writeFloat(nextFireEnd));
    element->SetAttribute("nextfireduration", writeFloat(nextFireDuration));
    element->SetAttribute("nextfiredelay", writeFloat(nextFireDelay));
    element->SetAttribute("weaponstate", writeInt(weaponState));
    element->SetAttribute("firing", writeBool(firing));
}

void Destroyer::updateBurst(float t)
{
    if (firing && t > nextFireEnd) {
        firing = false;
        weaponState = (weaponState + 1) % weaponCount;
        nextFire = t + nextFireDelay;
    }
}

void Destroyer::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo)
        return;
    const float t = now();
    // A burst runs out on time even when the player slips away mid-burst.
    updateBurst(t);
    Player* player = targetPlayer();
    float distance = 0.0f;
    const Vector u = player ? EnemyEffects::towards(pos, player->pos, distance) : Vector();
    if (!player || distance >= engageRange || !canSee(false)) {
        patrol(t);
        return;
    }
    steer(vel, u, patrolSpeed, patrolSpeed);
    if (!firing && nextFire < t) {
        firing = true;
        nextFireEnd = t + nextFireDuration;
    }
    if (firing)
        weapons[weaponState]->fire(this, pos, u, t);
}
