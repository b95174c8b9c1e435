#pragma once
// One printed console line: its text, its colour and what kind of message it
// is (the console hides warning and debug lines unless asked to show them).
#include <string>

#include "world/geometry/BitFlags.h"
#include "world/geometry/RGBAColour.h"

class ConLine {
public:
    enum Kind : uint32_t { Normal = 1, Warning = 2, Debug = 4 };

    ConLine(std::string t, const RGBAColour& c, uint32_t kind) : text(std::move(t)), colour(c)
    {
        flags.setFlag(kind);
    }
    virtual ~ConLine() = default;

    std::string text;
    RGBAColour colour;
    BitFlags flags;
};
