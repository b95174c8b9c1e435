#pragma once
// The random numbers of the effects, apart from the C generator the world
// uses. Particles are stepped by the frame clock, so drawing the same play
// at another frame rate draws a different number of them; with one shared
// generator that would change every enemy's and weapon's next roll, and a
// recorded demo could never replay. Same range and resolution as std::rand.
#include <cstdint>

class ParticleRandom {
public:
    static constexpr int max = 0x7fffffff;

    // Restarts the sequence; the game seeds it once at start-up, tests at will.
    static void seed(uint32_t value);
    // Uniform in [0, max].
    static int next();
    // Uniform in [0, 1].
    static double unit() { return static_cast<double>(next()) / static_cast<double>(max); }
};
