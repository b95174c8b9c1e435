#pragma once
// A renderer that draws nothing: headless tests and tools.
#include "render/IRenderer.h"

class NullRenderer : public IRenderer {
public:
    bool init() override { return true; }
    bool setVideoMode(int w, int h, bool) override
    {
        width = w;
        height = h;
        return true;
    }
    void shutdown() override {}
    void beginFrame() override {}
    void swapBuffers() override {}
    void enter2D() override {}
    void leave2D() override {}
    int getWidth() const override { return width; }
    int getHeight() const override { return height; }

private:
    int width = 640;
    int height = 480;
};
