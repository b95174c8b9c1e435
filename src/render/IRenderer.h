#pragma once
// The drawing interface every subsystem draws through. The game uses the
// OpenGL `Renderer`; headless tests and tools use `NullRenderer`, which does
// nothing. Coordinates and sizes are floats; colour components are 0-255.
// A texture name is an image path, the key of the texture cache. 2D drawing
// is in window pixels with the origin at the bottom left.
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "world/geometry/Dimension.h"
#include "world/geometry/Vector.h"

class Body;
class FontRenderer;
class Frustum;
class Quad;
class RGBAColour;

class IRenderer {
public:
    virtual ~IRenderer() = default;

    // Sets the window size and GL state; a failed mode falls back to 640 x 480 windowed.
    virtual bool setVideoMode(int width, int height, bool fullscreen) = 0;
    // Starts SDL and the window (desktop size), then init(); false when SDL cannot start.
    virtual bool initialise() = 0;
    // Mode list, caption and input settings, variables, glow texture.
    virtual bool init() = 0;
    // Clears the buffers and sets up the world projection and camera scale.
    virtual bool beginFrame() = 0;
    // Counts the frame for the FPS counter and swaps the buffers.
    virtual bool endFrame() = 0;
    // Screen-space drawing in window pixels; nesting is ignored (one end leaves).
    virtual void begin2D() = 0;
    virtual void end2D() = 0;

    virtual void setBlending(bool on) = 0;
    virtual void setAdditiveBlend() = 0;
    virtual void setAlphaBlend() = 0;
    virtual void setTexturing(bool on) = 0;
    // Enables texturing and binds through the cache, loading on first use.
    virtual void bindTexture(const std::string& name, bool clamp) = 0;
    virtual void bindTexture(const std::string& name) = 0;
    virtual void bindTextureId(int glId) = 0;
    // Binds through the cache without enabling texturing.
    virtual void selectTexture(const std::string& name) = 0;
    // The cached GL id, -1 when the texture is not loaded.
    virtual int getTextureId(const std::string& name) = 0;
    virtual void unloadTexture(const std::string& name) = 0;
    // After a mode change every GL object is gone: rebuild the glow texture, drop the cache.
    virtual void reloadResources() = 0;

    virtual void setColour(float r, float g, float b) = 0;
    virtual void setColour(float r, float g, float b, float a) = 0;
    virtual void setColour(const RGBAColour& colour) = 0;

    // Textured quad with its top-left corner at (x, y).
    virtual void drawQuad(float x, float y, float z, float w, float h) = 0;
    virtual void drawQuad(const Quad& quad) = 0;
    // A sub-rectangle of the bound texture at 1:1 scale (sprite sheets).
    virtual void drawTexturePart(float x, float y, float z, float w, float h) = 0;
    // wrap false: the caller has opened a quad batch; only the vertices are emitted.
    virtual void drawCentredQuad(float cx, float cy, float z, float halfW, float halfH, bool wrap) = 0;
    virtual void drawImage(float x, float y, float z, float w, float h, const std::string& name,
                           bool additive, bool clamp) = 0;
    virtual void drawImage(float x, float y, float z, float w, float h, const std::string& name) = 0;
    // Centred on (cx, cy), w by h, in white; transparent pixels leave the depth buffer alone.
    virtual void drawSprite(float cx, float cy, float z, float w, float h, const std::string& name) = 0;
    // The same sprite modulated by a colour (power-up glows, tinted pickups).
    virtual void drawTintedSprite(float cx, float cy, float z, float w, float h, const std::string& name,
                                  const RGBAColour& colour) = 0;
    // Triangle fan through the first count vertices, closed by the first.
    virtual void drawPolygon(int count, const std::vector<Vector>& vertices) = 0;
    virtual void drawPolygon(int count, const std::vector<Vector>& vertices,
                             const std::vector<RGBAColour>& colours) = 0;
    virtual void drawLines(const std::vector<const Quad*>& quads) = 0;
    virtual void drawLine(float x1, float y1, float x2, float y2, float r, float g, float b,
                          float a) = 0;
    virtual void drawLine(float x1, float y1, float x2, float y2, float lineWidth) = 0;
    virtual void drawLines(const Quad& quad) = 0;

    virtual void setScissorTest(bool on) = 0;
    virtual void setScissor(float x, float y, float w, float h) = 0;
    virtual void setScissor(int x, int y, int w, int h) = 0;

    // Window pixel to the world point on the play plane z = 0 under it.
    virtual Vector screenToWorld(float x, float y) = 0;
    // (0, 0, -512) when the point lies outside the viewport.
    virtual Vector screenToWorld(double x, double y, double depth) = 0;
    virtual Vector worldToScreen(float x, float y, float z) = 0;
    // The frame rate in the bottom right corner when showfps is on.
    virtual void drawFps() = 0;

    virtual void translate(float x, float y, float z) = 0;
    // Places the camera over (x, y) at depth z and rebuilds the view frustum.
    virtual void setCamera(float x, float y, float z) = 0;
    virtual Vector& getCamera() = 0;

    // The corners of a beam of the given half-width along from -> to.
    virtual void computeBeamQuad(float corners[8], const Vector& from, const Vector& to,
                                 float width) = 0;
    virtual void drawBeam(const Vector& from, const Vector& to, float z, float width, bool wrap,
                          bool flip) = 0;
    virtual void drawBeam(const Vector& from, const Vector& to, float z, float width, bool wrap) = 0;
    // A beam whose texture repeats every tileLength world units.
    virtual void drawTiledBeam(const Vector& from, const Vector& to, float z, float width,
                               float tileLength, bool wrap, bool flip) = 0;
    virtual void drawTiledBeam(const Vector& from, const Vector& to, float z, float width,
                               float tileLength, bool wrap) = 0;
    virtual void drawBody(Body& body) = 0;
    virtual void drawBodySimple(Body& body) = 0;

    // A quad batch: between these, drawCentredQuad(..., false) and
    // drawBeam(..., false) only emit vertices and setColour may change the
    // colour per quad. Particles draw thousands of quads this way.
    virtual void beginQuads() {}
    virtual void endQuads() {}
    // Depth writes off while translucent effects draw over each other.
    virtual void setDepthWrites(bool on) { (void)on; }
    // A backdrop fixed to the screen (the sky), kept as a picture between
    // frames. The owner draws all its layers between these two calls every
    // frame, as if nothing were kept; the renderer may clip that drawing to
    // the rows due for a refresh and put the kept picture everywhere else.
    // A new owner, window size or view starts from a full drawing.
    virtual void beginBackdrop(const void* owner) { (void)owner; }
    virtual void endBackdrop() {}
    // In 2D, what follows is drawn `scale` times larger from the window's
    // bottom-left corner, scissor boxes included (the interface scale of the
    // menus). Back to 1 before leaving 2D.
    virtual void setInterfaceScale(float scale) { interfaceScale = scale; }
    float getInterfaceScale() const { return interfaceScale; }

    virtual FontRenderer* getFontRenderer() = 0;
    // Writes the texture cache listing (names, sizes, ids).
    virtual void dumpTextureCache(std::ostream& out) { (void)out; }
    // Takes ownership.
    virtual void setFontRenderer(FontRenderer* fontRenderer) = 0;
    virtual bool isFullscreen() const = 0;
    virtual void setFullscreen(bool fullscreen) = 0;
    virtual int getWidth() const = 0;
    virtual int getHeight() const = 0;
    virtual int getScreenWidth() const = 0;
    virtual int getScreenHeight() const = 0;
    virtual void pushMatrix() = 0;
    virtual void popMatrix() = 0;
    virtual Frustum& getFrustum() = 0;

    // Glow pass and captures.
    virtual void setBlurDirection(const Vector& direction) = 0;
    virtual void beginCapture() = 0;
    virtual void endCapture() = 0;
    virtual void drawGlow() = 0;
    // True at most 8 times a second (now in milliseconds).
    virtual bool isMovieFrameDue(float now) = 0;
    virtual bool isCapturing() const = 0;
    // Writes the next free screenshots/screenshotNNNN.png (or a movie frame).
    virtual void takeScreenshot() = 0;
    virtual void grabScreen() = 0;
    virtual bool saveGrab(const std::string& path, int width, int height) = 0;
    virtual void printGlowTextureId(std::ostream& out) = 0;
    // Draws every body into one picture of the whole level and saves it as a PNG.
    virtual bool drawLevelShot(const std::vector<Body*>& /*bodies*/, const std::string& /*path*/) { return false; }
    virtual const std::vector<std::unique_ptr<Dimension>>& getVideoModes() const = 0;

protected:
    float interfaceScale = 1.0f;
};
