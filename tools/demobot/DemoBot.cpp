#include "DemoBot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "core/DemoManager.h"
#include "core/Game.h"
#include "gameplay/enemies/EnemyBase.h"
#include "gameplay/enemies/BlockBoss.h"
#include "gameplay/enemies/Friendly.h"
#include "gameplay/player/Player.h"
#include "input/GameInput.h"
#include "world/body/Body.h"
#include "world/movers/BossBlock.h"
#include "world/quadtree/QuadTree.h"
#include "world/quadtree/Ray.h"

namespace {
const char* const keyNames[] = {"d", "a", "w", "mouse1", "mouse2"};
const char* const keyCommands[] = {"+moveright", "+moveleft", "+moveup", "+attack", "+fire 1"};
constexpr float stepSeconds = Game::stepSeconds;
// Far along a line, so the aim holds its direction while the player moves.
constexpr float far = 1.0e6f;
}

DemoBot::DemoBot(Game& owner) : game(owner), input(owner.getGameInput()), trace(std::getenv("DEMOBOT_TRACE"))
{
    if (input)
        for (int k = 0; k < keyCount; ++k)
            input->setBinding(keyNames[k], keyCommands[k]);
}

void DemoBot::set(Key key, bool down)
{
    if (!input || held[key] == down)
        return;
    held[key] = down;
    if (down)
        input->keyDown(0, 0, keyNames[key]);
    else
        input->keyUp(0, 0, keyNames[key]);
}

void DemoBot::releaseKeys()
{
    for (int k = 0; k < keyCount; ++k)
        set(static_cast<Key>(k), false);
}

// Runs towards x; a player who stops against something jumps it.
void DemoBot::steer(float towards, Player& player)
{
    const bool east = towards > player.pos.x;
    // Rising off the ground first: pressed against a wall, a jump drags on it.
    const bool pushing = !unsticking || jumpTime < 0.3f;
    set(east ? right : left, pushing);
    set(east ? left : right, false);
    player.mouseWorldPos = Vector(east ? far : -far, 0.0f);
    if (jumpTime > 0.0f) {
        jumpTime -= stepSeconds;
        set(jump, jumpTime > 0.0f);
        return;
    }
    unsticking = false;
    // Pressed against a wedged block the speed reads high while the player
    // goes nowhere: look at the distance moved too.
    const bool still = std::fabs(player.pos.x - lastX) < 0.05f;
    lastX = player.pos.x;
    stuckTime = std::fabs(player.vel.x) < 8.0f || still ? stuckTime + stepSeconds : 0.0f;
    // Stopped by something: jump it (in water the held jump swims up).
    if (stuckTime > 0.2f) {
        jumpTime = 0.45f;
        unsticking = true;
        stuckTime = 0.0f;
        set(jump, true);
    }
}

// Gets behind the nearest block of the boss's colour and shoves it into
// the boss, shooting its reinforcements on the way.
bool DemoBot::pushBlock(const RouteAction& action, Player& player)
{
    BlockBoss* boss = nullptr;
    for (Body* body : game.getBodies())
        if (auto* b = dynamic_cast<BlockBoss*>(body); b && !b->dying && b->health > 0)
            boss = b;
    if (!boss || actionTime > action.seconds) {
        set(right, false);
        set(left, false);
        set(fire, false);
        set(jump, false);
        return true;
    }
    BossBlock* block = nullptr;
    float best = std::numeric_limits<float>::max();
    for (Body* body : game.getBodies()) {
        auto* b = dynamic_cast<BossBlock*>(body);
        // Blocks thrown up on to a balcony are out of play.
        if (b && b->blocktype == boss->damageState && b->pos.y < 60.0f &&
            std::fabs(b->pos.x - player.pos.x) < best) {
            best = std::fabs(b->pos.x - player.pos.x);
            block = b;
        }
    }
    if (!block) {
        brake(player);
        return false;
    }
    const bool bossEast = boss->pos.x > block->pos.x;
    const bool behind = bossEast ? player.pos.x < block->pos.x - 20.0f : player.pos.x > block->pos.x + 20.0f;
    // On the wrong side: hop over the block rather than shove it away.
    if (!behind && best < 64.0f && player.airTime <= 0.1f && jumpTime <= 0.0f)
        jumpTime = 0.45f;
    // Behind it, wait for the boss to come close: a long shove runs the
    // block over the pads.
    if (behind && std::fabs(boss->pos.x - block->pos.x) > 160.0f)
        brake(player);
    else
        steer(behind ? boss->pos.x : block->pos.x + (bossEast ? -48.0f : 48.0f), player);
    if (Body* add = nearestTarget(player, defendRange)) {
        player.mouseWorldPos = add->pos;
        set(fire, true);
    } else {
        set(fire, false);
    }
    return false;
}

// Stands still: a player lets go and taps against the slide.
void DemoBot::brake(const Player& player)
{
    const bool sliding = std::fabs(player.vel.x) > 15.0f && player.airTime <= 0.1f;
    set(right, sliding && player.vel.x < 0.0f);
    set(left, sliding && player.vel.x > 0.0f);
}

Body* DemoBot::nearestTarget(const Player& player, float range) const
{
    Body* best = nullptr;
    float bestDistance = range;
    for (Body* body : game.getBodies()) {
        auto* target = dynamic_cast<GameBody*>(body);
        if (!target || target == &player || target->dying || target->health <= 0 || !target->takedamage)
            continue;
        // An ally is an EnemyBase too; a player never shoots one. Guns do
        // nothing to the block boss.
        if (!dynamic_cast<EnemyBase*>(body) || dynamic_cast<Friendly*>(body) || dynamic_cast<BlockBoss*>(body))
            continue;
        const float d = (body->pos - player.pos).length2D();
        if (d < bestDistance && inSight(player, *body)) {
            bestDistance = d;
            best = body;
        }
    }
    return best;
}

// Nothing solid and fixed between the two: a shot would get there.
bool DemoBot::inSight(const Player& player, const Body& target) const
{
    TraceResults hits;
    game.getQuadTree().trace(Ray(player.pos, target.pos), hits, false);
    for (const TraceResult& hit : hits.results)
        if (hit.body && hit.body != &player && hit.body != &target && hit.body->mass < Body::minMass)
            return false;
    return true;
}

bool DemoBot::solidAt(const Vector& point) const
{
    for (const Body* body : game.getBodies()) {
        if (!body->solid || body->worldVertices.empty())
            continue;
        float x0 = body->worldVertices[0].x, x1 = x0, y0 = body->worldVertices[0].y, y1 = y0;
        for (const Vector& v : body->worldVertices) {
            x0 = std::min(x0, v.x);
            x1 = std::max(x1, v.x);
            y0 = std::min(y0, v.y);
            y1 = std::max(y1, v.y);
        }
        if (point.x > x0 && point.x < x1 && point.y > y0 && point.y < y1)
            return true;
    }
    return false;
}

Body* DemoBot::nearestExit(const Player& player) const
{
    Body* best = nullptr;
    float bestDistance = std::numeric_limits<float>::max();
    for (Body* body : game.getBodies()) {
        if (body->type != "levelchange")
            continue;
        const float d = (body->pos - player.pos).length2D();
        if (d < bestDistance) {
            bestDistance = d;
            best = body;
        }
    }
    return best;
}

bool DemoBot::act(const RouteAction& action, Player& player)
{
    using Kind = RouteAction::Kind;
    const bool first = actionTime == 0.0f;
    if (first)
        runEast = action.x > player.pos.x;
    if (action.kind == Kind::run || action.kind == Kind::jump) {
        // Whatever the route says, a drone at arm's length gets shot first.
        if (Body* close = nearestTarget(player, defendRange)) {
            brake(player);
            set(jump, false);
            player.mouseWorldPos = close->pos;
            set(fire, true);
            defending = true;
            return false;
        }
        if (defending) {
            set(fire, false);
            defending = false;
        }
    }
    switch (action.kind) {
    case Kind::jump:
        if (first) {
            jumpTime = 0.45f;
            set(jump, true);
        }
        [[fallthrough]];
    case Kind::run:
        if (player.airTime <= 0.1f)
            runEast = action.x > player.pos.x;
        // Flown past the mark: land first, then walk back.
        if (player.airTime > 0.1f && (runEast ? player.pos.x > action.x : player.pos.x < action.x)) {
            // Check a fast flight against the air, but never turn it back.
            const bool fast = runEast ? player.vel.x > 60.0f : player.vel.x < -60.0f;
            set(right, fast && !runEast);
            set(left, fast && runEast);
            return false;
        }
        // Arrived means standing there, not flying over it.
        if (std::fabs(action.x - player.pos.x) < 6.0f && player.airTime <= 0.1f) {
            brake(player);
            jumpTime -= stepSeconds;
            set(jump, jumpTime > 0.0f);
            return jumpTime <= 0.0f;
        }
        // Slow down on the way in, or the slide carries the player past.
        if (std::fabs(action.x - player.pos.x) < 80.0f && player.airTime <= 0.1f &&
            std::fabs(player.vel.x) > 50.0f && (player.vel.x > 0.0f) == (action.x > player.pos.x)) {
            brake(player);
            return false;
        }
        steer(action.x, player);
        return false;
    case Kind::hook: {
        player.mouseWorldPos = Vector(action.x, action.y);
        if (first) {
            set(hook, true);
            hookEast = action.until > player.pos.x;
        }
        // Wait for the hook to bite before swinging out.
        if (!player.hookAttached) {
            set(right, false);
            set(left, false);
            if (actionTime > 2.5f) {
                set(hook, false);
                return true;
            }
            return false;
        }
        set(hookEast ? right : left, true);
        set(hookEast ? left : right, false);
        const Vector bite = player.hook ? player.hook->pos : Vector(action.x, action.y);
        const bool passed = (hookEast ? player.pos.x >= action.until : player.pos.x <= action.until) ||
                            (player.pos - bite).length2D() < 48.0f;
        if (passed || actionTime > 8.0f) {
            set(hook, false);
            return true;
        }
        return false;
    }
    case Kind::fight: {
        Body* target = nearestTarget(player, action.x);
        if (!target || actionTime > action.seconds) {
            set(fire, false);
            set(right, false);
            set(left, false);
            set(jump, false);
            return true;
        }
        // Close in until a shot cannot miss past cover, then stand and fire.
        if (!action.stand && std::fabs(target->pos.x - player.pos.x) > 140.0f) {
            steer(target->pos.x, player);
        } else {
            brake(player);
            set(jump, false);
        }
        player.mouseWorldPos = target->pos;
        set(fire, true);
        return false;
    }
    case Kind::shoot:
        brake(player);
        set(jump, false);
        player.mouseWorldPos = Vector(action.x, action.y);
        set(fire, actionTime < action.seconds);
        return actionTime >= action.seconds;
    case Kind::weapon:
        if (input) {
            const std::string key = "f" + std::to_string(1 + weaponKey++ % 12);
            input->setBinding(key, "useitem " + action.text);
            input->keyDown(0, 0, key);
            input->keyUp(0, 0, key);
        }
        return true;
    case Kind::wait:
        brake(player);
        set(fire, false);
        return actionTime >= action.seconds;
    case Kind::door:
        brake(player);
        set(fire, false);
        return !solidAt(Vector(action.x, action.y));
    case Kind::boss:
        return pushBlock(action, player);
    case Kind::exit:
        if (Body* close = nearestTarget(player, defendRange)) {
            brake(player);
            player.mouseWorldPos = close->pos;
            set(fire, true);
            return false;
        }
        set(fire, false);
        if (Body* exit = nearestExit(player))
            steer(exit->pos.x, player);
        return false;
    }
    return true;
}

bool DemoBot::step()
{
    game.runPendingRequests();
    if (!game.isLevelLoaded() || !game.isWorldRunning())
        return false;
    game.stepWorld();
    game.stepParticles(Game::stepSeconds);
    return true;
}

bool DemoBot::record(const Route& route, const Demo::PlayerState* carried, std::string& report)
{
    DemoManager* demos = game.getDemos();
    if (!demos || !demos->record(route.demo, route.level, route.entry, carried)) {
        report = demos ? demos->message() : "no demo manager";
        return false;
    }
    releaseKeys();
    jumpTime = stuckTime = 0.0f;
    auto where = [](const Player& p) {
        return " at " + std::to_string(static_cast<int>(p.pos.x)) + "," + std::to_string(static_cast<int>(p.pos.y));
    };
    for (const RouteAction& action : route.actions) {
        actionTime = 0.0f;
        stuckTime = 0.0f;
        while (demos->isRecording()) {
            auto* player = dynamic_cast<Player*>(game.getPlayer());
            if (!player) {
                report = "no player";
                return false;
            }
            if (player->dead) {
                report = "line " + std::to_string(action.line) + ": the player died" + where(*player);
                demos->stop();
                return false;
            }
            if (trace && (demos->currentStep() % 40 == 0 || actionTime == 0.0f))
                std::printf("  line %d step %u: %.0f %.0f vel %.0f %.0f health %d armour %d cash %d%s\n",
                            action.line, demos->currentStep(), static_cast<double>(player->pos.x),
                            static_cast<double>(player->pos.y), static_cast<double>(player->vel.x),
                            static_cast<double>(player->vel.y), player->health, player->armour,
                            player->properties.cash, player->hookAttached ? " hooked" : "");
            if (Body* t = trace && demos->currentStep() % 40 == 0 ? nearestTarget(*player, 400.0f) : nullptr)
                std::printf("    nearest enemy %s at %.0f %.0f, health %d\n", t->type.c_str(),
                            static_cast<double>(t->pos.x), static_cast<double>(t->pos.y),
                            static_cast<GameBody*>(t)->health);
            if (act(action, *player))
                break;
            actionTime += stepSeconds;
            if (actionTime > actionSeconds) {
                report = "line " + std::to_string(action.line) + ": stuck" + where(*player);
                demos->stop();
                return false;
            }
            if (!step())
                break;
        }
        if (!demos->isRecording())
            break;
    }
    if (demos->isRecording()) {
        auto* player = dynamic_cast<Player*>(game.getPlayer());
        report = "the route ended before the exit" + (player ? where(*player) : std::string());
        demos->stop();
        return false;
    }
    releaseKeys();
    report = demos->completion();
    return demos->levelCompleted();
}
