#pragma once
// A clock that moves only when told to: tests and deterministic replays.
#include "core/IClock.h"

class ManualClock : public IClock {
public:
    explicit ManualClock(uint32_t start = 0) : now(start) {}
    uint32_t ticks() const override { return now; }
    void set(uint32_t t) { now = t; }
    void advance(uint32_t ms) { now += ms; }

private:
    uint32_t now = 0;
};
