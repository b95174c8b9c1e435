#include "world/movers/Attractor.h"

#include <vector>

#include "core/Game.h"
#include "world/level/LevelValues.h"
#include "world/quadtree/QuadTree.h"

Attractor::Attractor()
{
    type = "attractor";
    thinks = true;
    thinkInterval = 100.0f;
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> Attractor::clone() const { return std::make_unique<Attractor>(); }

void Attractor::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "force"))
            force = readFloat(value);
        else if (sameName(name, "radius"))
            radius = readFloat(value);
    }
}

void Attractor::afterTargets()
{
    GameBody::afterTargets();
    startEffect("attractor");
}

void Attractor::attract(Body& body) const
{
    if (body.mass < minMass)
        return;
    Vector d(pos.x - body.pos.x, pos.y - body.pos.y);
    d.normalise();
    d = d * force;
    body.vel += d;
    if (body.constantvelocity.x != 0.0f || body.constantvelocity.y != 0.0f)
        body.constantvelocity += d;
}

void Attractor::think(float dt)
{
    GameBody::think(dt);
    Game* game = Game::current();
    if (!game)
        return;
    std::vector<Body*> near;
    game->getQuadTree().withinRadius(pos, radius, near);
    for (Body* body : near)
        if (body != this)
            attract(*body);
}
