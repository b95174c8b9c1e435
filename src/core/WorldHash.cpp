#include "core/WorldHash.h"

#include <cstring>

#include "core/Game.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/player/GameplayInput.h"
#include "gameplay/player/Player.h"
#include "world/body/Body.h"
#include "world/gamebody/GameBody.h"

namespace {
// FNV-1a: simple, stable across builds and byte order is fixed by the caller.
class Fnv {
public:
    void bytes(const void* data, size_t size)
    {
        const auto* p = static_cast<const unsigned char*>(data);
        for (size_t i = 0; i < size; ++i) {
            value ^= p[i];
            value *= 1099511628211ull;
        }
    }
    void number(float f)
    {
        uint32_t bits = 0;
        std::memcpy(&bits, &f, sizeof bits);
        integer(bits);
    }
    void integer(uint64_t n)
    {
        unsigned char b[8];
        for (int i = 0; i < 8; ++i)
            b[i] = static_cast<unsigned char>(n >> (8 * i));
        bytes(b, sizeof b);
    }
    void vector(const Vector& v)
    {
        number(v.x);
        number(v.y);
        number(v.z);
    }
    uint64_t value = 1469598103934665603ull;
};
}

uint32_t WorldHash::bodyDigest(const Body& body)
{
    Fnv h;
    h.integer(static_cast<uint64_t>(static_cast<int64_t>(body.autoid)));
    h.bytes(body.type.data(), body.type.size());
    h.vector(body.pos);
    h.vector(body.vel);
    h.integer((body.visible ? 1u : 0u) | (body.solid ? 2u : 0u) | (body.cancleanup ? 4u : 0u));
    if (const auto* g = dynamic_cast<const GameBody*>(&body)) {
        h.integer(static_cast<uint64_t>(static_cast<int64_t>(g->health)));
        h.integer(static_cast<uint64_t>(static_cast<int64_t>(g->armour)));
        h.integer((g->dying ? 1u : 0u) | (g->isGodMode() ? 2u : 0u) | (g->notarget ? 4u : 0u));
    }
    return static_cast<uint32_t>(h.value ^ (h.value >> 32));
}

WorldHash::Result WorldHash::compute(Game& game)
{
    Result result;
    compute(game, result);
    return result;
}

void WorldHash::compute(Game& game, Result& result)
{
    result.bodies.clear();
    Fnv world;
    for (const Body* body : game.getActiveBodies()) {
        const uint32_t digest = bodyDigest(*body);
        result.bodies.push_back({body->autoid, digest});
        world.integer(digest);
    }
    // The controller: what the player holds down and owns, and the clock
    // every timer in the level runs on.
    const uint64_t held = (GameplayInput::moveRight ? 1u : 0u) | (GameplayInput::moveLeft ? 2u : 0u) |
                          (GameplayInput::moveUp ? 4u : 0u) | (GameplayInput::moveDown ? 8u : 0u) |
                          (GameplayInput::boost ? 16u : 0u) | (GameplayInput::grapple ? 32u : 0u) |
                          (GameplayInput::attack ? 64u : 0u) | (GameplayInput::fireById ? 128u : 0u) |
                          (GameplayInput::slow ? 256u : 0u) | (game.isNoclip() ? 512u : 0u);
    world.integer(held);
    world.integer(static_cast<uint64_t>(GameplayInput::fireWeaponId));
    if (const auto* player = dynamic_cast<const Player*>(game.getPlayer())) {
        world.integer(static_cast<uint64_t>(player->inventory.currentWeapon));
        world.integer(static_cast<uint64_t>(player->properties.cash));
        world.integer(player->dead ? 1u : 0u);
        world.vector(player->mouseWorldPos);
    }
    world.number(levelTime());
    result.world = world.value;
}
