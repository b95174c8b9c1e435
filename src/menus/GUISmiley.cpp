#include "menus/GUISmiley.h"

#include <algorithm>
#include <cmath>

namespace {
// Reflects one coordinate off [low, high]; the velocity points back inside.
void bounce(float& p, float& v, float low, float high)
{
    if (high < low) {
        p = (low + high) / 2.0f;
        return;
    }
    if (p < low) {
        p = low;
        v = std::fabs(v);
    } else if (p > high) {
        p = high;
        v = -std::fabs(v);
    }
}
}

void GUISmiley::step(float dt, float left, float bottom, float right, float top)
{
    x += vx * dt;
    y += vy * dt;
    const float half = size / 2.0f;
    bounce(x, vx, left + half, right - half);
    bounce(y, vy, bottom + half, top - half);
}
