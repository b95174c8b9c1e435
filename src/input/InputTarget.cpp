#include "input/InputTarget.h"

#include <cstdio>

void InputTarget::mouseMove(float x, float y, float dx, float dy)
{
    mouseX = x;
    mouseY = y;
    mouseDX = dx;
    mouseDY = dy;
}

void InputTarget::mouseDown(float x, float y, int button)
{
    if (button == 1)
        std::printf("left click at %g, %g\n", x, y);
}

void InputTarget::mouseUp(float, float, int) {}
void InputTarget::keyDown(int, int, const std::string&) {}
void InputTarget::keyUp(int, int, const std::string&) {}
