#include "gameplay/enemies/ProxyGrenade.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "core/Game.h"
#include "gameplay/enemies/EnemyEffects.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "render/IRenderer.h"
#include "world/quadtree/QuadTree.h"

ProxyGrenade::ProxyGrenade()
{
    type = "proxygrenade";
    thinkInterval = 50.0f;
    gravitymultiplier = 1.0f;
    vel = Vector();
    setImage("data/images/proxygrenade.png");
}

std::unique_ptr<Body> ProxyGrenade::clone() const { return std::make_unique<ProxyGrenade>(); }

GameBody* ProxyGrenade::findVictim() const
{
    Game* game = Game::current();
    if (!game)
        return nullptr;
    std::vector<Body*> near;
    game->getQuadTree().withinRadius(pos, triggerRadius, near);
    for (Body* body : near) {
        auto* candidate = dynamic_cast<GameBody*>(body);
        if (!candidate || candidate == this || !candidate->takedamage || candidate->type == "proxygrenade" ||
            candidate->notarget || candidate->dying || candidate->inlimbo || candidate->cancleanup)
            continue;
        if (lineOfSight(*this, *candidate, false))
            return candidate;
    }
    return nullptr;
}

void ProxyGrenade::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    if (findVictim())
        die();
}

void ProxyGrenade::specialAction()
{
    if (exploded)
        return;
    exploded = true;
    // Marked dying while the blast runs, so a neighbour's chain reaction
    // cannot set this mine off a second time.
    const bool wasDying = dying;
    dying = true;
    FireableWeapon::radialDamage(pos, triggerRadius, blastForce, blastDamage, blastDamageType, this);
    dying = wasDying;
    EnemyEffects::explosionWithStreaks(pos);
    std::printf("Proximity mine %s exploded\n", id.c_str());
}

void ProxyGrenade::die()
{
    if (dying || inlimbo)
        return;
    specialAction();
    EnemyBase::die();
}

void ProxyGrenade::deathEffects() { EnemyEffects::cashRollOnly(*this); }

void ProxyGrenade::drawExtras(IRenderer& renderer)
{
    EnemyBase::drawExtras(renderer);
    const float size = std::max(bounds->maxX - bounds->minX, bounds->maxY - bounds->minY) * 1.8f;
    renderer.drawTintedSprite(renderpos.x, renderpos.y, renderpos.z + zShift + 0.1f, size, size,
                              "data/particles/magneticpulse.png", RGBAColour(255.0f, 90.0f, 40.0f, 190.0f));
}
