// The Renderer's window and frames: start-up, video modes, GL state, textures, camera and projections.
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

#include "console/VariableRegistry.h"
#include "render/FontRenderer.h"

namespace {
constexpr float worldScale = 0.015f;
constexpr double nearPlane = 0.1;
constexpr double farPlane = 4096.0;
constexpr double framePerspective = 90.0;
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
    glowStrength = findVar("glowstrength");
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

void Renderer::setDepthWrites(bool on) { glDepthMask(on ? GL_TRUE : GL_FALSE); }

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
