#pragma once
// One image uploaded to OpenGL, kept by the texture cache under the name it
// was loaded with.
#include <string>

class Texture {
public:
    Texture(int w, int h, int bpp, std::string name)
        : height(h), width(w), bitsPerPixel(bpp), path(std::move(name))
    {
    }
    virtual ~Texture() = default;

    int height = 0;
    int width = 0;
    // 24 or 32.
    int bitsPerPixel = 0;
    std::string path;
    unsigned int glId = 0;
};
