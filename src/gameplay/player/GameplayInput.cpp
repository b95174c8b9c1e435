#include "gameplay/player/GameplayInput.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "console/CommandRegistry.h"
#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/player/Player.h"

bool GameplayInput::moveRight = false;
bool GameplayInput::moveLeft = false;
bool GameplayInput::moveUp = false;
bool GameplayInput::moveDown = false;
bool GameplayInput::boost = false;
bool GameplayInput::grapple = false;
bool GameplayInput::attack = false;
bool GameplayInput::fireById = false;
bool GameplayInput::slow = false;
bool GameplayInput::nextWeaponRequested = false;
bool GameplayInput::previousWeaponRequested = false;
int GameplayInput::fireWeaponId = 0;

namespace {
Player* currentPlayer() { return GameplaySingleton::get().resources.player; }

// "+fire 3" and "-fire 3" name the weapon; without an argument the last id stays.
void readWeaponId()
{
    CommandRegistry& reg = CommandRegistry::instance();
    if (reg.argumentCount > 0)
        GameplayInput::fireWeaponId = GameVar::parseInt(reg.arg(0));
}

// Controls pressed since the last step: a tap let go within one step still
// counts for that step. Demos replay the same commands at the same step, so
// a replay taps alike.
std::vector<bool*> taps;
// Tapped controls standing in as held for the step under way.
std::vector<bool*> tapsInStep;

// At most one entry per control, however long no step runs.
void noteTap(bool& flag)
{
    if (std::find(taps.begin(), taps.end(), &flag) == taps.end())
        taps.push_back(&flag);
}

void holdCommand(const char* description, const char* name, bool& flag, bool value)
{
    registerCommand(description, name, [&flag, value] {
        flag = value;
        if (value)
            noteTap(flag);
    });
}
}

void GameplayInput::init()
{
    GameInput::init();
    registerCommands();
}

void GameplayInput::registerCommands()
{
    holdCommand("move right", "+moveright", moveRight, true);
    holdCommand("stop moving right", "-moveright", moveRight, false);
    holdCommand("move left", "+moveleft", moveLeft, true);
    holdCommand("stop moving left", "-moveleft", moveLeft, false);
    holdCommand("move up", "+moveup", moveUp, true);
    holdCommand("stop moving up", "-moveup", moveUp, false);
    holdCommand("move down or crouch", "+movedown", moveDown, true);
    holdCommand("stop moving down or stand up", "-movedown", moveDown, false);
    holdCommand("quick burst of thrusters", "+boost", boost, true);
    holdCommand("stop the quick thruster burst", "-boost", boost, false);
    holdCommand("fire your grappling hook", "+grapple", grapple, true);
    holdCommand("release your grip on the grapple", "-grapple", grapple, false);
    holdCommand("fire your weapon", "+attack", attack, true);
    holdCommand("stop firing your weapon", "-attack", attack, false);
    registerCommand("fire a given weapon id", "+fire", [] {
        fireById = true;
        noteTap(fireById);
        readWeaponId();
    });
    registerCommand("stop firing the weapon with id", "-fire", [] {
        fireById = false;
        readWeaponId();
    });
    registerCommand("change to next weapon", "nextweap", [] { nextWeaponRequested = true; });
    registerCommand("change to previous weapon", "prevweap", [] { previousWeaponRequested = true; });
    registerCommand("toggles whether the AI will see you or not", "invis", [] {
        Player* p = currentPlayer();
        if (!p)
            return;
        p->notarget = !p->notarget;
        conPrint(p->notarget ? "Invisible on" : "Invisible off");
    });
    registerCommand("toggle invincibility", "god", [] {
        Player* p = currentPlayer();
        if (!p)
            return;
        p->setGodMode(!p->isGodMode());
        conPrint(p->isGodMode() ? "God mode on" : "God mode off");
    });
    // Stuck or fell somewhere without a way out: die and restart the level.
    registerCommand("kill yourself and restart the level", "kill", [] {
        Player* p = currentPlayer();
        if (!p || p->dead)
            return;
        p->health = 0;
        p->die();
    });
    holdCommand("", "+slow", slow, true);
    holdCommand("stop slowing down", "-slow", slow, false);

    moveMode = getVar("movemode");
}

void GameplayInput::step(Body* player, float stepLength)
{
    if (auto* p = dynamic_cast<Player*>(player))
        applyControls(p, stepLength);
    // The taps have had their step.
    for (bool* flag : tapsInStep)
        *flag = false;
    tapsInStep.clear();
}

void GameplayInput::update(Body* player)
{
    // update opens the step: taps already let go count as held until it ends.
    for (bool* flag : taps)
        if (!*flag) {
            *flag = true;
            tapsInStep.push_back(flag);
        }
    taps.clear();
    updatePlayer(dynamic_cast<Player*>(player));
}

void GameplayInput::releaseAll()
{
    GameInput::releaseAll();
    taps.clear();
    tapsInStep.clear();
    moveRight = moveLeft = moveUp = moveDown = false;
    boost = grapple = attack = fireById = slow = false;
    nextWeaponRequested = previousWeaponRequested = false;
}

Vector GameplayInput::computeForce(Player& player, float stepTime)
{
    const float m = player.mass;
    const float horizontal = static_cast<float>(moveRight) - static_cast<float>(moveLeft);
    const float up = moveUp ? 1.0f : 0.0f;
    const float down = moveDown ? 1.0f : 0.0f;
    Vector force;

    if (moveMode && moveMode->intValue == platformMode) {
        if (player.takeGroundContact()) {
            force.x = horizontal * 190.0f * m;
            player.canJump = true;
            player.airTime = 0.0f;
        } else {
            force.x = horizontal * 80.0f * m;
        }
        if (player.airTime > jumpAllowance)
            player.canJump = false;
        force.y = down * -320.0f * m;
        if (player.inliquidlastframe) {
            // Swimming: up strokes at any depth, up to a gentle rising speed,
            // enough to leave the water with a hop over a low rim.
            if (player.vel.y < swimSpeed)
                force.y += up * 320.0f * m;
        } else if (player.canJump) {
            force.y += up * 320.0f * m;
        }
        player.airTime += stepTime;
    } else {
        force.x = horizontal * 300.0f * m;
        force.y = down * -300.0f * m + up * 300.0f * m;
    }

    // Drag on the raw velocity, deliberately not scaled by the mass.
    if (stepTime > 0.0f) {
        force.x -= 0.9f * player.vel.x;
        force.y -= 0.9f * player.vel.y;
    }
    return force;
}

void GameplayInput::applyControls(Player* player, float stepTime)
{
    if (!player || player->dead)
        return;
    const Vector force = computeForce(*player, stepTime);
    const float direction = static_cast<float>(moveRight) - static_cast<float>(moveLeft);
    // Ground contacts are only reported every few steps while resting, so
    // "walking" means a contact within the last few steps.
    const bool walking = moveMode && moveMode->intValue == platformMode && player->airTime <= walkingAirTime;
    if (walking && direction != 0.0f)
        stepUp(*player, direction, stepTime);
    player->applyForce(force, stepTime);
}

bool GameplayInput::blockedAt(Player& player, const Vector& shift, const std::vector<Body*>& near)
{
    Collision::Hit hit;
    const Vector at = player.pos + shift;
    for (Body* other : near) {
        if (other == &player || !other->solid || other->isMovable() || !other->collidesWith(&player) ||
            !player.collidesWith(other))
            continue;
        if (overlapTest.sweptTest(player.localVertices, at, Vector(), other->localVertices, other->pos, Vector(), hit))
            return true;
    }
    return false;
}

bool GameplayInput::stepUp(Player& player, float direction, float stepTime)
{
    Game* game = Game::current();
    if (!game || player.localVertices.size() < 3 || player.rotation != 0.0f)
        return false;
    // Where this step's walk would take the feet, and at least a unit ahead.
    const float reach = std::fabs(player.vel.x) * stepTime + 1.0f;
    const Vector ahead(direction > 0.0f ? reach : -reach, 0.0f);
    nearby.clear();
    game->getQuadTree().withinRadius(player.pos, player.radius + reach + stepHeight, nearby);
    // A resting body sinks a little into its floor: only what stands above
    // that blocks the way.
    const Vector sink(0.0f, restingSink);
    if (!blockedAt(player, ahead + sink, nearby))
        return false;
    for (float lift = 2.0f * restingSink; lift <= stepHeight + restingSink; lift += restingSink) {
        const Vector up(0.0f, lift);
        // Room overhead where the player stands, and on top of the ledge.
        if (blockedAt(player, up, nearby))
            return false;
        if (!blockedAt(player, ahead + up, nearby)) {
            // A little over, to land on the ledge rather than clip its edge.
            player.pos.y += lift + 0.5f * restingSink;
            player.transform();
            player.updateBounds();
            game->getQuadTree().update(&player);
            if (player.vel.y < 0.0f)
                player.vel.y = 0.0f;
            return true;
        }
    }
    return false;
}

void GameplayInput::updatePlayer(Player* player)
{
    if (!player) {
        if (fireById)
            std::printf("NULL PLAYER for fireweap\n");
        else if (fireWeaponId > 0 && fireWeaponId < 12)
            std::printf("NULL PLAYER for unfireweap\n");
        return;
    }
    if (player->dead)
        return;

    if (attack) {
        player->isfiring = true;
        player->fireCurrentWeapon();
    } else if (fireById) {
        player->isfiring = true;
        player->inventory.fire(player, player->pos, player->aimDirection(), Player::now(), fireWeaponId);
    } else {
        player->isfiring = false;
        player->stopFiring();
        if (fireWeaponId > 0 && fireWeaponId < 12)
            player->inventory.stopFiring(fireWeaponId, Player::now());
    }

    if (nextWeaponRequested) {
        nextWeaponRequested = false;
        player->inventory.nextWeapon();
    }
    if (previousWeaponRequested) {
        previousWeaponRequested = false;
        player->inventory.previousWeapon();
    }
}
