#include "core/Game.h"

#include <SDL.h>
#include <tinyxml.h>

#include <algorithm>
#include <limits>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <utility>

#include "console/CommandRegistry.h"
#include "console/Console.h"
#include "console/ConsolePrint.h"
#include "core/GameCommands.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "core/DemoManager.h"
#include "core/StepProfile.h"
#include "core/GameResourceBundle.h"
#include "gameplay/DefaultGameplay.h"
#include "gameplay/IGameplay.h"
#include "gameplay/player/Player.h"
#include "gui/GUIManager.h"
#include "menus/CutSceneFrame.h"
#include "input/GameInput.h"
#include "particles/ParticleManager.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "render/ImageFontRenderer.h"
#include "resources/ResourceManager.h"
#include "render/Renderer.h"
#include "render/SimpleFadeOverlay.h"
#include "render/SkyManager.h"
#include "sound/ISound.h"
#include "sound/NullSound.h"
#include "sound/Sound.h"
#include "world/body/Body.h"
#include "world/level/BodyFactory.h"
#include "world/level/GameBodyFactory.h"
#include "world/level/LevelLoader.h"

namespace {
Game* currentGame = nullptr;
volatile std::sig_atomic_t terminateSignalled = 0;

void onTerminateSignal(int) { terminateSignalled = 1; }
}

Game::Game() : Game(std::make_unique<Renderer>(), std::make_unique<Sound>())
{
    renderer->setFontRenderer(new ImageFontRenderer());
}

Game::Game(std::unique_ptr<IRenderer> r, std::unique_ptr<ISound> s)
    : sound(std::move(s)),
      renderer(std::move(r)),
      guiManager(std::make_unique<GUIManager>()),
      skyManager(std::make_unique<SkyManager>()),
      console(std::make_unique<Console>()),
      particleManager(std::make_unique<ParticleManager>()),
      demos(std::make_unique<DemoManager>(*this))
{
    guiManager->setVisible(true);
    particleManager->setRenderer(renderer.get());
    particleManager->init();
    inputManager.setGUI(guiManager.get());
    inputManager.setConsole(console.get());
    inputManager.setCurrentTarget("gui");
    console->setLineListener([this](const std::string& line) {
        if (demos)
            demos->noteCommand(line);
    });
    timer.running = true;
    timer.paused = false;
    bodyIterNext = activeBodies.end();
    currentGame = this;
}

Game::~Game()
{
    releaseGameplay();
    clearLevel();
    if (currentGame == this)
        currentGame = nullptr;
}

Game* Game::current() { return currentGame; }

bool Game::terminateRequested() { return terminateSignalled != 0; }

bool Game::init()
{
    std::printf("======== GAME INIT ========\n");
    starting = true;
    std::signal(SIGTERM, onTerminateSignal);
    std::signal(SIGINT, onTerminateSignal);

    CommandRegistry::instance().registerCommands();
    VariableRegistry::instance().registerCommands();
    const bool variablesLoaded = VariableRegistry::instance().loadVariables("data/gamevars.xml");
    const bool keysLoaded = inputManager.loadKeyNames("data/keymaps.xml");
    definitionsLoaded = variablesLoaded && keysLoaded;
    inputManager.setGUI(guiManager.get());
    inputManager.setConsole(console.get());
    inputManager.setCurrentTarget("gui");

    if (!renderer->initialise()) {
        SDL_Quit();
        return false;
    }
    // Key events carry the typed character for the console and text boxes.
    SDL_EnableUNICODE(1);
    inputManager.openJoysticks();
    startGameplay();
    registerCommands();
    if (!setInitialVideoMode()) {
        SDL_Quit();
        return false;
    }
    console->init();
    // The controller was made before the window had its size.
    announceScreenSize();
    if (!definitionsLoaded)
        reportDamagedData();
    sound->initialise();
    sound->loadDefinitions("data/sounds/sounds.xml");
    timer.start();
    particleManager->loadDefinitions("data/particles/particles.xml");
    skyManager->setParticleManager(particleManager.get());
    if (FontRenderer* fonts = renderer->getFontRenderer()) {
        fonts->setRenderer(renderer.get());
        if (!fonts->init()) {
            std::printf("Error Initialising font renderer\n");
            return false;
        }
    }
    const GameVar* recordTimes = findVar("recordleveltimes");
    if (recordTimes && recordTimes->intValue > 0) {
        std::ofstream times("leveltimes.txt", std::ios::app);
        times << "\n\n===============================\n New Run \n===============================\n";
    }
    if (GameVar* movie = findVar("movierecord"))
        movie->setInt(0);
    starting = false;
    if (startupLevel) {
        const auto [name, entry] = *startupLevel;
        startupLevel.reset();
        loadLevel(name, entry);
    }
    if (startupSave)
        loadGame(*std::exchange(startupSave, std::nullopt));
    runCommandLine(false);
    return true;
}

void Game::reportDamagedData()
{
    const std::string message = "The game data is damaged or missing (data/gamevars.xml or data/keymaps.xml "
                                "could not be read); reinstall the game. Settings will not be saved.";
    std::printf("%s\n", message.c_str());
    std::fprintf(stderr, "Brindlequay: %s\n", message.c_str());
    // Without data there may be no font to draw with: the window title says it too.
    SDL_WM_SetCaption("Brindlequay - game data damaged or missing", nullptr);
    conPrintColoured(message, RGBAColour(225, 0, 0, 255));
    console->setVisible(true);
    inputManager.setTarget("console");
}

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

bool Game::registerCommands()
{
    GameCommands::registerAll(*this);
    demos->registerCommands();
    GameVar** handles[] = {&chasecam, &gravity, &frustumcull, &frustumcull2, &collideoutsidefrustum,
                           &drawgrid, &drawboundingspheres, &drawboundingboxes, &drawsky, &drawbloom,
                           &drawparticles, &bodyinfo, &partcileinfo, &drawspeed, &debuginfo, &movierecord};
    const char* names[] = {"chasecam", "gravity", "frustumcull", "frustumcull2", "collideoutsidefrustum",
                           "drawgrid", "drawboundingspheres", "drawboundingboxes", "drawsky", "drawbloom",
                           "drawparticles", "bodyinfo", "partcileinfo", "drawspeed", "debuginfo", "movierecord"};
    for (size_t i = 0; i < sizeof(names) / sizeof(names[0]); ++i)
        *handles[i] = getVar(names[i]);
    runStartupScripts();
    runCommandLine(true);
    return true;
}

BodyFactory* Game::getBodyFactory()
{
    if (!bodyFactory) {
        gameBodyFactory = std::make_unique<GameBodyFactory>();
        gameBodyFactory->registerPrototypes();
        bodyFactory = std::make_unique<BodyFactory>();
        bodyFactory->registerPrototypes();
        bodyFactory->setFallbackFactory(gameBodyFactory.get());
    }
    return bodyFactory.get();
}

void Game::writeConfig(const std::string& fileName, bool automatic)
{
    std::ofstream out(fileName, std::ios::out | std::ios::trunc);
    if (!out)
        return;
    if (automatic || fileName == "data/config.txt") {
        out << "//Brindlequay Config file generated automatically by Brindlequay, do not modify\n"
            << "//This file is overwritten everytime Brindlequay exits\n"
            << "//Edit data/userconfig.txt if you want to set your own values\n";
    } else {
        out << "//Brindlequay Config file generated by the user command 'writeconfig'\n"
            << "//Contains the config of Brindlequay when the writeconfig command was executed\n";
    }
    out << "\n";
    if (gameInput)
        gameInput->writeBindings(out);
    else
        out << "\n//key bindings\n\n\n";
    VariableRegistry::instance().writeVariables(out);
}

void Game::toggleNoclip()
{
    noclip = !noclip;
    conPrint(noclip ? "Noclip on" : "Noclip off");
    if (player)
        player->gravitymultiplier = noclip ? 0.0f : 1.0f;
}

void Game::dumpTextures(std::ostream& out) const
{
    if (renderer)
        renderer->dumpTextureCache(out);
}

void Game::loadSky(const std::string& path)
{
    skyFile = path;
    if (skyManager->loadSky(path))
        skyManager->switchSky(path);
}

void Game::runStartupScripts()
{
    CommandRegistry& registry = CommandRegistry::instance();
    // Until the game has written the player's own config.txt, the shipped
    // default controls stand in for it; so they do for a config.txt that
    // names no key at all, as a start on unreadable data once wrote (one
    // written by the game opens its keys with "unbindall", so a player who
    // unbound everything keeps that).
    // The player's own scripts are written by the game or by hand, never
    // shipped: one that does not exist yet is no failure to report.
    std::ifstream config("data/config.txt");
    bool namesKeys = false;
    for (std::string line; !namesKeys && std::getline(config, line);)
        namesKeys = line.rfind("bind ", 0) == 0 || line == "unbindall";
    if (!namesKeys)
        registry.execute("exec default.cfg");
    if (config.is_open())
        registry.execute("exec config.txt");
    if (std::ifstream("data/userconfig.txt")) {
        registry.execute("exec userconfig.txt");
        registry.execute("exec userconfig.txt");
    }
    if (std::ifstream("data/autoexec.txt"))
        registry.execute("exec autoexec.txt");
}

void Game::setGameplay(std::unique_ptr<IGameplay> controller)
{
    if (controller.get() == gameplay.get())
        return;
    if (gameplay)
        releaseGameplay();
    gameplay = std::move(controller);
    if (!gameplay)
        return;
    GameResourceBundle bundle;
    bundle.game = this;
    bundle.sound = sound.get();
    bundle.renderer = renderer.get();
    bundle.inputManager = &inputManager;
    bundle.guiManager = guiManager.get();
    bundle.console = console.get();
    bundle.timer = &timer;
    bundle.quadTree = &quadTree;
    gameplay->setScreenSize(renderer->getWidth(), renderer->getHeight());
    gameplay->init(bundle);
}

bool Game::releaseGameplay()
{
    if (!gameplay)
        return true;
    const bool result = gameplay->shutdown();
    gameplay.reset();
    return result;
}

void Game::startGameplay()
{
    setGameplay(std::make_unique<DefaultGameplay>());
    installGameInput(std::unique_ptr<GameInput>(gameplay->createInput()));
    // Level files name the game's body types through the controller's factory.
    getBodyFactory()->setFallbackFactory(gameplay->getBodyFactory());

    createPlayer();
}

void Game::createPlayer()
{
    persistentPlayer.reset(gameplay ? gameplay->createBody("player") : nullptr);
    player = persistentPlayer.get();
    if (player) {
        player->autoid = 1;
        player->makeRectangle(16.0f, 16.0f);
        player->setMass(100.0f);
        player->updateBounds();
    }
}

void Game::resetPlayer()
{
    // The level's bodies may point at the old player: they go first.
    if (levelLoaded || !bodies.empty())
        unloadLevel();
    bodies.remove(persistentPlayer.get());
    activeBodies.remove(persistentPlayer.get());
    bodyIterNext = activeBodies.end();
    createPlayer();
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
    commandLineCommands.clear();
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i] ? argv[i] : "";
        if (word.size() > 1 && word[0] == '+') {
            commandLineCommands.push_back(word.substr(1));
        } else if (!commandLineCommands.empty() && !word.empty() && word != "+") {
            commandLineCommands.back() += " " + word;
        } else {
            std::printf("Ignoring command-line argument '%s': console commands start with '+', "
                        "e.g. +map test\n",
                        word.c_str());
        }
    }
}

void Game::runCommandLine(bool settingsOnly)
{
    // One at a time, so "+bind p pause" cannot swallow the commands after it.
    // "+set" runs before the video mode is set so it can choose the mode.
    for (const std::string& command : commandLineCommands) {
        const bool isSet = command.compare(0, 4, "set ") == 0 || command == "set";
        if (isSet == settingsOnly)
            CommandRegistry::instance().execute(command);
    }
}

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
    if (terminateSignalled)
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
    // Outside the world update (menus, pause) the channel counts that cap
    // new sounds must still follow what is playing.
    if (paused || !levelLoaded || !worldRunning)
        sound->update(player ? player->pos : Vector());

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
        updateWorld();
        drawWorld();
        // Counted once the world has stepped: the HUD is filled in by then.
        if (stepCount > levelStartStep)
            ++levelFramesDrawn;
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

void Game::refreshVisibleBodies()
{
    if (!frustumcull || frustumcull->intValue == 0)
        return;
    visibleBodies.clear();
    quadTree.resetCounters();
    quadTree.collectVisible(*renderer, visibleBodies, true, frustumcull2 && frustumcull2->intValue != 0);
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
    for (size_t i = 0; i < collisionCandidates.size(); ++i) {
        Body* other = collisionCandidates[i];
        if (noclip && (body == player || other == player))
            continue;
        collision.collide(*body, *other, step);
    }
}
void Game::drawBodies()
{
    // The renderer draws each body's extras right after the body itself.
    if (frustumcull && frustumcull->intValue != 0) {
        for (Body* body : visibleBodies)
            renderer->drawBody(*body);
    } else {
        for (Body* body : bodies)
            renderer->drawBody(*body);
    }
    if (player && std::find(bodies.begin(), bodies.end(), player) == bodies.end())
        renderer->drawBody(*player);
}

void Game::drawWorld()
{
    updateCamera(timer.frameTime());
    if (player) {
        const bool chase = chasecam && chasecam->intValue == 1;
        const Vector& at = chase ? player->camera : player->renderpos;
        renderer->setCamera(at.x, at.y, showMap ? -1024.0f : -256.0f);
    }
    updateAim();
    const bool bloom = drawbloom && drawbloom->intValue == 1;
    if (bloom) {
        renderer->beginCapture();
        drawScene(true);
        renderer->endCapture();
    }
    drawScene(false);
    if (bloom)
        renderer->drawGlow();
    drawCrosshair();
    if (debuginfo && debuginfo->intValue > 0)
        drawDebugText();
}

void Game::drawCrosshair()
{
    const auto* p = dynamic_cast<const Player*>(player);
    if (!p || p->dead || inputManager.getCurrentTarget() != "game")
        return;
    // Projected while the world camera is still set, drawn over everything.
    const Vector at = renderer->worldToScreen(p->mouseWorldPos.x, p->mouseWorldPos.y, 0.0f);
    constexpr float gap = 4.0f;
    constexpr float arm = 10.0f;
    renderer->begin2D();
    renderer->setTexturing(false);
    renderer->drawLine(at.x - gap - arm, at.y, at.x - gap, at.y, 255, 255, 255, 255);
    renderer->drawLine(at.x + gap, at.y, at.x + gap + arm, at.y, 255, 255, 255, 255);
    renderer->drawLine(at.x, at.y - gap - arm, at.x, at.y - gap, 255, 255, 255, 255);
    renderer->drawLine(at.x, at.y + gap, at.x, at.y + gap + arm, 255, 255, 255, 255);
    renderer->setBlending(true);
    renderer->setTexturing(true);
    renderer->end2D();
}

void Game::drawScene(bool bloomPass)
{
    if (!bloomPass && drawsky && drawsky->intValue != 0 && !showMap)
        skyManager->draw(*renderer, renderer->getCamera(), timer.frameTime());
    drawBodies();
    if (drawparticles && drawparticles->intValue != 0)
        particleManager->draw();
    if (bloomPass)
        return;
    if (drawgrid && drawgrid->intValue > 0) {
        renderer->setTexturing(false);
        renderer->setBlending(false);
        quadTree.debugDraw(150.0f, [this](const Vector& from, const Vector& to, const RGBAColour& c) {
            renderer->drawLine(from.x, from.y, to.x, to.y, c.r, c.g, c.b, c.a);
        });
        renderer->setBlending(true);
    }
}

void Game::drawDebugText()
{
    FontRenderer* fonts = renderer->getFontRenderer();
    if (!fonts)
        return;
    renderer->begin2D();
    fonts->selectFont("vera", 14);
    if (bodyinfo && bodyinfo->intValue > 0) {
        renderer->setColour(255, 255, 255, 255);
        fonts->drawText(20, 140,
                        std::to_string(bodies.size()) + " TotalBodies : " +
                            std::to_string(quadTree.getTotalBodyCount()) + " in visible quads : " +
                            std::to_string(quadTree.getVisibleBodyCount()) + " in frustum");
    }
    if (partcileinfo && partcileinfo->intValue > 0) {
        renderer->setColour(255, 255, 255, 255);
        fonts->drawText(static_cast<float>(renderer->getWidth() - 140), 50,
                        std::to_string(particleManager->countParticles()) + " parts");
    }
    if (drawspeed && drawspeed->intValue > 0 && player) {
        renderer->setColour(255, 255, 255, 255);
        fonts->drawText(static_cast<float>(renderer->getWidth() - 128), 65,
                        std::to_string(static_cast<int>(player->vel.length2D())) + " UPS");
    }
    renderer->end2D();
}

void Game::loadLevel(const std::string& name, const std::string& entry)
{
    // A "map" in a start-up script runs before the effects, sounds and fonts
    // are loaded: the level waits until they are.
    if (starting) {
        startupLevel = {name, entry};
        return;
    }
    // A level that does not even parse leaves the running one alone.
    if (!canLoadLevel(name)) {
        const std::string path = LevelLoader::levelPath(name);
        std::printf("Could not load level file: %s\n", path.c_str());
        conPrint("Failed to load level: " + path);
        showNotice("Could not load the level " + name);
        // A level change asked for by the level itself is dropped, not
        // retried every frame behind a black screen.
        if (levelPending) {
            failedLevelRequest = name;
            levelPending = false;
            pendingLevel.clear();
            pendingLevelEntry.clear();
            clearOverlay();
        }
        return;
    }

    quadTree.setSplitAllowed(true);
    unloadLevel();
    // The renderer's resources and the font renderer are reset here once
    // those exist; unloadLevel has removed the particle systems.

    nextBodyId = 2;
    LevelLoader loader(*this, *getBodyFactory());
    if (!loader.loadLevelFile(name, quadTree)) {
        showNotice("Could not load the level " + name);
        levelPending = false;
        return;
    }

    enterLevel(name);
    checkpointLevel.clear();
    if (gameplay) {
        gameplay->startLevel(entry);
        // The spawn point moved the player: index it where it now stands.
        if (player)
            quadTree.update(player);
    }

    worldRunning = true;
    levelLoaded = true;
    levelPending = false;
    pendingLevel.clear();
    pendingLevelEntry.clear();
    // The menus (or a cut scene) give way to the level they asked for.
    if (guiManager)
        guiManager->setVisible(false);
    inputManager.setTarget("game");
    // Leaves do not split while the game runs.
    quadTree.setSplitAllowed(false);
    tickTimer();
}

bool Game::canLoadLevel(const std::string& name) const
{
    TiXmlDocument check;
    return ResourceManager::instance().loadDocument(check, LevelLoader::resourcePath(LevelLoader::levelPath(name))) &&
           check.RootElement();
}

void Game::enterLevel(const std::string& name)
{
    currentLevel = name;
    failedLevelRequest.clear();
    if (player) {
        player->autoid = 1;
        player->textureId = -1;
        player->updateBounds();
        quadTree.insert(player);
        addBody(player, false);
        addActiveBody(player);
    }
    // A level that names no sky still gets one rather than a black void.
    if (!skyManager->getCurrentSky())
        skyManager->loadSky(SkyManager::defaultSky);
    skyManager->loadSky("data/sky/hcsky1.xml");
    skyManager->loadSky("data/sky/hcsky2.xml");
}

void Game::requestLevel(const std::string& name, const std::string& entry)
{
    // A level change the player still stands in asks again every step:
    // the failure has been told once.
    if (name == failedLevelRequest)
        return;
    levelPending = true;
    pendingLevel = name;
    pendingLevelEntry = entry;
    startFade();
}

void Game::unloadLevel()
{
    levelFramesDrawn = 0;
    levelStartStep = stepCount;
    if (gameplay)
        gameplay->endLevel();
    if (player && player->quadTreeNode) {
        player->quadTreeNode->remove(player);
        player->quadTreeNode = nullptr;
    }
    clearLevel();
    bodies.clear();
    activeBodies.clear();
    bodyIterNext = activeBodies.end();
    quadTree.clear();
    particleManager->removeAllSystems();
    skyManager->clear();
    worldRunning = false;
    levelLoaded = false;
    nextBodyId = 2;
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

void Game::addBody(Body* body, bool assignId)
{
    bodies.push_back(body);
    if (assignId) {
        body->autoid = nextBodyId;
        if (nextBodyId < std::numeric_limits<int>::max())
            ++nextBodyId;
    }
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

void Game::updateAim()
{
    // The game cursor is virtual (moved by relative motion); aim where it
    // points in the world as the camera now sees it.
    auto* p = dynamic_cast<Player*>(player);
    // A demo being played holds the aim it recorded.
    if (!p || !gameInput || demos->isPlaying())
        return;
    Vector stick;
    if (gameInput->getAimStick(stick)) {
        p->mouseWorldPos = p->pos + stick * padAimDistance;
        p->mouseWorldPos.z = 0.0f;
        return;
    }
    p->mouseWorldPos = renderer->screenToWorld(gameInput->getMouseX(), gameInput->getMouseY());
}

bool Game::followChasePoint(const Vector& target, Vector& chase, float frameTime)
{
    const float dx = target.x - chase.x;
    const float dy = target.y - chase.y;
    const float d = std::sqrt(dx * dx + dy * dy);
    if (d < 2.0f)
        return true;
    const float ux = dx / d;
    const float uy = dy / d;
    if (d > 128.0f) {
        chase.x = target.x - 128.0f * ux;
        chase.y = target.y - 128.0f * uy;
        return false;
    }
    if (d > 2.0f) {
        chase.x += ux * d * frameTime;
        chase.y += uy * d * frameTime;
        return false;
    }
    return true;
}

void Game::updateCamera(float frameTime)
{
    if (player)
        cameraSettled = followChasePoint(player->pos, player->camera, frameTime);
}
void Game::requestCheckpointSave()
{
    checkpointSavePending = true;
    saveRequested = true;
}

void Game::restartAfterDeath()
{
    if (!hasCheckpoint()) {
        requestLevel(currentLevel, "");
        return;
    }
    // Set again once the save has loaded: one that no longer loads leaves
    // the next attempt to restart the level.
    checkpointLevel.clear();
    checkpointLoadPending = true;
    loadPending = true;
    startFade();
}

void Game::requestLoad(const std::string& name)
{
    loadPending = true;
    pendingSaveName = name;
    startFade();
}

void Game::showCutscene(const std::string& name)
{
    auto* frame = dynamic_cast<CutSceneFrame*>(guiManager->findComponent(CutSceneFrame::componentName));
    if (!frame)
        return;
    guiManager->setVisible(true);
    inputManager.setTarget("gui");
    worldRunning = false;
    console->setVisible(false);
    frame->play(name);
}

void Game::clearOverlay() { overlay.reset(); }
void Game::startFade() { overlay = std::make_unique<SimpleFadeOverlay>(1.0f); }

void Game::pause()
{
    paused = true;
    timer.pause();
    if (gameplay)
        gameplay->pause();
    sound->play("data/sounds/events/Off3.wav", 0, 100);
}

void Game::unpause()
{
    paused = false;
    timer.resume();
    if (gameplay)
        gameplay->resume();
    sound->play("data/sounds/events/On3.wav", 0, 100);
}

void Game::shutdown()
{
    // A recording still running is written, not lost.
    demos->stop();
    releaseGameplay();
    // A config.txt without bindings would hide default.cfg from every later start.
    if (definitionsLoaded)
        writeConfig("data/config.txt", true);
    else
        std::printf("Not writing data/config.txt: the game data did not load\n");
    clearLevel();
    bodies.clear();
    activeBodies.clear();
    bodyIterNext = activeBodies.end();
    particleManager->clear();
    sound->closeAudio();
    // Bodies and menus torn down later may still ask for sounds.
    sound = std::make_unique<NullSound>();
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
