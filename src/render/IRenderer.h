#pragma once
// The drawing interface every subsystem draws through: an OpenGL window in
// the game, nothing at all in tests (NullRenderer).

class IRenderer {
public:
    virtual ~IRenderer() = default;

    // Starts SDL video and prepares OpenGL state; false when that fails.
    virtual bool init() = 0;
    // Falls back to 640 x 480 windowed when the mode cannot be set.
    virtual bool setVideoMode(int width, int height, bool fullscreen) = 0;
    virtual void shutdown() = 0;
    // Clears the buffers and sets up the projection for a new picture.
    virtual void beginFrame() = 0;
    virtual void swapBuffers() = 0;
    // Screen-space drawing in window pixels, origin bottom left.
    virtual void enter2D() = 0;
    virtual void leave2D() = 0;
    virtual int getWidth() const = 0;
    virtual int getHeight() const = 0;
};
