#include "gameplay/projectiles/GrappleProjectile.h"

#include "core/Game.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/GrappleWeapon.h"
#include "sound/ISound.h"

GrappleProjectile::GrappleProjectile()
{
    type = "grappleprojectile";
    setMass(5.0f);
    kind = 10;
    speed = 300.0f;
    damage = 15.0f;
    lifeTime = 3000.0f;
    restitution = 0.1f;
    gravitymultiplier = 0.0f;
    setTexture("data/images/grapplestar.png");
    textured = true;
    thinkInterval = 0.0f;
}

GrappleProjectile::~GrappleProjectile()
{
    if (weapon && weapon->hook == this)
        weapon->hook = nullptr;
    if (auto* player = dynamic_cast<Player*>(owner)) {
        if (player->hook == this) {
            player->hook = nullptr;
            player->grappling = false;
            player->hookAttached = false;
        }
    }
}

std::unique_ptr<Body> GrappleProjectile::clone() const { return std::make_unique<GrappleProjectile>(); }

void GrappleProjectile::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (attached || !other || other == this || other == owner || !other->solid)
        return;
    if (!other->visible && other->type != "clip")
        return;
    if (!soundPlayed) {
        soundPlayed = true;
        Game* game = Game::current();
        if (ISound* sound = game ? game->getSound() : nullptr)
            sound->playIdAt(20, pos, 0);
    }
    setMass(0.0f);
    vel = Vector();
    attached = true;
    if (auto* player = dynamic_cast<Player*>(owner))
        player->hookAttached = true;
}

void GrappleProjectile::think(float)
{
    if (attached) {
        vel = Vector();
        if (!owner)
            return;
        const Vector d = pos - owner->pos;
        const float dist = d.length2D();
        if (dist <= 0.0f)
            return;
        const float pull = dist <= closeDistance ? closePullSpeed : pullSpeed;
        owner->vel = Vector(d.x / dist, d.y / dist) * pull;
    }
}

bool GrappleProjectile::collidesWith(Body*) { return false; }
