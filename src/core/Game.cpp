#include "core/Game.h"

#include <SDL.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fstream>

#include "console/CommandRegistry.h"
#include "console/Console.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "gui/GUIManager.h"
#include "input/GameInput.h"
#include "render/IRenderer.h"
#include "render/ImageFontRenderer.h"
#include "resources/ResourceManager.h"
#include "render/Renderer.h"
#include "sound/ISound.h"
#include "sound/NullSound.h"
#include "world/body/Body.h"

namespace {
Game* currentGame = nullptr;
volatile std::sig_atomic_t terminateSignalled = 0;

void onTerminateSignal(int) { terminateSignalled = 1; }
}

Game::Game() : Game(std::make_unique<Renderer>(), std::make_unique<NullSound>())
{
    renderer->setFontRenderer(new ImageFontRenderer());
}

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
    clearLevel();
    if (currentGame == this)
        currentGame = nullptr;
}

Game* Game::current() { return currentGame; }

bool Game::init()
{
    std::printf("======== GAME INIT ========\n");
    std::signal(SIGTERM, onTerminateSignal);
    std::signal(SIGINT, onTerminateSignal);

    CommandRegistry::instance().registerCommands();
    VariableRegistry::instance().registerCommands();
    VariableRegistry::instance().loadVariables("data/gamevars.xml");
    inputManager.loadKeyNames("data/keymaps.xml");
    inputManager.setGUI(guiManager.get());
    inputManager.setConsole(console.get());
    inputManager.setCurrentTarget("gui");

    if (!renderer->initialise()) {
        SDL_Quit();
        return false;
    }
    // Key events carry the typed character for the console and text boxes.
    SDL_EnableUNICODE(1);
    installGameInput(std::make_unique<GameInput>());
    registerCommands();
    // "+set" on the command line wins over the scripts and still comes
    // before the video mode.
    commandLine.runSetCommands();
    if (!renderer->setVideoMode(640, 480, false)) {
        SDL_Quit();
        return false;
    }
    sound->initialise();
    timer.start();
    if (FontRenderer* fonts = renderer->getFontRenderer()) {
        fonts->setRenderer(renderer.get());
        if (!fonts->init()) {
            std::printf("Error Initialising font renderer\n");
            return false;
        }
    }
    commandLine.runOtherCommands();
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
    commandLine.parse(argc, argv);
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
    renderer->begin2D();
    console->draw();
    renderer->end2D();
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
    renderer->endFrame();
    frameCount += 1;
}

void Game::updateWorld()
{
    const float dt = std::min(timer.frameTime(), maxFrameSeconds);
    simulationAccumulator += dt;
    particleAccumulator += dt;

    while (simulationAccumulator >= stepSeconds) {
        applyGravity(stepSeconds);
        freezeVelocities();
        collideBodies(stepSeconds);
        moveBodies(stepSeconds);
        ++stepCount;
        simulationAccumulator -= stepSeconds;
    }
    while (particleAccumulator >= particleStepSeconds)
        particleAccumulator -= particleStepSeconds;
}

bool Game::isNearPlayer(const Body& body) const
{
    if (body.alwaysactive || !player)
        return true;
    return body.pos.distance2D(player->pos) < activityRadius;
}

void Game::moveBodies(float step)
{
    for (auto it = activeBodies.begin(); it != activeBodies.end(); it = bodyIterNext) {
        Body* body = *it;
        bodyIterNext = std::next(it);
        body->onGround = false;
        if (body->cancleanup) {
            // destroyBody leaves bodyIterNext just past the removed entry.
            destroyBody(body);
            if (body == player)
                player = nullptr;
            delete body;
            continue;
        }
        if (isNearPlayer(*body))
            Collision::integrate(*body, step);
        if (body->mass >= Body::minMass || body->nonmassmover) {
            body->transform();
            quadTree.update(body);
            body->inView = false;
        }
    }
    bodyIterNext = activeBodies.end();
}

bool Game::gravityValue(float& out) const
{
    if (hasGravityOverride) {
        out = gravityOverride;
        return true;
    }
    const GameVar* gravity = findVar("gravity");
    if (!gravity)
        return false;
    out = gravity->floatValue;
    return true;
}

void Game::applyGravity(float step)
{
    float gravity = 0.0f;
    if (!gravityValue(gravity))
        return;
    for (Body* body : activeBodies)
        Collision::applyGravity(*body, gravity, step);
}

void Game::freezeVelocities()
{
    for (Body* body : activeBodies)
        Collision::freezeVelocity(*body);
}

void Game::collideBodies(float step)
{
    for (Body* body : activeBodies)
        if (isNearPlayer(*body))
            collideBody(body, step);
}

void Game::collideBody(Body* body, float step)
{
    collisionCandidates.clear();
    quadTree.candidates(*body, collisionCandidates, step);
    // Touch hooks may spawn bodies, so walk by index over a stable snapshot.
    for (size_t i = 0; i < collisionCandidates.size(); ++i)
        collision.collide(*body, *collisionCandidates[i], step);
}
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
    if (player && player->quadTreeNode) {
        player->quadTreeNode->remove(player);
        player->quadTreeNode = nullptr;
    }
    clearLevel();
    bodies.clear();
    activeBodies.clear();
    bodyIterNext = activeBodies.end();
    quadTree.clear();
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
        body->autoid = nextBodyId++;
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
    body->transform();
    body->updateBounds();
    quadTree.insert(body);
}

void Game::markForRemoval(Body* body)
{
    if (body)
        body->cancleanup = true;
}

void Game::destroyBody(Body* body)
{
    if (body->quadTreeNode)
        body->quadTreeNode->remove(body);
    body->quadTreeNode = nullptr;
    removeActiveBody(body);
    removeBody(body);
    collisionCandidates.erase(std::remove(collisionCandidates.begin(), collisionCandidates.end(), body),
                              collisionCandidates.end());
    visibleBodies.erase(std::remove(visibleBodies.begin(), visibleBodies.end(), body), visibleBodies.end());
}

void Game::clearLevel()
{
    // The player persists across levels; every other body goes.
    std::list<Body*> doomed;
    doomed.swap(bodies);
    for (Body* body : activeBodies)
        if (std::find(doomed.begin(), doomed.end(), body) == doomed.end())
            doomed.push_back(body);
    activeBodies.clear();
    bodyIterNext = activeBodies.end();
    collisionCandidates.clear();
    visibleBodies.clear();
    for (Body* body : doomed) {
        if (body == player)
            bodies.push_back(body);
        else
            delete body;
    }
}

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
    renderer.reset();
    ResourceManager::instance().clearArchives();
    CommandRegistry::instance().clearCommands();
    VariableRegistry::instance().clearVariables();
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
