#include "core/Clock.h"

#include <SDL.h>

#include <chrono>

namespace {
const IClock* installed = nullptr;
}

uint32_t Clock::ticks()
{
    if (installed)
        return installed->ticks();
    return SDL_GetTicks();
}

void Clock::install(const IClock* clock) { installed = clock; }

float Clock::ticksToFloat(uint32_t ticks)
{
    // The signed conversion followed by the 2^32 correction keeps the
    // arithmetic the same as on compilers that lack an unsigned conversion.
    float value = static_cast<float>(static_cast<int32_t>(ticks));
    if (value < 0.0f)
        value += 4294967296.0f;
    return value;
}

double Clock::profileSeconds()
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}
