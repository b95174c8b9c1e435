#pragma once
// The OpenGL renderer: an SDL 1.2 window with an immediate-mode GL context.
#include "render/IRenderer.h"

class Renderer : public IRenderer {
public:
    ~Renderer() override;

    bool init() override;
    bool setVideoMode(int width, int height, bool fullscreen) override;
    void shutdown() override;
    void beginFrame() override;
    void swapBuffers() override;
    void enter2D() override;
    void leave2D() override;
    int getWidth() const override { return width; }
    int getHeight() const override { return height; }

private:
    void setupGlState();

    int width = 640;
    int height = 480;
    bool fullscreen = false;
    bool videoStarted = false;
};
