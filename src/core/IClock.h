#pragma once
// Where milliseconds come from. The game reads time only through Clock, so
// tests can install a clock they advance by hand.
#include <cstdint>

class IClock {
public:
    virtual ~IClock() = default;
    // Milliseconds since some fixed start; wraps like SDL's 32-bit tick count.
    virtual uint32_t ticks() const = 0;
};
