#pragma once
// A texture coordinate pair, written "u,v".
#include <string>

class TexCoord {
public:
    float u = 0.0f, v = 0.0f;

    TexCoord() = default;
    TexCoord(float u_, float v_) : u(u_), v(v_) {}
    TexCoord(const TexCoord&) = default;
    TexCoord& operator=(const TexCoord&) = default;
    virtual ~TexCoord() = default;

    virtual std::string toString() const;
    // Exactly two tokens; otherwise unchanged.
    virtual void fromString(const std::string& text);
};
