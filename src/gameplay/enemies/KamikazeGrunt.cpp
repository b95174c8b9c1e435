#include "gameplay/enemies/KamikazeGrunt.h"

#include <tinyxml.h>

#include "gameplay/player/Player.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int blastType = 512;
constexpr float blastForce = 0.5f;
constexpr int explosionSound = 0;
}

KamikazeGrunt::KamikazeGrunt()
{
    type = "kamikazegrunt";
    startPatrol();
    setLevel(1);
    setHealthForLevel(1);
}

std::unique_ptr<Body> KamikazeGrunt::clone() const { return std::make_unique<KamikazeGrunt>(); }

void KamikazeGrunt::setLevel(int newLevel)
{
    EnemyBase::setLevel(newLevel);
    if (level == 1) {
        triggerRange = 64.0f;
        blastDistance = 44.8f;
        blastDamage = 50;
        setImage("data/images/kamikazeenemy1.png");
    } else if (level == 2) {
        triggerRange = 96.0f;
        blastDistance = 67.2f;
        blastDamage = 70;
    }
}

void KamikazeGrunt::setHealthForLevel(int) { health = initialhealth = 50; }

void KamikazeGrunt::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying || exploded)
        return;
    const float t = now();
    Player* player = targetPlayer();
    const Vector d = player ? player->pos - pos : Vector();
    const float dist = d.length2D();
    if (player && dist < blastDistance) {
        specialAction();
        return;
    }
    if (fuseTime > 0.0f && t > fuseTime) {
        specialAction();
        return;
    }
    if (player && dist < triggerRange && fuseTime <= 0.0f)
        fuseTime = t + fuseMillis;
    if (!player || dist >= engageRange || dist <= 0.0f) {
        patrol(t);
        return;
    }
    if (!canSee(false)) {
        clearSighted();
        patrol(t);
        return;
    }
    setSighted(player);
    if (t - sightedTime > chargeDelay)
        steer(vel, Vector(d.x / dist, d.y / dist), 180.0f, 180.0f);
}

void KamikazeGrunt::specialAction()
{
    if (exploded)
        return;
    exploded = true;
    reportAttack();
    // Dying while the blast runs, so its own blast cannot kill it a second time.
    const bool wasDying = dying;
    dying = true;
    FireableWeapon::radialDamage(pos, triggerRange, blastForce, scaleDamage(blastDamage), blastType, this);
    dying = wasDying;
    for (const char* name : {"explosionshock", "explosionfire", "explosionspark"})
        FireableWeapon::effect(name, FireableWeapon::raised(pos, 0.2f));
    for (int i = 0; i < 6; ++i) {
        const Vector spark(FireableWeapon::uniform(-1.0f, 1.0f), FireableWeapon::uniform(-1.0f, 1.0f));
        FireableWeapon::effect("tracer", FireableWeapon::raised(pos, 0.2f),
                               FireableWeapon::raised(pos + spark * triggerRange, 0.2f));
    }
    playSoundHere(explosionSound);
    die();
}

void KamikazeGrunt::die()
{
    if (dying || inlimbo)
        return;
    // However it dies, shot or blown up, it goes off.
    specialAction();
    EnemyBase::die();
}

void KamikazeGrunt::readState(TiXmlElement* element)
{
    EnemyBase::readState(element);
    if (element)
        fuseTime = readFloat(attributeText(element, "fusetime"));
}

void KamikazeGrunt::writeState(TiXmlElement* element)
{
    EnemyBase::writeState(element);
    if (element)
        element->SetAttribute("fusetime", writeFloat(fuseTime));
}
