// The Game's frame: events, the fixed world steps, the overlays and pausing.
#include "core/Game.h"

#include <SDL.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "console/Console.h"
#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "core/DemoManager.h"
#include "core/StepProfile.h"
#include "gameplay/IGameplay.h"
#include "gui/GUIManager.h"
#include "input/GameInput.h"
#include "particles/ParticleManager.h"
#include "render/IRenderer.h"
#include "render/SimpleFadeOverlay.h"
#include "sound/ISound.h"
#include "world/body/Body.h"

void Game::updateKeyRepeat()
{
    // Typing wants held keys to repeat; playing does not: a repeated press
    // would run its binding again, and the window system has been seen to
    // keep repeating a key after its release.
    const bool wanted = inputManager.getCurrentTarget() != "game";
    if (wanted == keyRepeatOn)
        return;
    keyRepeatOn = wanted;
    if (wanted)
        SDL_EnableKeyRepeat(500, 30);
    else
        SDL_EnableKeyRepeat(0, 0);
}

void Game::pumpEvents()
{
    if (terminateRequested())
        quitRequested = true;
    SDL_Event event;
    updateKeyRepeat();
    while (SDL_PollEvent(&event)) {
        switch (event.type) {
        case SDL_KEYDOWN:
            inputManager.setModifiers(event.key.keysym.mod);
            inputManager.keyEvent(true, event.key.keysym.sym, event.key.keysym.unicode);
            updateKeyRepeat();
            break;
        case SDL_KEYUP:
            inputManager.setModifiers(event.key.keysym.mod);
            inputManager.keyUp(event.key.keysym.sym);
            break;
        case SDL_MOUSEMOTION:
            inputManager.mouseMotion(event.motion.x, event.motion.y, event.motion.xrel,
                                     event.motion.yrel);
            break;
        case SDL_MOUSEBUTTONDOWN:
            inputManager.mouseButtonDown(event.button.x, event.button.y, event.button.button);
            break;
        case SDL_MOUSEBUTTONUP:
            inputManager.mouseButtonUp(event.button.x, event.button.y, event.button.button);
            break;
        case SDL_QUIT:
            quitRequested = true;
            break;
        default:
            inputManager.joystickEvent(event);
            break;
        }
    }
}

void Game::runFrame()
{
    renderer->begin2D();
    guiManager->draw(*renderer);
    drawNotice();
    console->draw();
    renderer->end2D();
    endFrame();
    noteFrameShown();
    // Outside the world update (menus, pause) the channel counts that cap
    // new sounds must still follow what is playing.
    if (paused || !levelLoaded || !worldRunning || isWorldHeld())
        sound->update(player ? player->pos : Vector());
    updateMusic();

    if (paused) {
        if (saveRequested)
            saveGame();
        renderer->beginFrame();
        if (levelLoaded && worldRunning) {
            refreshVisibleBodies();
            drawWorld();
        }
        drawGameplayOverlay();
        drawPausedImage();
        return;
    }

    // A new adventure's level is shown once before its first save, so the
    // thumbnail and the HUD in it are what the player sees.
    const bool firstFrameOwed = !cutsceneAfterSave.empty() && levelLoaded && worldRunning && levelFramesDrawn == 0;
    if (saveRequested && !firstFrameOwed) {
        saveGame();
        tickTimer();
        if (!cutsceneAfterSave.empty())
            showCutscene(std::exchange(cutsceneAfterSave, std::string()));
        return;
    }
    tickTimer();
    if (!pendingLevelShot.empty() && levelLoaded && !levelPending)
        writeLevelShot();
    renderer->beginFrame();
    if (levelLoaded && worldRunning) {
        if (runPendingRequests())
            return;
        if (isWorldHeld()) {
            refreshVisibleBodies();
            drawWorld();
        } else {
            updateWorld();
            drawWorld();
            // Counted once the world has stepped: the HUD is filled in by then.
            if (stepCount > levelStartStep)
                ++levelFramesDrawn;
        }
    }
    if (overlay) {
        overlay->update(timer.frameTime());
        overlay->draw(*renderer, timer.frameTime());
        if (overlay->isDone())
            clearOverlay();
    }
    drawGameplayOverlay();
}

bool Game::runPendingRequests()
{
    if (levelPending) {
        loadLevel(pendingLevel, pendingLevelEntry);
        return true;
    }
    if (loadPending) {
        loadPending = false;
        loadGame(checkpointLoadPending ? checkpointSave : pendingSaveName);
        checkpointLoadPending = false;
        return true;
    }
    return false;
}

void Game::writeLevelShot()
{
    const std::string path = pendingLevelShot;
    pendingLevelShot.clear();
    const std::vector<Body*> all(bodies.begin(), bodies.end());
    if (renderer->drawLevelShot(all, path)) {
        conPrint("Wrote level picture " + path);
        std::printf("Wrote level picture %s\n", path.c_str());
    } else {
        conPrint("Could not write level picture " + path);
        std::printf("Could not write level picture %s\n", path.c_str());
    }
}

void Game::drawGameplayOverlay()
{
    if (!gameplay || !levelLoaded)
        return;
    gameplay->drawOverlay(renderer.get());
    gameplay->drawHud(renderer.get(), timer.frameTime());
}

void Game::endFrame()
{
    renderer->drawFps();
    if (movierecord && movierecord->intValue > 0) {
        movieClock += timer.frameTime();
        if (movieClock > 1.0f / static_cast<float>(movierecord->intValue)) {
            captureRequested = true;
            movieClock = 0.0f;
        }
    }
    if (captureRequested) {
        renderer->takeScreenshot();
        captureRequested = false;
    }
    renderer->endFrame();
    frameCount += 1;
}

void Game::drawPausedImage()
{
    renderer->begin2D();
    renderer->setBlending(true);
    renderer->setColour(255, 255, 255, 150);
    renderer->drawImage(static_cast<float>(renderer->getWidth() / 2 - 128),
                        static_cast<float>(renderer->getHeight() / 2 - 32), 0.0f, 256.0f, 64.0f,
                        "data/images/paused.png");
    renderer->end2D();
}

void Game::interpolateBodies(float alpha)
{
    for (Body* body : activeBodies) {
        if (body->mass < Body::minMass && !body->nonmassmover)
            continue;
        body->renderpos = body->oldpos + (body->pos - body->oldpos) * alpha;
        body->renderpos.z = body->pos.z;
    }
}

void Game::updateWorld()
{
    const float dt = std::min(timer.frameTime(), maxFrameSeconds);
    simulationAccumulator += dt;
    refreshVisibleBodies();

    // A step that asked for another level is the last on this one: however
    // long the frame, the same steps run before the change, so a replay
    // sees them too.
    while (simulationAccumulator >= stepSeconds && !levelPending && !loadPending) {
        stepWorld();
        simulationAccumulator -= stepSeconds;
    }
    if (player)
        sound->update(player->pos);
    stepParticles(dt);
    interpolateBodies(simulationAccumulator / stepSeconds);
}

void Game::stepWorld(StepProfile* profile)
{
    auto lap = [profile](StepProfile::Section section) {
        if (profile)
            profile->lap(section);
    };
    demos->beforeStep();
    // Firing and weapon changes are read once a step, not once a frame, so
    // the frame rate cannot change what a held button does.
    if (gameInput) {
        gameInput->update(player);
        gameInput->step(player, stepSeconds);
    }
    lap(StepProfile::controls);
    if (gameplay) {
        gameplay->preStep();
        gameplay->update(stepSeconds);
    }
    lap(StepProfile::thinks);
    applyGravity(stepSeconds);
    freezeVelocities();
    collideBodies(stepSeconds);
    lap(StepProfile::collision);
    moveBodies(stepSeconds);
    lap(StepProfile::move);
    if (gameplay)
        gameplay->postStep();
    ++stepCount;
    demos->afterStep();
    lap(StepProfile::thinks);
}

void Game::stepParticles(float seconds)
{
    particleAccumulator += seconds;
    while (particleAccumulator >= particleStepSeconds) {
        particleManager->update(particleStepSeconds);
        particleAccumulator -= particleStepSeconds;
    }
}

void Game::drawStepFrame()
{
    // The frame lasts exactly one step, for the camera and the effects.
    timer.previousTime = timer.currentTime;
    timer.currentTime += stepSeconds * 1000.0f;
    interpolateBodies(1.0f);
    renderer->beginFrame();
    refreshVisibleBodies();
    drawWorld();
    drawGameplayOverlay();
    renderer->begin2D();
    console->draw();
    renderer->end2D();
    endFrame();
}

void Game::tickTimer() { timer.tick(); }

void Game::clearOverlay() { overlay.reset(); }

void Game::startFade() { overlay = std::make_unique<SimpleFadeOverlay>(1.0f); }

void Game::pause()
{
    paused = true;
    timer.pause();
    if (gameplay)
        gameplay->pause();
    sound->play("data/sounds/events/Off3.wav", 0, 100);
    sound->pauseMusic(true);
}

void Game::unpause()
{
    paused = false;
    timer.resume();
    if (gameplay)
        gameplay->resume();
    sound->play("data/sounds/events/On3.wav", 0, 100);
    sound->pauseMusic(false);
}
