#pragma once
// Where one character of a bitmap font sits in its texture page and how it is
// placed on the line. Drawing reads the quad size, the baseline offset, the
// advance and the texture coordinates; the page positions are kept for tools.
#include <string>

class CharacterDescriptor {
public:
    virtual ~CharacterDescriptor() = default;

    int charCode = 0;
    std::string imageName;
    int x = 0, y = 0;
    int px = 0, py = 0;
    int pixelWidth = 0, pixelHeight = 0;
    // Size of the drawn quad in pixels.
    int width = 0, height = 0;
    int left = 0;
    // From the top of the quad down to the baseline.
    int top = 0;
    float xAdvance = 0.0f;
    float s = 0.0f, t = 0.0f, s2 = 0.0f, t2 = 0.0f;
    // GL id of the page, filled once the pages are bound.
    int textureId = -1;
};
