#include "core/Game.h"

#include <SDL.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fstream>

#include "console/CommandRegistry.h"
#include "console/Console.h"
#include "core/Clock.h"
#include "gui/GUIManager.h"
#include "input/GameInput.h"
#include "render/IRenderer.h"
#include "render/Renderer.h"
#include "sound/ISound.h"
#include "sound/NullSound.h"

namespace {
Game* currentGame = nullptr;
volatile std::sig_atomic_t terminateSignalled = 0;

void onTerminateSignal(int) { terminateSignalled = 1; }
}

Game::Game() : Game(std::make_unique<Renderer>(), std::make_unique<NullSound>()) {}

Game::Game(std::unique_ptr<IRenderer> r, std::unique_ptr<ISound> s)
    : sound(std::move(s)),
      renderer(std::move(r)),
      guiManager(std::make_unique<GUIManager>()),
      console(std::make_unique<Console>())
{
    inputManager.setGUI(guiManager.get());
    inputManager.setConsole(console.get());
    inputManager.setCurrentTarget("gui");
    timer.running = true;
    timer.paused = false;
    bodyIterNext = activeBodies.end();
    currentGame = this;
}

Game::~Game()
{
    if (currentGame == this)
        currentGame = nullptr;
}

Game* Game::current() { return currentGame; }

bool Game::init()
{
    std::printf("======== GAME INIT ========\n");
    std::signal(SIGTERM, onTerminateSignal);
    std::signal(SIGINT, onTerminateSignal);

    inputManager.loadKeyNames("data/keymaps.xml");
    inputManager.setGUI(guiManager.get());
    inputManager.setConsole(console.get());
    inputManager.setCurrentTarget("gui");

    if (!renderer->init()) {
        SDL_Quit();
        return false;
    }
    // Key events carry the typed character for the console and text boxes.
    SDL_EnableUNICODE(1);
    installGameInput(std::make_unique<GameInput>());
    registerCommands();
    if (!renderer->setVideoMode(640, 480, false)) {
        SDL_Quit();
        return false;
    }
    sound->initialise();
    timer.start();
    return true;
}

bool Game::registerCommands()
{
    runStartupScripts();
    return true;
}

void Game::runStartupScripts()
{
    CommandRegistry& registry = CommandRegistry::instance();
    // Until the game has written the player's own config.txt, the shipped
    // default controls stand in for it.
    if (!std::ifstream("data/config.txt"))
        registry.execute("exec default.cfg");
    registry.execute("exec config.txt");
    registry.execute("exec userconfig.txt");
    registry.execute("exec userconfig.txt");
    if (std::ifstream("data/autoexec.txt"))
        registry.execute("exec autoexec.txt");
}

void Game::installGameInput(std::unique_ptr<GameInput> input)
{
    gameInput = std::move(input);
    if (gameInput)
        gameInput->init();
    inputManager.setGameInput(gameInput.get());
}

void Game::setCommandLine(int argc, char** argv)
{
    // Each "+word" starts a new command; the words after it are its arguments.
    std::string text;
    for (int i = 1; i < argc; ++i) {
        std::string word = argv[i] ? argv[i] : "";
        if (!word.empty() && word[0] == '+') {
            if (!text.empty())
                text += ";";
            text += word.substr(1);
        } else if (!text.empty()) {
            text += " " + word;
        }
    }
    commandLineText = text;
}

void Game::pumpEvents()
{
    if (terminateSignalled)
        quitRequested = true;
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        switch (event.type) {
        case SDL_KEYDOWN:
            inputManager.setModifiers(event.key.keysym.mod);
            inputManager.keyEvent(true, event.key.keysym.sym, event.key.keysym.unicode);
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
            break;
        }
    }
}

void Game::runFrame()
{
    renderer->enter2D();
    renderer->leave2D();
    endFrame();

    if (paused) {
        if (saveRequested)
            saveGame();
        renderer->beginFrame();
        if (levelLoaded && worldRunning)
            drawWorld();
        return;
    }

    if (saveRequested) {
        saveGame();
        tickTimer();
        return;
    }
    tickTimer();
    renderer->beginFrame();
    if (levelLoaded && worldRunning) {
        if (levelPending) {
            loadLevel(pendingLevel, pendingLevelEntry);
            return;
        }
        if (loadPending) {
            loadGame(pendingSaveName);
            loadPending = false;
            return;
        }
        updateWorld();
        drawWorld();
    }
}

void Game::endFrame()
{
    if (captureRequested)
        captureRequested = false;
    renderer->swapBuffers();
    frameCount += 1;
}

void Game::updateWorld()
{
    const float dt = std::min(timer.frameTime(), maxFrameSeconds);
    simulationAccumulator += dt;
    particleAccumulator += dt;

    while (simulationAccumulator >= stepSeconds) {
        applyGravity(stepSeconds);
        collideBodies(stepSeconds);
        moveBodies(stepSeconds);
        ++stepCount;
        simulationAccumulator -= stepSeconds;
    }
    while (particleAccumulator >= particleStepSeconds)
        particleAccumulator -= particleStepSeconds;
}

void Game::moveBodies(float) {}
void Game::applyGravity(float) {}
void Game::collideBodies(float) {}
void Game::collideBody(Body*, float) {}
void Game::drawBodies() {}
void Game::drawWorld()
{
    updateCamera(timer.frameTime());
    drawScene(false);
}
void Game::drawScene(bool) { drawBodies(); }

void Game::loadLevel(const std::string& name, const std::string&)
{
    currentLevel = name;
    worldRunning = true;
    levelLoaded = true;
    levelPending = false;
    pendingLevel.clear();
    pendingLevelEntry.clear();
    inputManager.setTarget("game");
}

void Game::requestLevel(const std::string& name, const std::string& entry)
{
    levelPending = true;
    pendingLevel = name;
    pendingLevelEntry = entry;
    startFade();
}

void Game::unloadLevel()
{
    clearLevel();
    bodies.clear();
    activeBodies.clear();
    bodyIterNext = activeBodies.end();
    worldRunning = false;
    levelLoaded = false;
    nextBodyId = 2;
}

void Game::restartVideo(int width, int height, bool fullscreen)
{
    renderer->setVideoMode(width, height, fullscreen);
}

void Game::addBody(Body* body, bool assignId)
{
    bodies.push_back(body);
    if (assignId)
        ++nextBodyId;
}

void Game::addActiveBody(Body* body) { activeBodies.push_back(body); }

void Game::removeBody(Body* body)
{
    auto it = std::find(bodies.begin(), bodies.end(), body);
    if (it != bodies.end())
        bodies.erase(it);
}

void Game::removeActiveBody(Body* body)
{
    auto it = std::find(activeBodies.begin(), activeBodies.end(), body);
    if (it != activeBodies.end())
        bodyIterNext = activeBodies.erase(it);
}

void Game::spawnBody(Body* body)
{
    addBody(body, true);
    addActiveBody(body);
}

void Game::markForRemoval(Body*) {}

void Game::destroyBody(Body* body)
{
    removeActiveBody(body);
    removeBody(body);
    collisionCandidates.remove(body);
    visibleBodies.remove(body);
}

void Game::clearLevel() {}

void Game::tickTimer() { timer.tick(); }

void Game::updateCamera(float) {}
void Game::updateAim() {}
void Game::saveGame() { saveRequested = false; }
void Game::loadGame(const std::string&) {}

void Game::requestLoad(const std::string& name)
{
    loadPending = true;
    pendingSaveName = name;
    startFade();
}

void Game::clearOverlay() {}
void Game::startFade() {}

void Game::pause()
{
    paused = true;
    timer.pause();
    sound->play("data/sounds/events/Off3.wav", 0, 100);
}

void Game::unpause()
{
    paused = false;
    timer.resume();
    sound->play("data/sounds/events/On3.wav", 0, 100);
}

void Game::shutdown()
{
    clearLevel();
    bodies.clear();
    activeBodies.clear();
    bodyIterNext = activeBodies.end();
    if (renderer)
        renderer->shutdown();
}

void Game::quit()
{
    SDL_WM_GrabInput(SDL_GRAB_OFF);
    const float elapsed = static_cast<float>(Clock::ticks() - startTicks) / 1000.0f;
    SDL_CloseAudio();
    SDL_Quit();
    const float fps = elapsed > 0.0f ? static_cast<float>(frameCount) / elapsed : 0.0f;
    std::printf("AVG FPS:%f\n", fps);
    setQuit(true);
}
