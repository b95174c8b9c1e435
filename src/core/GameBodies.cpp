// The Game's bodies: adding and removing them, and moving and colliding them each step.
#include "core/Game.h"

#include <algorithm>
#include <limits>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "world/body/Body.h"

bool Game::isNearPlayer(const Body& body) const
{
    if (body.alwaysactive || !player)
        return true;
    return body.pos.distance2D(player->pos) < activityRadius;
}

void Game::moveBodies(float step)
{
    for (auto it = activeBodies.begin(); it != activeBodies.end(); it = bodyIterNext) {
        Body* body = *it;
        bodyIterNext = std::next(it);
        body->onGround = false;
        if (body->cancleanup) {
            // destroyBody leaves bodyIterNext just past the removed entry.
            destroyBody(body);
            if (body == player)
                player = nullptr;
            delete body;
            continue;
        }
        if (isNearPlayer(*body))
            Collision::integrate(*body, step);
        if (body->mass >= Body::minMass || body->nonmassmover) {
            body->transform();
            quadTree.update(body);
            body->inView = false;
        }
    }
    bodyIterNext = activeBodies.end();
}

bool Game::gravityValue(float& out) const
{
    if (hasGravityOverride) {
        out = gravityOverride;
        return true;
    }
    const GameVar* gravity = findVar("gravity");
    if (!gravity)
        return false;
    out = gravity->floatValue;
    return true;
}

void Game::applyGravity(float step)
{
    float gravity = 0.0f;
    if (!gravityValue(gravity))
        return;
    for (Body* body : activeBodies)
        Collision::applyGravity(*body, gravity, step);
}

void Game::freezeVelocities()
{
    for (Body* body : activeBodies)
        Collision::freezeVelocity(*body);
}

void Game::collideBodies(float step)
{
    for (Body* body : activeBodies)
        if (isNearPlayer(*body))
            collideBody(body, step);
}

void Game::collideBody(Body* body, float step)
{
    collisionCandidates.clear();
    quadTree.candidates(*body, collisionCandidates, step);
    // Touch hooks may spawn bodies, so walk by index over a stable snapshot.
    for (size_t i = 0; i < collisionCandidates.size(); ++i) {
        Body* other = collisionCandidates[i];
        if (noclip && (body == player || other == player))
            continue;
        collision.collide(*body, *other, step);
    }
}

void Game::addBody(Body* body, bool assignId)
{
    bodies.push_back(body);
    if (assignId) {
        body->autoid = nextBodyId;
        if (nextBodyId < std::numeric_limits<int>::max())
            ++nextBodyId;
    }
}

void Game::addActiveBody(Body* body) { activeBodies.push_back(body); }

void Game::removeBody(Body* body)
{
    auto it = std::find(bodies.begin(), bodies.end(), body);
    if (it != bodies.end())
        bodies.erase(it);
}

void Game::removeActiveBody(Body* body)
{
    auto it = std::find(activeBodies.begin(), activeBodies.end(), body);
    if (it != activeBodies.end())
        bodyIterNext = activeBodies.erase(it);
}

void Game::spawnBody(Body* body)
{
    addBody(body, true);
    addActiveBody(body);
    body->transform();
    body->updateBounds();
    quadTree.insert(body);
}

void Game::markForRemoval(Body* body)
{
    if (body)
        body->cancleanup = true;
}

void Game::destroyBody(Body* body)
{
    if (body->quadTreeNode)
        body->quadTreeNode->remove(body);
    body->quadTreeNode = nullptr;
    removeActiveBody(body);
    removeBody(body);
    collisionCandidates.erase(std::remove(collisionCandidates.begin(), collisionCandidates.end(), body),
                              collisionCandidates.end());
    visibleBodies.erase(std::remove(visibleBodies.begin(), visibleBodies.end(), body), visibleBodies.end());
}

void Game::clearLevel()
{
    // The player persists across levels; every other body goes.
    std::list<Body*> doomed;
    doomed.swap(bodies);
    for (Body* body : activeBodies)
        if (std::find(doomed.begin(), doomed.end(), body) == doomed.end())
            doomed.push_back(body);
    activeBodies.clear();
    bodyIterNext = activeBodies.end();
    collisionCandidates.clear();
    visibleBodies.clear();
    for (Body* body : doomed) {
        if (body == player)
            bodies.push_back(body);
        else
            delete body;
    }
}
