// The byte GL gets for a colour channel given as 0-255, shared by the Renderer's source files.
#pragma once

#include <GL/gl.h>

#include <algorithm>
#include <cmath>

inline GLubyte toByte(float v)
{
    return static_cast<GLubyte>(std::clamp(std::lround(v), 0L, 255L));
}
