#pragma once
// A renderer that draws nothing: headless tests and tools. It keeps the state
// callers can observe (size, 2D nesting, camera, frustum, font renderer, the
// movie-frame clock) so logic that reads it back behaves as with a window.
#include <memory>
#include <ostream>

#include "render/FontRenderer.h"
#include "render/Frustum.h"
#include "render/IRenderer.h"
#include "world/geometry/Vector.h"

class NullRenderer : public IRenderer {
public:
    bool setVideoMode(int w, int h, bool full) override
    {
        width = w;
        height = h;
        fullscreen = full;
        return true;
    }
    bool initialise() override { return init(); }
    bool init() override { return true; }
    bool beginFrame() override { return true; }
    bool endFrame() override { return true; }
    void begin2D() override { in2D = true; }
    void end2D() override { in2D = false; }
    bool isIn2D() const { return in2D; }

    void setBlending(bool) override {}
    void setAdditiveBlend() override {}
    void setAlphaBlend() override {}
    void setTexturing(bool) override {}
    void bindTexture(const std::string&, bool) override {}
    void bindTexture(const std::string&) override {}
    void bindTextureId(int) override {}
    void selectTexture(const std::string&) override {}
    int getTextureId(const std::string&) override { return -1; }
    void unloadTexture(const std::string&) override {}
    void reloadResources() override {}

    void setColour(float, float, float) override {}
    void setColour(float, float, float, float) override {}
    void setColour(const RGBAColour&) override {}

    void drawQuad(float, float, float, float, float) override {}
    void drawQuad(const Quad&) override {}
    void drawTexturePart(float, float, float, float, float) override {}
    void drawCentredQuad(float, float, float, float, float, bool) override {}
    void drawImage(float, float, float, float, float, const std::string&, bool, bool) override {}
    void drawImage(float, float, float, float, float, const std::string&) override {}
    void drawSprite(float, float, float, float, float, const std::string&) override {}
    void drawTintedSprite(float, float, float, float, float, const std::string&, const RGBAColour&) override {}
    void drawPolygon(int, const std::vector<Vector>&) override {}
    void drawPolygon(int, const std::vector<Vector>&,
                     const std::vector<RGBAColour>&) override
    {
    }
    void drawLines(const std::vector<const Quad*>&) override {}
    void drawLine(float, float, float, float, float, float, float, float) override {}
    void drawLine(float, float, float, float, float) override {}
    void drawLines(const Quad&) override {}

    void setScissorTest(bool) override {}
    void setScissor(float, float, float, float) override {}
    void setScissor(int, int, int, int) override {}

    Vector screenToWorld(float, float) override { return {}; }
    Vector screenToWorld(double, double, double) override { return {0.0f, 0.0f, -512.0f}; }
    Vector worldToScreen(float, float, float) override { return {}; }
    void drawFps() override {}

    void translate(float, float, float) override {}
    void setCamera(float x, float y, float z) override { camera.set(x, y, z); }
    Vector& getCamera() override { return camera; }

    void computeBeamQuad(float corners[8], const Vector&, const Vector&, float) override
    {
        for (int i = 0; i < 8; ++i)
            corners[i] = 0.0f;
    }
    void drawBeam(const Vector&, const Vector&, float, float, bool, bool) override {}
    void drawBeam(const Vector&, const Vector&, float, float, bool) override {}
    void drawTiledBeam(const Vector&, const Vector&, float, float, float, bool, bool) override {}
    void drawTiledBeam(const Vector&, const Vector&, float, float, float, bool) override {}
    void drawBody(Body&) override {}
    void drawBodySimple(Body&) override {}

    FontRenderer* getFontRenderer() override { return fontRenderer.get(); }
    void setFontRenderer(FontRenderer* f) override { fontRenderer.reset(f); }
    bool isFullscreen() const override { return fullscreen; }
    void setFullscreen(bool f) override { fullscreen = f; }
    int getWidth() const override { return width; }
    int getHeight() const override { return height; }
    int getScreenWidth() const override { return width; }
    int getScreenHeight() const override { return height; }
    void pushMatrix() override {}
    void popMatrix() override {}
    Frustum& getFrustum() override { return frustum; }

    void setBlurDirection(const Vector&) override {}
    void beginCapture() override { capturing = true; }
    void endCapture() override { capturing = false; }
    void drawGlow() override {}
    bool isMovieFrameDue(float now) override
    {
        if (now < nextMovieFrame)
            return false;
        nextMovieFrame = now + 125.0f;
        return true;
    }
    bool isCapturing() const override { return capturing; }
    void takeScreenshot() override {}
    void grabScreen() override {}
    bool saveGrab(const std::string&, int, int) override { return false; }
    void printGlowTextureId(std::ostream& out) override { out << "Blur Texture ID: 0\n"; }
    const std::vector<std::unique_ptr<Dimension>>& getVideoModes() const override
    {
        return videoModes;
    }

private:
    std::unique_ptr<FontRenderer> fontRenderer;
    Vector camera;
    Frustum frustum;
    std::vector<std::unique_ptr<Dimension>> videoModes;
    float nextMovieFrame = 0.0f;
    int width = 640;
    int height = 480;
    bool fullscreen = false;
    bool in2D = false;
    bool capturing = false;
};
