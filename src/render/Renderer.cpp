#include "render/Renderer.h"

#include <SDL.h>
#include <GL/gl.h>
#include <GL/glu.h>
#include <IL/il.h>
#include <IL/ilu.h>
#include <IL/ilut.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <ostream>
#include <sys/stat.h>
#include <tuple>

#include "console/ConsolePrint.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "render/FontRenderer.h"
#include "resources/AtomicFile.h"
#include "world/body/Body.h"
#include "world/geometry/Quad.h"
#include "world/geometry/RGBAColour.h"

namespace {
constexpr float worldScale = 0.015f;
constexpr double nearPlane = 0.1;
constexpr double farPlane = 4096.0;
constexpr double framePerspective = 90.0;
constexpr float movieFrameMs = 125.0f;
constexpr int lastCaptureNumber = 9999;
// Each of the four glow copies adds a tenth of the capture.
constexpr float glowCopyWeight = 0.1f;

GLubyte toByte(float v)
{
    return static_cast<GLubyte>(std::clamp(std::lround(v), 0L, 255L));
}
}

Renderer::Renderer() = default;

Renderer::~Renderer()
{
    // The font renderer may unbind through us: drop it first.
    fontRenderer.reset();
    videoModes.clear();
    if (grabbedImage >= 0) {
        ILuint image = static_cast<ILuint>(grabbedImage);
        ilDeleteImages(1, &image);
    }
}

int Renderer::varInt(GameVar* var) const { return var ? var->intValue : 0; }

void Renderer::lookUpVariables()
{
    showFps = getVar("showfps");
    rbodyString = getVar("rbodystring");
    bloomBlurPixels = getVar("bloomblurpixels");
    vidWidth = getVar("vidwidth");
    vidHeight = getVar("vidheight");
    drawBodies = getVar("drawbodies");
    vsync = getVar("vsync");
    drawOutlines = getVar("drawoutlines");
    cacheTextureIds = getVar("cachetextureids");
    movieRecord = getVar("movierecord");
}

bool Renderer::initialise()
{
    // The sound system starts audio itself, so a machine without a working
    // sound driver still gets a window and a silent game.
    if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE) < 0)
        return false;
    sdlStarted = true;
    std::printf("Initialised SDL\n");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) < 0)
        return false;
    std::printf("Initialised Video\n");

    const SDL_VideoInfo* info = SDL_GetVideoInfo();
    desktopWidth = info && info->current_w > 0 ? info->current_w : 0;
    desktopHeight = info && info->current_h > 0 ? info->current_h : 0;
    std::printf("Current Desktop Res: %d x %d\n", desktopWidth, desktopHeight);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);

    lookUpVariables();
    if (!setVideoMode(desktopWidth > 0 ? desktopWidth : 640, desktopHeight > 0 ? desktopHeight : 480, false))
        return false;

    const bool ok = init();
    ilInit();
    iluInit();
    ilutInit();
    ilEnable(IL_FILE_OVERWRITE);
    ilutRenderer(ILUT_OPENGL);
    ilutEnable(ILUT_OPENGL_CONV);
    devilStarted = true;

    glEnable(GL_POINT_SMOOTH);
    glEnable(GL_LINE_SMOOTH);
    glHint(GL_POINT_SMOOTH_HINT, GL_NICEST);
    glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    glHint(GL_POLYGON_SMOOTH_HINT, GL_NICEST);
    return ok;
}

bool Renderer::setVideoMode(int w, int h, bool full)
{
    SDL_GL_SetAttribute(SDL_GL_SWAP_CONTROL, varInt(vsync) == 1 ? 1 : 0);
    fullscreen = full;
    Uint32 flags = SDL_OPENGL | SDL_ANYFORMAT | (full ? SDL_FULLSCREEN : 0);
    if (w > 0 && h > 0) {
        const int maxW = glMaxWidth > 0 && desktopWidth > 0 ? std::min(glMaxWidth, desktopWidth)
                                                            : std::max(glMaxWidth, desktopWidth);
        const int maxH = glMaxHeight > 0 && desktopHeight > 0 ? std::min(glMaxHeight, desktopHeight)
                                                              : std::max(glMaxHeight, desktopHeight);
        const auto [boundW, boundH] = boundVideoSize(w, h, maxW, maxH);
        if (boundW != w || boundH != h) {
            std::printf("Video mode %d x %d is larger than the display allows: using %d x %d\n", w, h,
                        boundW, boundH);
            w = boundW;
            h = boundH;
        }
    }
    SDL_Surface* screen = w > 0 && h > 0 ? SDL_SetVideoMode(w, h, 0, flags) : nullptr;
    if (!screen) {
        std::printf("Error: Video Mode change failed\n");
        std::printf("Falling back to 640x480 : windowed\n");
        w = 640;
        h = 480;
        fullscreen = false;
        screen = SDL_SetVideoMode(w, h, 0, SDL_OPENGL | SDL_ANYFORMAT);
        if (!screen) {
            // Every GL call from here on would crash without a context.
            const std::string message = std::string("Could not open an OpenGL window: ") + SDL_GetError() +
                                        ". The game needs OpenGL; headless runs with "
                                        "SDL_VIDEODRIVER=offscreen need EGL (libegl1, libegl-mesa0).";
            std::printf("%s\n", message.c_str());
            std::fprintf(stderr, "Brindlequay: %s\n", message.c_str());
            return false;
        }
    }
    if (screen && screen->w > 0 && screen->h > 0) {
        w = screen->w;
        h = screen->h;
    }
    // The context exists now: its limits bound every later mode.
    GLint viewport[2] = {0, 0};
    GLint texture = 0;
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &texture);
    if (viewport[0] > 0 && viewport[1] > 0 && texture > 0) {
        glMaxWidth = std::min<int>(viewport[0], texture);
        glMaxHeight = std::min<int>(viewport[1], texture);
    }

    glLoadIdentity();
    glEnable(GL_TEXTURE_2D);
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    glClearDepth(1.0);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_DEPTH_TEST);
    glShadeModel(GL_SMOOTH);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glViewport(0, 0, w, h);

    const double aspect = static_cast<double>(w) / static_cast<double>(h);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45.0, aspect, nearPlane, farPlane);
    glMatrixMode(GL_MODELVIEW);
    frustum.setCameraInternals(45.0f, static_cast<float>(aspect), static_cast<float>(nearPlane),
                               static_cast<float>(farPlane));
    std::printf("REND New Res: %d , %d\n", w, h);

    width = w;
    height = h;
    reloadResources();
    return true;
}

std::pair<int, int> Renderer::boundVideoSize(int w, int h, int maxWidth, int maxHeight)
{
    // Nothing known yet (no desktop size, no context): still no absurd buffer.
    const int unknownLimit = 8192;
    w = std::min(w, maxWidth > 0 ? maxWidth : unknownLimit);
    h = std::min(h, maxHeight > 0 ? maxHeight : unknownLimit);
    return {std::max(w, 1), std::max(h, 1)};
}

bool Renderer::init()
{
    SDL_Rect** modes = SDL_ListModes(nullptr, SDL_OPENGL | SDL_FULLSCREEN);
    videoModes.clear();
    if (modes == nullptr) {
        // A virtual display (Xvfb, a remote session) may report no full-screen
        // modes; windowed play still works, so this is not fatal here.
        std::printf("No modes available!\n");
    } else if (modes == reinterpret_cast<SDL_Rect**>(-1)) {
        std::printf("All resolutions available.\n");
    } else {
        std::printf("Available Modes\n\n");
        for (int i = 0; modes[i]; ++i) {
            std::printf(" %d x %d,", modes[i]->w, modes[i]->h);
            videoModes.push_back(std::make_unique<Dimension>(static_cast<float>(modes[i]->w),
                                                             static_cast<float>(modes[i]->h)));
        }
        std::reverse(videoModes.begin(), videoModes.end());
        std::printf("\n\n");
    }

    SDL_WM_SetCaption("Brindlequay", nullptr);
    SDL_EnableKeyRepeat(500, 30);
    SDL_EnableUNICODE(1);
    SDL_ShowCursor(SDL_DISABLE);
    SDL_WM_GrabInput(SDL_GRAB_OFF);

    resetFpsCounter();
    lookUpVariables();
    createGlowTexture(256, 256);
    return true;
}

bool Renderer::beginFrame()
{
    const double aspect = static_cast<double>(width) / static_cast<double>(std::max(height, 1));
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(framePerspective, aspect, nearPlane, farPlane);
    // The culling volume matches the projection actually drawn with.
    frustum.setCameraInternals(static_cast<float>(framePerspective), static_cast<float>(aspect),
                               static_cast<float>(nearPlane), static_cast<float>(farPlane));
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glScalef(worldScale, worldScale, worldScale);
    updateFpsCounter();
    return true;
}

void Renderer::resetFpsCounter()
{
    fpsTimer.start();
    fpsElapsed = true;
    frameCount = 0;
}

void Renderer::updateFpsCounter()
{
    fpsTimer.previousTime = fpsTimer.currentTime;
    fpsTimer.currentTime = BasicTimer::now();
    if (fpsTimer.currentTime - fpsTimer.startTime >= fpsInterval) {
        fps = frameCount;
        frameCount = 0;
        fpsTimer.startTime = fpsTimer.currentTime = fpsTimer.previousTime = BasicTimer::now();
    }
}

bool Renderer::endFrame()
{
    ++frameCount;
    SDL_GL_SwapBuffers();
    return true;
}

void Renderer::begin2D()
{
    if (in2D)
        return;
    glDisable(GL_DEPTH_TEST);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0.0, width, 0.0, height, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    in2D = true;
}

void Renderer::end2D()
{
    if (!in2D)
        return;
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
    glEnable(GL_DEPTH_TEST);
    in2D = false;
}

void Renderer::setBlending(bool on)
{
    if (on)
        glEnable(GL_BLEND);
    else
        glDisable(GL_BLEND);
}

void Renderer::setAdditiveBlend() { glBlendFunc(GL_SRC_ALPHA, GL_ONE); }

void Renderer::setAlphaBlend() { glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA); }

void Renderer::setTexturing(bool on)
{
    if (on)
        glEnable(GL_TEXTURE_2D);
    else
        glDisable(GL_TEXTURE_2D);
}

void Renderer::bindTexture(const std::string& name, bool clamp)
{
    glEnable(GL_TEXTURE_2D);
    currentTextureId = textures.bind(name, clamp);
    currentTextureName = name;
}

void Renderer::bindTexture(const std::string& name) { bindTexture(name, false); }

void Renderer::bindTextureId(int glId)
{
    textures.bindId(glId);
    currentTextureId = glId;
}

void Renderer::selectTexture(const std::string& name)
{
    currentTextureId = textures.bind(name, false);
}

int Renderer::getTextureId(const std::string& name) { return textures.getId(name); }

void Renderer::unloadTexture(const std::string& name) { textures.unload(name); }

void Renderer::reloadResources()
{
    for (unsigned int* tex : {&glowTexture, &glowSumTexture}) {
        if (*tex != 0) {
            glDeleteTextures(1, tex);
            *tex = 0;
        }
    }
    createGlowTexture(256, 256);
    deleteBackdrop();
    textures.unloadAll();
    currentTextureId = -1;
}

void Renderer::setColour(float r, float g, float b) { glColor4ub(toByte(r), toByte(g), toByte(b), 255); }

void Renderer::setColour(float r, float g, float b, float a)
{
    glColor4ub(toByte(r), toByte(g), toByte(b), toByte(a));
}

void Renderer::setColour(const RGBAColour& c) { setColour(c.r, c.g, c.b, c.a); }

void Renderer::drawQuad(float x, float y, float z, float w, float h)
{
    glBegin(GL_QUADS);
    glTexCoord2f(0.0f, 1.0f);
    glVertex3f(x, y, z);
    glTexCoord2f(1.0f, 1.0f);
    glVertex3f(x + w, y, z);
    glTexCoord2f(1.0f, 0.0f);
    glVertex3f(x + w, y - h, z);
    glTexCoord2f(0.0f, 0.0f);
    glVertex3f(x, y - h, z);
    glEnd();
}

void Renderer::drawQuad(const Quad& quad)
{
    glBegin(GL_QUADS);
    for (const auto& v : quad.corners) {
        glColor4ub(toByte(v->r), toByte(v->g), toByte(v->b), toByte(v->a));
        glTexCoord2f(v->u, v->v);
        glVertex3f(v->x, v->y, v->z);
    }
    glEnd();
}

void Renderer::drawTexturePart(float x, float y, float z, float w, float h)
{
    float texWidth = static_cast<float>(textures.getWidth(currentTextureName));
    float texHeight = static_cast<float>(textures.getHeight(currentTextureName));
    if (texWidth <= 0.0f || texHeight <= 0.0f)
        texWidth = texHeight = 1.0f;
    glBegin(GL_QUADS);
    glTexCoord2f(x / texWidth, y / texHeight);
    glVertex3f(x, y, z);
    glTexCoord2f((x + w) / texWidth, y / texHeight);
    glVertex3f(x + w, y, z);
    glTexCoord2f((x + w) / texWidth, (y - h) / texHeight);
    glVertex3f(x + w, y - h, z);
    glTexCoord2f(x / texWidth, (y - h) / texHeight);
    glVertex3f(x, y - h, z);
    glEnd();
}

void Renderer::drawCentredQuad(float cx, float cy, float z, float halfW, float halfH, bool wrap)
{
    if (wrap)
        glBegin(GL_QUADS);
    glTexCoord2f(0.0f, 1.0f);
    glVertex3f(cx - halfW, cy + halfH, z);
    glTexCoord2f(1.0f, 1.0f);
    glVertex3f(cx + halfW, cy + halfH, z);
    glTexCoord2f(1.0f, 0.0f);
    glVertex3f(cx + halfW, cy - halfH, z);
    glTexCoord2f(0.0f, 0.0f);
    glVertex3f(cx - halfW, cy - halfH, z);
    if (wrap)
        glEnd();
}

void Renderer::beginQuads() { glBegin(GL_QUADS); }

void Renderer::endQuads() { glEnd(); }

void Renderer::setDepthWrites(bool on) { glDepthMask(on ? GL_TRUE : GL_FALSE); }

std::pair<int, int> Renderer::backdropBandRows(int frame, int h)
{
    const int band = (std::max(h, 0) + backdropBands - 1) / backdropBands;
    const int first = std::min((frame % backdropBands) * band, std::max(h, 0));
    return {first, std::min(first + band, std::max(h, 0))};
}

void Renderer::beginBackdrop(const void* owner)
{
    GLint maxSize = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &maxSize);
    // A window larger than any texture cannot be kept: it is drawn in full.
    if (!frameReuse || width > maxSize || height > maxSize) {
        backdropValid = false;
        return;
    }
    std::vector<float> view(32);
    glGetFloatv(GL_MODELVIEW_MATRIX, view.data());
    glGetFloatv(GL_PROJECTION_MATRIX, view.data() + 16);
    const bool kept = backdropValid && owner == backdropOwner && view == backdropView &&
                      backdropTexWidth >= width && backdropTexHeight >= height;
    if (kept) {
        std::tie(backdropFirstRow, backdropEndRow) = backdropBandRows(backdropFrame++, height);
    } else {
        if (backdropTexWidth < width || backdropTexHeight < height) {
            deleteBackdrop();
            backdropTexWidth = backdropTexHeight = 1;
            while (backdropTexWidth < width)
                backdropTexWidth *= 2;
            while (backdropTexHeight < height)
                backdropTexHeight *= 2;
            backdropTexWidth = std::min(backdropTexWidth, static_cast<int>(maxSize));
            backdropTexHeight = std::min(backdropTexHeight, static_cast<int>(maxSize));
            glGenTextures(1, &backdropTexture);
            glBindTexture(GL_TEXTURE_2D, backdropTexture);
            glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, backdropTexWidth, backdropTexHeight, 0, GL_RGBA,
                         GL_UNSIGNED_BYTE, nullptr);
            // Copied back pixel for pixel: no filtering, no wrapping.
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
            glBindTexture(GL_TEXTURE_2D, 0);
            currentTextureId = -1;
        }
        backdropOwner = owner;
        backdropView = std::move(view);
        backdropFrame = 0;
        backdropFirstRow = 0;
        backdropEndRow = height;
    }
    backdropOpen = true;
    backdropScissorWasOn = glIsEnabled(GL_SCISSOR_TEST) == GL_TRUE;
    glGetIntegerv(GL_SCISSOR_BOX, backdropScissorBox);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, backdropFirstRow, width, backdropEndRow - backdropFirstRow);
}

void Renderer::endBackdrop()
{
    if (!backdropOpen)
        return;
    backdropOpen = false;
    glScissor(backdropScissorBox[0], backdropScissorBox[1], backdropScissorBox[2], backdropScissorBox[3]);
    if (!backdropScissorWasOn)
        glDisable(GL_SCISSOR_TEST);
    glBindTexture(GL_TEXTURE_2D, backdropTexture);
    if (backdropEndRow > backdropFirstRow)
        glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, backdropFirstRow, 0, backdropFirstRow, width,
                            backdropEndRow - backdropFirstRow);
    backdropValid = true;
    if (backdropFirstRow > 0 || backdropEndRow < height)
        drawKeptBackdrop();
    glBindTexture(GL_TEXTURE_2D, 0);
    currentTextureId = -1;
}

void Renderer::drawKeptBackdrop()
{
    const GLboolean blendWasOn = glIsEnabled(GL_BLEND);
    const GLboolean texturingWasOn = glIsEnabled(GL_TEXTURE_2D);
    begin2D();
    glDisable(GL_BLEND);
    glEnable(GL_TEXTURE_2D);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
    const float w = static_cast<float>(width);
    const float u = w / static_cast<float>(backdropTexWidth);
    const float texHeight = static_cast<float>(backdropTexHeight);
    auto rows = [&](int first, int end) {
        if (end <= first)
            return;
        const float y0 = static_cast<float>(first);
        const float y1 = static_cast<float>(end);
        glTexCoord2f(0.0f, y0 / texHeight);
        glVertex2f(0.0f, y0);
        glTexCoord2f(u, y0 / texHeight);
        glVertex2f(w, y0);
        glTexCoord2f(u, y1 / texHeight);
        glVertex2f(w, y1);
        glTexCoord2f(0.0f, y1 / texHeight);
        glVertex2f(0.0f, y1);
    };
    glBegin(GL_QUADS);
    rows(0, backdropFirstRow);
    rows(backdropEndRow, height);
    glEnd();
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    end2D();
    setBlending(blendWasOn == GL_TRUE);
    setTexturing(texturingWasOn == GL_TRUE);
}

void Renderer::deleteBackdrop()
{
    if (backdropTexture != 0)
        glDeleteTextures(1, &backdropTexture);
    backdropTexture = 0;
    backdropTexWidth = backdropTexHeight = 0;
    backdropValid = false;
}

void Renderer::drawImage(float x, float y, float z, float w, float h, const std::string& name,
                         bool additive, bool clamp)
{
    setTexturing(true);
    setBlending(true);
    if (additive)
        setAdditiveBlend();
    else
        setAlphaBlend();
    bindTexture(name, clamp);
    drawQuad(x, y, z, w, h);
}

void Renderer::drawImage(float x, float y, float z, float w, float h, const std::string& name)
{
    drawImage(x, y, z, w, h, name, false, false);
}

void Renderer::drawSprite(float cx, float cy, float z, float w, float h, const std::string& name)
{
    drawTintedSprite(cx, cy, z, w, h, name, RGBAColour(255.0f, 255.0f, 255.0f, 255.0f));
}

void Renderer::drawTintedSprite(float cx, float cy, float z, float w, float h, const std::string& name,
                                const RGBAColour& colour)
{
    setBlending(true);
    setTexturing(true);
    setAlphaBlend();
    setColour(colour);
    // Sprite art does not tile: clamped, so no edge bleeds in from the far side.
    bindTexture(name, true);
    setWrap(true);
    setSpriteAlphaTest(true);
    drawCentredQuad(cx, cy, z, w * 0.5f, h * 0.5f, true);
    setSpriteAlphaTest(false);
}

void Renderer::setSpriteAlphaTest(bool on)
{
    // Clear pixels must not write depth, or a sprite drawn before something
    // behind it punches a hole the shape of its square.
    if (on) {
        glAlphaFunc(GL_GREATER, spriteAlphaCutoff);
        glEnable(GL_ALPHA_TEST);
    } else {
        glDisable(GL_ALPHA_TEST);
    }
}

void Renderer::setWrap(bool clamp)
{
    const GLint wrap = clamp ? GL_CLAMP_TO_EDGE : GL_REPEAT;
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
}

void Renderer::drawPolygon(int count, const std::vector<Vector>& vertices)
{
    const int n = std::min(count, static_cast<int>(vertices.size()));
    if (n <= 0)
        return;
    glBegin(GL_TRIANGLE_FAN);
    for (int i = 0; i < n; ++i)
        glVertex3f(vertices[i].x, vertices[i].y, vertices[i].z);
    glVertex3f(vertices[0].x, vertices[0].y, vertices[0].z);
    glEnd();
}

void Renderer::drawPolygon(int count, const std::vector<Vector>& vertices,
                           const std::vector<RGBAColour>& colours)
{
    const int n = std::min({count, static_cast<int>(vertices.size()), static_cast<int>(colours.size())});
    if (n <= 0)
        return;
    glBegin(GL_TRIANGLE_FAN);
    for (int i = 0; i < n; ++i) {
        setColour(colours[i]);
        glVertex3f(vertices[i].x, vertices[i].y, vertices[i].z);
    }
    setColour(colours[0]);
    glVertex3f(vertices[0].x, vertices[0].y, vertices[0].z);
    glEnd();
}

void Renderer::drawLines(const std::vector<const Quad*>& quads)
{
    glBegin(GL_LINES);
    for (const Quad* quad : quads) {
        if (!quad)
            continue;
        for (const auto& v : quad->corners) {
            glColor4ub(toByte(v->r), toByte(v->g), toByte(v->b), toByte(v->a));
            glVertex3f(v->x, v->y, v->z);
        }
    }
    glEnd();
}

void Renderer::drawLine(float x1, float y1, float x2, float y2, float r, float g, float b, float a)
{
    setColour(r, g, b, a);
    setBlending(false);
    glBegin(GL_LINES);
    glVertex2f(x1, y1);
    glVertex2f(x2, y2);
    glEnd();
}

void Renderer::drawLine(float x1, float y1, float x2, float y2, float lineWidth)
{
    GLfloat previous = 1.0f;
    glGetFloatv(GL_LINE_WIDTH, &previous);
    glLineWidth(lineWidth);
    glBegin(GL_LINES);
    glVertex2f(x1, y1);
    glVertex2f(x2, y2);
    glEnd();
    glLineWidth(previous);
}

void Renderer::drawLines(const Quad& quad)
{
    setBlending(false);
    glBegin(GL_LINES);
    for (const auto& v : quad.corners) {
        glColor4ub(toByte(v->r), toByte(v->g), toByte(v->b), toByte(v->a));
        glVertex3f(v->x, v->y, v->z);
    }
    glEnd();
}

void Renderer::setScissorTest(bool on)
{
    if (on)
        glEnable(GL_SCISSOR_TEST);
    else
        glDisable(GL_SCISSOR_TEST);
}

void Renderer::setScissor(float x, float y, float w, float h)
{
    setScissor(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)),
               static_cast<int>(std::lround(w)), static_cast<int>(std::lround(h)));
}

void Renderer::setScissor(int x, int y, int w, int h) { glScissor(x, y, std::max(w, 0), std::max(h, 0)); }

Vector Renderer::screenToWorld(float x, float y)
{
    // Aim where the cursor's ray meets the play plane: a fixed depth lands
    // near the camera, which trails the player while running.
    const Vector nearPoint = screenToWorld(static_cast<double>(x), static_cast<double>(y), 0.0);
    const Vector farPoint = screenToWorld(static_cast<double>(x), static_cast<double>(y), 1.0);
    return rayMeetsPlayPlane(nearPoint, farPoint);
}

Vector Renderer::rayMeetsPlayPlane(const Vector& nearPoint, const Vector& farPoint)
{
    const float dz = farPoint.z - nearPoint.z;
    Vector v = nearPoint;
    if (std::fabs(dz) > 1e-6f) {
        const float t = -nearPoint.z / dz;
        if (std::isfinite(t)) {
            v.x = nearPoint.x + (farPoint.x - nearPoint.x) * t;
            v.y = nearPoint.y + (farPoint.y - nearPoint.y) * t;
        }
    }
    v.z = 0.0f;
    return v;
}

Vector Renderer::screenToWorld(double x, double y, double depth)
{
    const bool pushed = !in2D;
    if (pushed)
        glPushMatrix();
    GLdouble modelview[16] = {};
    GLdouble projection[16] = {};
    GLint viewport[4] = {};
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glGetIntegerv(GL_VIEWPORT, viewport);
    Vector result(0.0f, 0.0f, -512.0f);
    if (x >= viewport[0] && x <= viewport[2] && y >= viewport[1] && y <= viewport[3]) {
        GLdouble wx = 0.0, wy = 0.0, wz = 0.0;
        if (gluUnProject(x, viewport[3] - y, depth, modelview, projection, viewport, &wx, &wy, &wz) ==
            GL_TRUE)
            result = Vector(static_cast<float>(wx), static_cast<float>(wy), static_cast<float>(wz));
    }
    if (pushed)
        glPopMatrix();
    return result;
}

Vector Renderer::worldToScreen(float x, float y, float z)
{
    GLdouble modelview[16] = {};
    GLdouble projection[16] = {};
    GLint viewport[4] = {};
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glGetIntegerv(GL_VIEWPORT, viewport);
    GLdouble sx = 0.0, sy = 0.0, sz = 0.0;
    if (gluProject(x, y, z, modelview, projection, viewport, &sx, &sy, &sz) != GL_TRUE)
        return {};
    return {static_cast<float>(sx), static_cast<float>(sy), static_cast<float>(sz)};
}

void Renderer::drawFps()
{
    if (varInt(showFps) == 0 || !fontRenderer)
        return;
    begin2D();
    setColour(255.0f, 255.0f, 255.0f);
    setTexturing(true);
    fontRenderer->selectFont("vera", 14);
    fontRenderer->drawText(static_cast<float>(width - 128), 35.0f, std::to_string(fps) + " FPS");
    end2D();
}

void Renderer::translate(float x, float y, float z) { glTranslatef(-x, -y, z); }

void Renderer::setCamera(float x, float y, float z)
{
    cameraPosition.set(x, y, z);
    glTranslatef(-x, -y, z);
    cameraTarget.set(x, y, 0.0f);
    frustum.setCameraDefinition(Vector(x, y, -z), cameraTarget, cameraUp);
}

void Renderer::computeBeamQuad(float corners[8], const Vector& from, const Vector& to, float w)
{
    float dx = to.x - from.x;
    float dy = to.y - from.y;
    const float len = std::sqrt(dx * dx + dy * dy);
    float nx = 0.0f, ny = 0.0f;
    if (len > 0.0f) {
        nx = -dy / len * w;
        ny = dx / len * w;
    }
    corners[0] = from.x - nx;
    corners[1] = from.y - ny;
    corners[2] = from.x + nx;
    corners[3] = from.y + ny;
    corners[4] = to.x + nx;
    corners[5] = to.y + ny;
    corners[6] = to.x - nx;
    corners[7] = to.y - ny;
}

void Renderer::emitBeamQuad(float z, bool flip)
{
    const float u0 = flip ? 1.0f : 0.0f;
    const float u1 = flip ? 0.0f : 1.0f;
    glTexCoord2f(u0, 0.0f);
    glVertex3f(beamQuad[0], beamQuad[1], z);
    glTexCoord2f(u1, 0.0f);
    glVertex3f(beamQuad[2], beamQuad[3], z);
    glTexCoord2f(u1, 1.0f);
    glVertex3f(beamQuad[4], beamQuad[5], z);
    glTexCoord2f(u0, 1.0f);
    glVertex3f(beamQuad[6], beamQuad[7], z);
}

void Renderer::drawBeam(const Vector& from, const Vector& to, float z, float w, bool wrap, bool flip)
{
    computeBeamQuad(beamQuad, from, to, w);
    if (wrap)
        glBegin(GL_QUADS);
    emitBeamQuad(z, flip);
    if (wrap)
        glEnd();
}

void Renderer::drawBeam(const Vector& from, const Vector& to, float z, float w, bool wrap)
{
    drawBeam(from, to, z, w, wrap, false);
}

void Renderer::drawTiledBeam(const Vector& from, const Vector& to, float z, float w,
                             float tileLength, bool wrap, bool flip)
{
    glEnable(GL_DEPTH_TEST);
    if (wrap)
        glBegin(GL_QUADS);
    for (const auto& segment : tiledBeamSegments(from, to, tileLength))
        drawBeam(segment.first, segment.second, z, w, false, flip);
    drawBeam(from, to, z, w, false, flip);
    if (wrap)
        glEnd();
}

void Renderer::drawTiledBeam(const Vector& from, const Vector& to, float z, float w,
                             float tileLength, bool wrap)
{
    drawTiledBeam(from, to, z, w, tileLength, wrap, false);
}

std::vector<std::pair<Vector, Vector>> Renderer::tiledBeamSegments(const Vector& from,
                                                                   const Vector& to,
                                                                   float tileLength)
{
    std::vector<std::pair<Vector, Vector>> segments;
    const float dx = to.x - from.x;
    const float dy = to.y - from.y;
    const float lengthSquared = dx * dx + dy * dy;
    const float length = std::sqrt(lengthSquared);
    if (!(tileLength > 0.0f) || !(length > 0.0f) || !std::isfinite(length))
        return segments;
    // Absurdly short tiles would make millions of quads; never more than this many.
    constexpr float maxSegments = 4096.0f;
    const float tile = std::max(tileLength, length / maxSegments);
    const Vector step(dx / length * tile, dy / length * tile);
    Vector previous(from.x, from.y, 0.0f);
    bool done = false;
    while (!done) {
        Vector current(previous.x + step.x, previous.y + step.y, 0.0f);
        const float cx = current.x - from.x;
        const float cy = current.y - from.y;
        if (cx * cx + cy * cy > lengthSquared) {
            current = Vector(to.x, to.y, 0.0f);
            done = true;
        }
        segments.emplace_back(previous, current);
        previous = current;
    }
    return segments;
}

void Renderer::emitBodyPolygon(const Body& body, bool textured)
{
    const auto& vertices = body.localVertices;
    if (vertices.empty())
        return;
    const size_t colourCount = body.colours.size();
    const size_t texCount = body.texCoords.size();
    auto emit = [&](size_t i) {
        if (i < colourCount)
            setColour(body.colours[i]);
        if (textured && i < texCount)
            glTexCoord2f(body.texCoords[i].u, body.texCoords[i].v);
        glVertex2f(vertices[i].x, vertices[i].y);
    };
    glBegin(GL_TRIANGLE_FAN);
    for (size_t i = 0; i < vertices.size(); ++i)
        emit(i);
    emit(0);
    glEnd();
}

void Renderer::drawBodyString(Body& body, bool black)
{
    if (varInt(rbodyString) != 1 || !fontRenderer)
        return;
    const std::string text = body.type + " " + body.id +
                             (body.mass >= Body::minMass ? (black ? " : Movable" : ": Movable")
                                                         : (black ? " : Unmovable" : ": Unmovable")) +
                             " " + std::to_string(body.renderpos.z + body.zShift);
    if (black)
        setColour(0.0f, 0.0f, 0.0f);
    else
        setColour(255.0f, 255.0f, 255.0f);
    fontRenderer->selectFont("vera", 12);
    fontRenderer->drawText(body.renderpos.x, body.renderpos.y + 24.0f, text);
}

void Renderer::drawBody(Body& body)
{
    if (varInt(drawBodies) <= 0)
        return;
    if (body.isText()) {
        body.drawText(*this);
        return;
    }
    if (!body.visible)
        return;
    constexpr float radiansToDegrees = 180.0f / 3.1415927f;
    glPushMatrix();
    glTranslatef(body.renderpos.x, body.renderpos.y, body.renderpos.z + body.zShift);
    glRotatef(body.rotation * radiansToDegrees, 0.0f, 0.0f, 1.0f);

    const bool textured = body.textured && !body.texture.empty();
    if (textured) {
        setTexturing(true);
        setBlending(true);
        setAlphaBlend();
        const bool clamp = body.drawsTextureOnce();
        if (varInt(cacheTextureIds) < 1) {
            bindTexture(body.texture, clamp);
        } else if (body.textureId < 0) {
            bindTexture(body.texture, clamp);
            body.textureId = getTextureId(body.texture);
        } else {
            bindTextureId(body.textureId);
        }
        // Textures are shared, so each body states its own wrap mode.
        setWrap(clamp);
        // A body that covers what is behind it wholly needs no blending and no
        // alpha test: the result is the same, and costs less per pixel.
        const bool opaque = frameReuse && isOpaque(body);
        setBlending(!opaque);
        setSpriteAlphaTest(!opaque);
    } else {
        setTexturing(false);
        setBlending(false);
    }

    // Only glowing bodies light the glow capture; the rest hide what is
    // behind them there, so the picture around them stays sharp.
    const bool darkenCapture = capturing && !body.hasGlow;
    if (darkenCapture) {
        setBlending(true);
        glBlendFunc(GL_ZERO, GL_ONE_MINUS_SRC_ALPHA);
    }

    const bool liquid = body.isLiquid();
    if (liquid) {
        float shiftU = 0.0f, shiftV = 0.0f, scaleU = 1.0f, scaleV = 1.0f;
        body.liquidTextureMotion(shiftU, shiftV, 0.0f, 0.0f, scaleU, scaleV);
        glMatrixMode(GL_TEXTURE);
        glLoadIdentity();
        glTranslatef(shiftU, shiftV, 0.0f);
        glScalef(scaleU, scaleV, 1.0f);
        glMatrixMode(GL_MODELVIEW);
    }

    emitBodyPolygon(body, textured);
    if (textured) {
        setSpriteAlphaTest(false);
        setWrap(false);
    }

    if (body.outlined && varInt(drawOutlines) != 0 && !capturing && body.localVertices.size() > 1) {
        setColour(body.outlineColour);
        glDisable(GL_DEPTH_TEST);
        setAlphaBlend();
        setBlending(true);
        setTexturing(true);
        bindTexture("data/particles/brightpart.tga");
        const auto& v = body.localVertices;
        for (size_t i = 0; i + 1 < v.size(); ++i)
            drawBeam(v[i], v[i + 1], 0.001f, 2.0f, true, true);
        glEnable(GL_DEPTH_TEST);
    }

    glPopMatrix();
    if (darkenCapture)
        setAlphaBlend();
    if (liquid) {
        glMatrixMode(GL_TEXTURE);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
    }
    body.drawExtras(*this);
    drawBodyString(body, false);
}

bool Renderer::isOpaque(const Body& body)
{
    const Texture* texture = textures.find(body.texture);
    if (!texture || texture->bitsPerPixel != 24 || body.colours.size() < body.localVertices.size())
        return false;
    for (const RGBAColour& c : body.colours)
        if (toByte(c.a) != 255)
            return false;
    return true;
}

void Renderer::drawBodySimple(Body& body)
{
    if (!body.visible)
        return;
    constexpr float radiansToDegrees = 180.0f / 3.1415927f;
    glPushMatrix();
    glTranslatef(body.renderpos.x, body.renderpos.y, body.renderpos.z + body.zShift);
    glRotatef(body.rotation * radiansToDegrees, 0.0f, 0.0f, 1.0f);

    const bool textured = body.textured && !body.texture.empty();
    if (textured) {
        setTexturing(true);
        setBlending(true);
        setAlphaBlend();
        bindTexture(body.texture, body.drawsTextureOnce());
        setWrap(body.drawsTextureOnce());
    } else {
        setTexturing(false);
        setBlending(false);
    }
    if (capturing) {
        // Opaque bodies darken the glow capture where they stand.
        setBlending(true);
        glBlendFunc(GL_ZERO, GL_ONE_MINUS_SRC_ALPHA);
    }
    emitBodyPolygon(body, textured);
    if (textured)
        setWrap(false);

    if (body.outlined && varInt(drawOutlines) != 0 && !capturing && !body.localVertices.empty()) {
        GLfloat previousWidth = 1.0f;
        glGetFloatv(GL_LINE_WIDTH, &previousWidth);
        setTexturing(false);
        setColour(body.outlineColour);
        glLineWidth(static_cast<float>(std::max(body.outlinewidth, 1)));
        glBegin(GL_LINE_LOOP);
        for (const Vector& v : body.localVertices)
            glVertex3f(v.x, v.y, v.z + 0.1f);
        glEnd();
        glLineWidth(previousWidth);
    }
    glPopMatrix();
    if (capturing)
        setAlphaBlend();
    body.drawExtras(*this);
    drawBodyString(body, true);
}

void Renderer::setFontRenderer(FontRenderer* f) { fontRenderer.reset(f); }

void Renderer::pushMatrix() { glPushMatrix(); }

void Renderer::popMatrix() { glPopMatrix(); }

void Renderer::updateFrustum()
{
    GLfloat modelview[16] = {};
    GLfloat projection[16] = {};
    glGetFloatv(GL_MODELVIEW_MATRIX, modelview);
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    frustum.setFromMatrices(modelview, projection);
}

void Renderer::createTexture(unsigned int& id, int w, int h)
{
    std::vector<unsigned char> zeros(static_cast<size_t>(w) * static_cast<size_t>(h) * 4, 0);
    GLuint tex = 0;
    glGenTextures(1, &tex);
    glBindTexture(GL_TEXTURE_2D, tex);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, w, h, 0, GL_RGBA, GL_UNSIGNED_BYTE, zeros.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    id = tex;
}

void Renderer::createGlowTexture(int w, int h)
{
    createTexture(glowTexture, w, h);
    createTexture(glowSumTexture, w, h);
    glowWidth = w;
    glowHeight = h;
}

void Renderer::emitScreenQuad(int areaWidth, int areaHeight, float dx, float dy)
{
    const float w = static_cast<float>(areaWidth);
    const float h = static_cast<float>(areaHeight);
    glTexCoord2f(0.0f, 0.0f);
    glVertex2f(dx, h + dy);
    glTexCoord2f(0.0f, -1.0f);
    glVertex2f(dx, dy);
    glTexCoord2f(1.0f, -1.0f);
    glVertex2f(w + dx, dy);
    glTexCoord2f(1.0f, 0.0f);
    glVertex2f(w + dx, h + dy);
}

void Renderer::beginCapture()
{
    capturing = true;
    glViewport(0, 0, glowWidth, glowHeight);
}

void Renderer::endCapture()
{
    glBindTexture(GL_TEXTURE_2D, glowTexture);
    glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 0, 0, glowWidth, glowHeight, 0);
    clearGlowCorner();
    sumGlowCopies();
    glViewport(0, 0, width, height);
    capturing = false;
}

void Renderer::clearGlowCorner()
{
    // Only the corner was drawn into; clearing the whole window would cost
    // as much as a full-screen quad on a software rasteriser.
    const GLboolean scissorWasOn = glIsEnabled(GL_SCISSOR_TEST);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 0, glowWidth, glowHeight);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (!scissorWasOn)
        glDisable(GL_SCISSOR_TEST);
}

void Renderer::sumGlowCopies()
{
    // The corner of the window is still scratch space here: add the four
    // offset copies at the capture's size, keep the sum, clear the corner.
    const int blur = varInt(bloomBlurPixels);
    const float d = blur != 0 ? static_cast<float>(blur) : 4.0f;
    const float dx = d * static_cast<float>(glowWidth) / static_cast<float>(std::max(width, 1));
    const float dy = d * static_cast<float>(glowHeight) / static_cast<float>(std::max(height, 1));
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0.0, glowWidth, 0.0, glowHeight, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_TEXTURE_GEN_S);
    glDisable(GL_TEXTURE_GEN_T);
    setTexturing(true);
    setBlending(true);
    setAdditiveBlend();
    glColor4f(1.0f, 1.0f, 1.0f, glowCopyWeight);
    glBindTexture(GL_TEXTURE_2D, glowTexture);
    glBegin(GL_QUADS);
    emitScreenQuad(glowWidth, glowHeight, dx, dy);
    emitScreenQuad(glowWidth, glowHeight, -dx, dy);
    emitScreenQuad(glowWidth, glowHeight, -dx, -dy);
    emitScreenQuad(glowWidth, glowHeight, dx, -dy);
    glEnd();
    glBindTexture(GL_TEXTURE_2D, glowSumTexture);
    glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 0, 0, glowWidth, glowHeight);
    glowTiles.clear();
    if (frameReuse) {
        glowPixels.resize(static_cast<size_t>(glowWidth) * static_cast<size_t>(glowHeight) * 4);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, glowWidth, glowHeight, GL_RGBA, GL_UNSIGNED_BYTE, glowPixels.data());
        glowTiles = litGlowTiles(glowPixels.data(), glowWidth, glowHeight, glowTileSize);
    }
    clearGlowCorner();
    glEnable(GL_DEPTH_TEST);
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    setAlphaBlend();
    glBindTexture(GL_TEXTURE_2D, 0);
    currentTextureId = -1;
}

void Renderer::drawGlow()
{
    glDisable(GL_TEXTURE_GEN_S);
    glDisable(GL_TEXTURE_GEN_T);
    setTexturing(true);
    setAdditiveBlend();
    setBlending(true);
    begin2D();
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    glBindTexture(GL_TEXTURE_2D, glowSumTexture);
    glBegin(GL_QUADS);
    const int tilesX = (glowWidth + glowTileSize - 1) / glowTileSize;
    const int tilesY = (glowHeight + glowTileSize - 1) / glowTileSize;
    if (glowTiles.size() != static_cast<size_t>(tilesX) * static_cast<size_t>(tilesY)) {
        emitScreenQuad(width, height, 0.0f, 0.0f);
    } else {
        // Runs of lit tiles, each on the same texture mapping as the whole window.
        const float w = static_cast<float>(width);
        const float h = static_cast<float>(height);
        auto windowX = [&](int tx) { return std::min(w, w * static_cast<float>(tx * glowTileSize) / static_cast<float>(glowWidth)); };
        auto windowY = [&](int ty) { return std::min(h, h * static_cast<float>(ty * glowTileSize) / static_cast<float>(glowHeight)); };
        auto vertex = [&](float x, float y) {
            glTexCoord2f(x / w, y / h - 1.0f);
            glVertex2f(x, y);
        };
        for (int ty = 0; ty < tilesY; ++ty) {
            for (int tx = 0; tx < tilesX;) {
                if (!glowTiles[static_cast<size_t>(ty * tilesX + tx)]) {
                    ++tx;
                    continue;
                }
                const int first = tx;
                while (tx < tilesX && glowTiles[static_cast<size_t>(ty * tilesX + tx)])
                    ++tx;
                const float x0 = windowX(first), x1 = windowX(tx), y0 = windowY(ty), y1 = windowY(ty + 1);
                vertex(x0, y1);
                vertex(x0, y0);
                vertex(x1, y0);
                vertex(x1, y1);
            }
        }
    }
    glEnd();
    end2D();
    setTexturing(false);
    setBlending(false);
    glBindTexture(GL_TEXTURE_2D, 0);
    currentTextureId = -1;
}

std::vector<bool> Renderer::litGlowTiles(const unsigned char* rgba, int w, int h, int tile)
{
    const int tilesX = (w + tile - 1) / tile;
    const int tilesY = (h + tile - 1) / tile;
    std::vector<bool> lit(static_cast<size_t>(tilesX) * static_cast<size_t>(tilesY), false);
    for (int y = 0; y < h; ++y) {
        const unsigned char* row = rgba + static_cast<size_t>(y) * static_cast<size_t>(w) * 4;
        for (int x = 0; x < w; ++x) {
            const unsigned char* p = row + static_cast<size_t>(x) * 4;
            if ((p[0] | p[1] | p[2]) == 0)
                continue;
            // Filtering reaches one texel further, across the edges too (the texture repeats).
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx) {
                    const int tx = ((x + dx + w) % w) / tile;
                    const int ty = ((y + dy + h) % h) / tile;
                    lit[static_cast<size_t>(ty * tilesX + tx)] = true;
                }
        }
    }
    return lit;
}

bool Renderer::isMovieFrameDue(float now)
{
    if (now < nextMovieFrame)
        return false;
    nextMovieFrame = now + movieFrameMs;
    return true;
}

std::string Renderer::captureName(bool movie, int number)
{
    char digits[8];
    std::snprintf(digits, sizeof digits, "%04d", std::clamp(number, 0, lastCaptureNumber));
    return std::string(movie ? "screenshots/movie" : "screenshots/screenshot") + digits + ".png";
}

int Renderer::nextFreeScreenshot(int start)
{
    int n = std::max(start, 0);
    for (; n < lastCaptureNumber; ++n) {
        std::ifstream probe(captureName(false, n), std::ios::binary);
        if (!probe)
            return n;
    }
    return lastCaptureNumber;
}

void Renderer::takeScreenshot()
{
    const bool movie = varInt(movieRecord) > 0;
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);
    if (ilutGLScreen() != IL_TRUE) {
        std::printf("Error taking screenshot\n");
        ilDeleteImages(1, &image);
        return;
    }
    int number = 0;
    if (movie) {
        number = movieNumber++;
    } else {
        screenshotNumber = nextFreeScreenshot(screenshotNumber);
        number = screenshotNumber;
    }
    if (number >= lastCaptureNumber) {
        if (!movie)
            conPrint("Screenshots dir is full, copy the pictures elsewhere and try again");
    } else {
        const std::string name = captureName(movie, number);
        ::mkdir("screenshots", 0755);
        // Movie frames come eight a second: they are written silently.
        if (!movie) {
            conPrint("Writing screenshot to " + name);
            std::printf("Writing screenshot to %s\n", name.c_str());
        }
        ilSave(IL_PNG, name.c_str());
    }
    ilDeleteImages(1, &image);
}

void Renderer::grabScreen()
{
    if (grabbedImage >= 0) {
        ILuint old = static_cast<ILuint>(grabbedImage);
        ilDeleteImages(1, &old);
        grabbedImage = -1;
    }
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);
    if (ilutGLScreen() != IL_TRUE) {
        ilDeleteImages(1, &image);
        return;
    }
    grabbedImage = static_cast<int>(image);
}

bool Renderer::saveGrab(const std::string& path, int w, int h)
{
    textures.unload(path);
    if (grabbedImage < 0)
        return false;
    ILuint image = static_cast<ILuint>(grabbedImage);
    ilBindImage(image);
    iluImageParameter(ILU_FILTER, ILU_BILINEAR);
    iluScale(static_cast<ILuint>(std::max(w, 1)), static_cast<ILuint>(std::max(h, 1)), 1);
    iluContrast(1.1f);
    // A thumbnail is replaced whole or not at all.
    AtomicFile::replace(path, [](const std::string& temporary) {
        return ilSave(IL_PNG, temporary.c_str()) == IL_TRUE;
    });
    ilDeleteImages(1, &image);
    grabbedImage = -1;
    return true;
}

void Renderer::printGlowTextureId(std::ostream& out) { out << "Blur Texture ID: " << glowTexture << "\n"; }
