#include "particles/ParticleRandom.h"

#include <random>

namespace {
// Process-wide like the C generator it stands beside.
std::minstd_rand& generator()
{
    static std::minstd_rand engine(1u);
    return engine;
}
}

void ParticleRandom::seed(uint32_t value) { generator().seed(value == 0 ? 1u : value); }

int ParticleRandom::next()
{
    // minstd yields [1, 2^31 - 2]; shift to start at 0 like rand().
    return static_cast<int>(generator()() - 1u);
}
