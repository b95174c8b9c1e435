#include "core/Cinematic.h"

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "render/IRenderer.h"

void Cinematic::handleEvent(const SDL_Event& event, Game& game)
{
    switch (event.type) {
    case SDL_KEYDOWN:
    case SDL_KEYUP:
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        if (elapsed > skipDelaySeconds && skippable)
            running = false;
        break;
    case SDL_QUIT:
        if (skippable) {
            game.setQuit(true);
            running = false;
        }
        break;
    default:
        break;
    }
}

void Cinematic::beginFrame(Game& game)
{
    game.tickTimer();
    elapsed += game.getTimer().frameTime();
    sceneTimer.tick();
    if (IRenderer* renderer = game.getRenderer())
        renderer->beginFrame();
    SDL_Event event;
    while (pollEvent(event))
        handleEvent(event, game);
    // A SIGTERM or a quit command elsewhere ends the scene as a closed window would.
    if (game.isQuitting())
        running = false;
}

void Cinematic::endFrame(Game& game)
{
    if (sceneTimer.currentTime - sceneTimer.startTime >= 1000.0f)
        sceneTimer.start();
    IRenderer* renderer = game.getRenderer();
    if (renderer) {
        // Movie recording covers the scene too, at the renderer's movie frame rate.
        const GameVar* movie = findVar("movierecord");
        if (movie && movie->intValue > 0 && renderer->isMovieFrameDue(sceneTimer.currentTime))
            renderer->takeScreenshot();
        renderer->endFrame();
    }
    game.countFrame();
}
