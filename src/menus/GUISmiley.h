#pragma once
// One bouncing sprite of the main menu's decoration: an image with a
// position (its centre, window pixels), a velocity and a size.
#include <string>

class GUISmiley {
public:
    std::string image;
    float x = 0.0f;
    float y = 0.0f;
    float vx = 0.0f;
    float vy = 0.0f;
    float size = 48.0f;

    // Moves for dt seconds inside the box [left, right] x [bottom, top],
    // reflecting off its sides; a sprite left outside (the window shrank)
    // is put back at the nearest edge.
    void step(float dt, float left, float bottom, float right, float top);
};
