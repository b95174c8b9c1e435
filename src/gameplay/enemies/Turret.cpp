#include "gameplay/enemies/Turret.h"

#include <tinyxml.h>

#include "gameplay/player/Player.h"
#include "gameplay/weapons/ChaingunWeapon.h"
#include "gameplay/weapons/WeaponMapping.h"
#include "render/IRenderer.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int lockOnSound = 31;
constexpr int chaingunId = 5;
const char* const idleImage = "data/images/Turret.png";
const char* const sightedImage = "data/images/TurretSighted.png";
}

Turret::Turret() : weapon(std::make_unique<ChaingunWeapon>())
{
    type = "turret";
    thinkInterval = 50.0f;
    health = initialhealth = 100;
    hasGlow = false;
    vel = Vector();
    setMass(0.0f);
    weapon->enemyWeapon = true;
    weapon->delay = 500.0f;
    weapon->knockback = 20.0f;
    weapon->damage = 24;
    setImage(idleImage);
}

Turret::~Turret() = default;

std::unique_ptr<Body> Turret::clone() const { return std::make_unique<Turret>(); }

void Turret::think(float dt)
{
    EnemyBase::think(dt);
    vel = Vector();
    if (inlimbo || dying)
        return;
    Player* player = targetPlayer();
    const Vector d = player ? player->pos - pos : Vector();
    const float dist = d.length2D();
    if (player && dist < sightRange && dist > 0.0f && canSee(false)) {
        setSighted(player);
        setImage(sightedImage);
        aim = Vector(d.x / dist, d.y / dist);
        if (now() - sightedTime > warmUpMillis && weapon->fire(this, pos, aim, now()))
            reportAttack();
        return;
    }
    clearSighted();
    setImage(idleImage);
}

void Turret::sightedChanged() { playSoundHere(lockOnSound); }

void Turret::drawExtras(IRenderer& renderer)
{
    const Vector& at = renderpos;
    const float z = at.z + zShift + 0.1f;
    renderer.setTexturing(true);
    renderer.setBlending(true);
    renderer.setAlphaBlend();
    // The gun's view art points along +x. A beam quad lays its texture's
    // width across the beam, so the beam runs across the aim; the image is
    // mirrored, never turned upside down, when aiming left.
    renderer.bindTexture("data/images/" + WeaponMapping::itemName(chaingunId) + "_view.png", true);
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    const Vector centre = at + aim * 8.0f;
    const Vector across = Vector(aim.y, -aim.x) * 5.0f;
    if (aim.x < 0.0f)
        renderer.drawBeam(centre - across, centre + across, z, 13.0f, true, false);
    else
        renderer.drawBeam(centre + across, centre - across, z, 13.0f, true, true);
    renderer.setAdditiveBlend();
    renderer.bindTexture("data/particles/laserbeam.tga");
    renderer.setColour(255.0f, 0.0f, 0.0f, 220.0f);
    renderer.drawBeam(at + aim * 6.0f, at + aim * 32.0f, z + 0.05f, 1.5f, true);
    renderer.setAlphaBlend();
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
}

void Turret::readState(TiXmlElement* element)
{
    EnemyBase::readState(element);
    if (!element)
        return;
    if (element->Attribute("aimx"))
        aim = Vector(readFloat(attributeText(element, "aimx")), readFloat(attributeText(element, "aimy")));
}

void Turret::writeState(TiXmlElement* element)
{
    EnemyBase::writeState(element);
    if (!element)
        return;
    element->SetAttribute("aimx", writeFloat(aim.x));
    element->SetAttribute("aimy", writeFloat(aim.y));
}
