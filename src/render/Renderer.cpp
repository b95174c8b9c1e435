#include "render/Renderer.h"

#include <SDL.h>
#include <GL/gl.h>
#include <GL/glu.h>

#include <cstdio>

Renderer::~Renderer() { shutdown(); }

bool Renderer::init()
{
    if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_TIMER) < 0) {
        std::printf("Unable to initialise SDL: %s\n", SDL_GetError());
        return false;
    }
    videoStarted = true;
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);
    SDL_WM_SetCaption("Brindlequay", "Brindlequay");
    SDL_EnableUNICODE(1);
    SDL_EnableKeyRepeat(SDL_DEFAULT_REPEAT_DELAY, SDL_DEFAULT_REPEAT_INTERVAL);
    return true;
}

bool Renderer::setVideoMode(int w, int h, bool full)
{
    Uint32 flags = SDL_OPENGL | (full ? SDL_FULLSCREEN : 0);
    if (w <= 0 || h <= 0 || !SDL_SetVideoMode(w, h, 0, flags)) {
        std::printf("Unable to set video mode %d x %d, falling back to 640 x 480 windowed\n", w, h);
        w = 640;
        h = 480;
        full = false;
        if (!SDL_SetVideoMode(w, h, 0, SDL_OPENGL))
            return false;
    }
    width = w;
    height = h;
    fullscreen = full;
    setupGlState();
    return true;
}

void Renderer::setupGlState()
{
    glViewport(0, 0, width, height);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDisable(GL_DEPTH_TEST);
    glShadeModel(GL_SMOOTH);
}

void Renderer::shutdown()
{
    if (videoStarted) {
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        videoStarted = false;
    }
}

void Renderer::beginFrame()
{
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45.0, static_cast<double>(width) / (height > 0 ? height : 1), 1.0, 5000.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void Renderer::swapBuffers() { SDL_GL_SwapBuffers(); }

void Renderer::enter2D()
{
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0, width, 0, height, -1, 1);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
}

void Renderer::leave2D()
{
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}
