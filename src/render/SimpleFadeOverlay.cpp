#include "render/SimpleFadeOverlay.h"

#include <algorithm>

SimpleFadeOverlay::SimpleFadeOverlay(float seconds)
{
    duration = std::max(seconds, 0.001f);
    colour.set(0.0f, 0.0f, 0.0f, 255.0f);
    colourVelocity.set(0.0f, 0.0f, 0.0f, -255.0f / duration);
    in2D = true;
}
