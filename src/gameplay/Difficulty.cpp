#include "gameplay/Difficulty.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"

namespace {
constexpr std::array<float, 3> damageFactors = {0.5f, 1.0f, 1.5f};
constexpr std::array<float, 3> pickupFactors = {1.5f, 1.0f, 0.75f};
constexpr std::array<const char*, 3> names = {"Easy", "Normal", "Hard"};

int scale(int amount, float factor)
{
    if (amount <= 0 || factor == 1.0f)
        return amount;
    // Saturate rather than overflow on absurd level values; a small hit still hurts.
    const double scaled = std::round(static_cast<double>(amount) * factor);
    const double top = static_cast<double>(std::numeric_limits<int>::max());
    return static_cast<int>(std::clamp(scaled, 1.0, top));
}
}

int Difficulty::current()
{
    const GameVar* var = findVar("difficulty");
    return var ? clampLevel(var->intValue) : normal;
}

int Difficulty::clampLevel(int level) { return std::clamp(level, easy, hard); }

float Difficulty::damageTakenFactor(int level) { return damageFactors[static_cast<size_t>(clampLevel(level))]; }

float Difficulty::pickupFactor(int level) { return pickupFactors[static_cast<size_t>(clampLevel(level))]; }

int Difficulty::scaleDamageTaken(int amount, int level) { return scale(amount, damageTakenFactor(level)); }

int Difficulty::scalePickup(int amount, int level) { return scale(amount, pickupFactor(level)); }

std::string Difficulty::name(int level) { return names[static_cast<size_t>(clampLevel(level))]; }

