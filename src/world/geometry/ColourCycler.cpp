#include "world/geometry/ColourCycler.h"

void ColourCycler::update(float dt)
{
    if (rising) {
        current += speed * dt;
        if (current > maximum) {
            current = maximum;
            rising = false;
        }
    } else {
        current -= speed * dt;
        if (current < minimum) {
            current = minimum;
            rising = true;
        }
    }
}
