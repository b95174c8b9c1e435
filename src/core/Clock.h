#pragma once
// The one source of time for the whole program. By default it reads SDL's
// tick counter; install() swaps in another clock (tests, replays).
#include <cstdint>

#include "core/IClock.h"

class Clock {
public:
    static uint32_t ticks();
    // Not owned; pass nullptr to go back to the SDL clock.
    static void install(const IClock* clock);
    // Unsigned tick count as float: values with the top bit set stay positive.
    static float ticksToFloat(uint32_t ticks);
    // Seconds on a fine monotonic clock, for measuring how long work takes
    // (the timed demo). Never drives the game: that is what ticks() is for.
    static double profileSeconds();
};
