#pragma once
// One word of flags; users set and test bits directly.
#include <cstdint>

class BitFlags {
public:
    uint32_t bits = 0;

    virtual ~BitFlags() = default;

    void setFlag(uint32_t mask) { bits |= mask; }
    void clearFlag(uint32_t mask) { bits &= ~mask; }
    bool hasFlag(uint32_t mask) const { return (bits & mask) != 0; }
};
