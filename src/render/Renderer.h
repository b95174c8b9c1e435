#pragma once
// The OpenGL renderer: an SDL 1.2 window with an immediate-mode GL 1.x
// context. It owns the texture cache and the font renderer, keeps the camera,
// the view frustum and the frame-rate counter, and offers the glow pass and
// the screen captures. Every GL call of the game goes through here (or through
// the texture manager and font renderer it owns).
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/BasicTimer.h"
#include "render/Frustum.h"
#include "render/IRenderer.h"
#include "render/TextureManager.h"
#include "world/geometry/Dimension.h"
#include "world/geometry/Vector.h"

class GameVar;

class Renderer : public IRenderer {
public:
    Renderer();
    ~Renderer() override;

    bool setVideoMode(int width, int height, bool fullscreen) override;
    bool initialise() override;
    bool init() override;
    bool beginFrame() override;
    bool endFrame() override;
    void begin2D() override;
    void end2D() override;

    void setBlending(bool on) override;
    void setAdditiveBlend() override;
    void setAlphaBlend() override;
    void setTexturing(bool on) override;
    void bindTexture(const std::string& name, bool clamp) override;
    void bindTexture(const std::string& name) override;
    void bindTextureId(int glId) override;
    void selectTexture(const std::string& name) override;
    int getTextureId(const std::string& name) override;
    void unloadTexture(const std::string& name) override;
    void reloadResources() override;

    void setColour(float r, float g, float b) override;
    void setColour(float r, float g, float b, float a) override;
    void setColour(const RGBAColour& colour) override;

    void drawQuad(float x, float y, float z, float w, float h) override;
    void drawQuad(const Quad& quad) override;
    void drawTexturePart(float x, float y, float z, float w, float h) override;
    void drawCentredQuad(float cx, float cy, float z, float halfW, float halfH, bool wrap) override;
    void beginQuads() override;
    void endQuads() override;
    void setDepthWrites(bool on) override;
    void beginBackdrop(const void* owner) override;
    void endBackdrop() override;
    void drawImage(float x, float y, float z, float w, float h, const std::string& name,
                   bool additive, bool clamp) override;
    void drawImage(float x, float y, float z, float w, float h, const std::string& name) override;
    void drawSprite(float cx, float cy, float z, float w, float h, const std::string& name) override;
    void drawTintedSprite(float cx, float cy, float z, float w, float h, const std::string& name,
                          const RGBAColour& colour) override;
    void drawPolygon(int count, const std::vector<Vector>& vertices) override;
    void drawPolygon(int count, const std::vector<Vector>& vertices,
                     const std::vector<RGBAColour>& colours) override;
    void drawLines(const std::vector<const Quad*>& quads) override;
    void drawLine(float x1, float y1, float x2, float y2, float r, float g, float b,
                  float a) override;
    void drawLine(float x1, float y1, float x2, float y2, float lineWidth) override;
    void drawLines(const Quad& quad) override;

    void setScissorTest(bool on) override;
    void setScissor(float x, float y, float w, float h) override;
    void setScissor(int x, int y, int w, int h) override;
    void setInterfaceScale(float scale) override;

    Vector screenToWorld(float x, float y) override;
    Vector screenToWorld(double x, double y, double depth) override;
    // Where the line through two unprojected points crosses z = 0.
    static Vector rayMeetsPlayPlane(const Vector& nearPoint, const Vector& farPoint);
    Vector worldToScreen(float x, float y, float z) override;
    void drawFps() override;

    void translate(float x, float y, float z) override;
    void setCamera(float x, float y, float z) override;
    Vector& getCamera() override { return cameraPosition; }

    void computeBeamQuad(float corners[8], const Vector& from, const Vector& to,
                         float width) override;
    void drawBeam(const Vector& from, const Vector& to, float z, float width, bool wrap,
                  bool flip) override;
    void drawBeam(const Vector& from, const Vector& to, float z, float width, bool wrap) override;
    void drawTiledBeam(const Vector& from, const Vector& to, float z, float width, float tileLength,
                       bool wrap, bool flip) override;
    void drawTiledBeam(const Vector& from, const Vector& to, float z, float width, float tileLength,
                       bool wrap) override;
    void drawBody(Body& body) override;
    void drawBodySimple(Body& body) override;

    FontRenderer* getFontRenderer() override { return fontRenderer.get(); }
    void setFontRenderer(FontRenderer* f) override;
    bool isFullscreen() const override { return fullscreen; }
    void setFullscreen(bool f) override { fullscreen = f; }
    int getWidth() const override { return width; }
    int getHeight() const override { return height; }
    int getScreenWidth() const override { return width; }
    int getScreenHeight() const override { return height; }
    void pushMatrix() override;
    void popMatrix() override;
    Frustum& getFrustum() override { return frustum; }

    void setBlurDirection(const Vector& direction) override { blurDirection = direction; }
    void beginCapture() override;
    void endCapture() override;
    void drawGlow() override;
    bool isMovieFrameDue(float now) override;
    bool isCapturing() const override { return capturing; }
    void takeScreenshot() override;
    void grabScreen() override;
    bool saveGrab(const std::string& path, int width, int height) override;
    void printGlowTextureId(std::ostream& out) override;
    bool drawLevelShot(const std::vector<Body*>& bodies, const std::string& path) override;
    const std::vector<std::unique_ptr<Dimension>>& getVideoModes() const override
    {
        return videoModes;
    }

    // Six planes from the current GL model-view and projection matrices.
    void updateFrustum();
    // A zero-filled RGBA texture with linear filtering.
    void createTexture(unsigned int& id, int w, int h);
    void createGlowTexture(int w, int h);
    // Four vertices covering the window, shifted by (dx, dy); uses the stored size.
    void emitScreenQuad(int w, int h, float dx, float dy);
    // Adds the four offset copies of the capture into glowSumTexture.
    void sumGlowCopies();
    void clearGlowCorner();

    // Off, every frame is drawn in full: no kept sky, the glow over the whole
    // window. For side-by-side measurements; the picture is the same.
    void setFrameReuse(bool on) { frameReuse = on; }
    // Rows refreshed in the frame after `frame` frames of an unchanged backdrop.
    static std::pair<int, int> backdropBandRows(int frame, int height);
    // The size to ask for instead of w x h: no wider or taller than the limits
    // (0 means not known: a fixed cap then), keeping at least one pixel.
    static std::pair<int, int> boundVideoSize(int w, int h, int maxWidth, int maxHeight);
    // Window-space tiles of the glow sum that are not black, given the sum's pixels.
    static std::vector<bool> litGlowTiles(const unsigned char* rgba, int w, int h, int tile);

    // Starts a new counting second for the frame-rate counter.
    void resetFpsCounter();

    TextureManager& getTextureManager() { return textures; }
    void dumpTextureCache(std::ostream& out) override { textures.dump(out); }
    bool isIn2D() const { return in2D; }
    int getFps() const { return fps; }

    // The file name of screenshot or movie frame number n ("screenshots/screenshot0042.png").
    static std::string captureName(bool movie, int number);
    // The pieces a tiled beam is drawn in: whole tiles from `from`, the last one cut at `to`.
    static std::vector<std::pair<Vector, Vector>> tiledBeamSegments(const Vector& from,
                                                                    const Vector& to,
                                                                    float tileLength);
    // Number of the first screenshot at or after start whose file does not exist; 9999 when full.
    static int nextFreeScreenshot(int start);

private:
    int varInt(GameVar* var) const;
    void lookUpVariables();
    void updateFpsCounter();
    void emitBeamQuad(float z, bool flip);
    // Pushes a matrix placing the body and sets texturing and blending for
    // it; true when it is drawn textured (its texture is the caller's to bind).
    bool placeBody(const Body& body, bool untextured = false);
    // Triangle fan through the body's local vertices with their colours (and texture coordinates).
    void emitBodyPolygon(const Body& body, bool textured);
    // The debug label over a body when rbodystring is 1.
    void drawBodyString(Body& body, bool black);
    // Wrap mode of the bound texture: clamped edges or repeating.
    void setWrap(bool clamp);
    void drawKeptBackdrop();
    void deleteBackdrop();
    // True when the body's texture has no alpha and every corner colour is opaque.
    bool isOpaque(const Body& body);
    // Discards clear texels so they write no depth.
    void setSpriteAlphaTest(bool on);
    static constexpr float spriteAlphaCutoff = 0.1f;

    TextureManager textures;
    std::unique_ptr<FontRenderer> fontRenderer;
    std::string currentTextureName;
    BasicTimer fpsTimer;
    float fpsInterval = 1000.0f;
    bool fpsElapsed = false;
    GameVar* showFps = nullptr;
    GameVar* rbodyString = nullptr;
    GameVar* bloomBlurPixels = nullptr;
    GameVar* glowStrength = nullptr;
    GameVar* vidWidth = nullptr;
    GameVar* vidHeight = nullptr;
    GameVar* drawBodies = nullptr;
    GameVar* vsync = nullptr;
    GameVar* drawOutlines = nullptr;
    GameVar* cacheTextureIds = nullptr;
    GameVar* movieRecord = nullptr;
    Vector cameraPosition;
    Vector cameraTarget;
    Vector cameraUp{0.0f, 1.0f, 0.0f};
    float beamQuad[8] = {};
    bool fullscreen = false;
    bool in2D = false;
    int fps = 0;
    int frameCount = 0;
    int width = 640;
    int height = 480;
    // What a mode may not exceed: the desktop (a bigger window or screen is
    // refused by X or eats memory without end) and the GL limits, once known.
    int desktopWidth = 0;
    int desktopHeight = 0;
    int glMaxWidth = 0;
    int glMaxHeight = 0;
    Frustum frustum;
    unsigned int glowTexture = 0;
    // The four offset copies of glowTexture summed at its own size, so the
    // window gets one full-screen quad instead of four.
    unsigned int glowSumTexture = 0;
    int glowWidth = 256;
    int glowHeight = 256;
    bool capturing = false;
    Vector blurDirection;
    int glowMode = 1;
    float nextMovieFrame = 0.0f;
    int screenshotNumber = 0;
    int movieNumber = 0;
    int currentTextureId = -1;
    int grabbedImage = -1;
    std::vector<std::unique_ptr<Dimension>> videoModes;
    // The sky does not move on the screen and its colours drift slowly, so
    // its full picture is kept and a band of rows is redrawn each frame in
    // turn: the window gets one opaque copy instead of every blended layer.
    static constexpr int backdropBands = 8;
    bool frameReuse = true;
    unsigned int backdropTexture = 0;
    int backdropTexWidth = 0;
    int backdropTexHeight = 0;
    const void* backdropOwner = nullptr;
    std::vector<float> backdropView;
    bool backdropValid = false;
    bool backdropOpen = false;
    int backdropFrame = 0;
    int backdropFirstRow = 0;
    int backdropEndRow = 0;
    bool backdropScissorWasOn = false;
    int backdropScissorBox[4] = {};
    // The glow sum read back, and which of its tiles have anything in them:
    // the window only gets the glow where there is some.
    static constexpr int glowTileSize = 16;
    std::vector<unsigned char> glowPixels;
    std::vector<bool> glowTiles;
    bool sdlStarted = false;
    bool devilStarted = false;
};
