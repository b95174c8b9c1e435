// The Game's video mode: choosing it at start-up, changing it and telling everyone the new size.
#include "core/Game.h"

#include <SDL.h>

#include <cstdio>

#include "console/Console.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "gameplay/IGameplay.h"
#include "gui/GUIManager.h"
#include "particles/ParticleManager.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "world/body/Body.h"

bool Game::setInitialVideoMode()
{
    GameVar* width = getVar("vidwidth");
    GameVar* height = getVar("vidheight");
    GameVar* full = getVar("vidfullscreen");
    GameVar* firstrun = getVar("firstrun");
    if (firstrun->intValue == 1) {
        firstrun->setString("0");
        const SDL_VideoInfo* info = SDL_GetVideoInfo();
        const int w = info ? info->current_w : 1024;
        const int h = info ? info->current_h : 768;
        std::printf("Current Desktop Res: %d x %d\n", w, h);
        const bool ok = renderer->setVideoMode(w, h, true);
        storeVideoMode();
        return ok;
    }
    const bool ok = renderer->setVideoMode(width->intValue, height->intValue, full->intValue > 0);
    storeVideoMode();
    return ok;
}

void Game::storeVideoMode()
{
    // The mode obtained, not the one asked for, is what the config keeps.
    getVar("vidwidth")->setInt(renderer->getWidth());
    getVar("vidheight")->setInt(renderer->getHeight());
    getVar("vidfullscreen")->setInt(renderer->isFullscreen() ? 1 : 0);
}

void Game::restartVideo(int width, int height, bool fullscreen)
{
    getVar("vidwidth")->setInt(width);
    getVar("vidheight")->setInt(height);
    getVar("vidfullscreen")->setInt(fullscreen ? 1 : 0);
    changeVideoMode(width, height, fullscreen);
    storeVideoMode();
}

void Game::changeVideoMode(int width, int height, bool fullscreen)
{
    if (!renderer->setVideoMode(width, height, fullscreen)) {
        // No window and no GL context: nothing more can be drawn.
        setQuit(true);
        return;
    }
    if (FontRenderer* fonts = renderer->getFontRenderer())
        fonts->init();
    announceScreenSize();
    // Every GL texture was made anew: cached ids are stale.
    for (Body* body : bodies)
        body->textureId = -1;
    if (player)
        player->textureId = -1;
    particleManager->reloadTextures();
}

void Game::announceScreenSize()
{
    const int w = renderer->getWidth();
    const int h = renderer->getHeight();
    console->setSize(w, h);
    if (guiManager)
        guiManager->setScreenSize(w, h);
    if (gameplay)
        gameplay->setScreenSize(w, h);
}
