#pragma once
// A fingerprint of the simulated world, for demos: every moving body's
// position, velocity, health and flags, with the player's controls,
// weapon and cash and the level clock. Two runs that agree bit for bit
// hash the same; one float that differs in its last bit does not.
#include <cstdint>
#include <vector>

#include "core/Demo.h"

class Body;
class Game;

class WorldHash {
public:
    struct Result {
        uint64_t world = 0;
        std::vector<Demo::BodyDigest> bodies;  // in the game's active-body order
    };

    static Result compute(Game& game);
    // The same into `out`, reusing its storage (once a step while recording).
    static void compute(Game& game, Result& out);
    static uint32_t bodyDigest(const Body& body);
};
