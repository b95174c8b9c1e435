// The Game's start-up and shutdown: construction, init, start-up scripts, the command line, quitting.
#include "core/Game.h"

#include <SDL.h>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <utility>

#include "console/CommandRegistry.h"
#include "console/Console.h"
#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "core/DemoManager.h"
#include "core/GameCommands.h"
#include "gameplay/IGameplay.h"
#include "gui/GUIManager.h"
#include "input/GameInput.h"
#include "particles/ParticleManager.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "render/ImageFontRenderer.h"
#include "render/Renderer.h"
#include "render/SkyManager.h"
#include "resources/ResourceManager.h"
#include "sound/ISound.h"
#include "sound/Music.h"
#include "sound/NullSound.h"
#include "sound/Sound.h"
#include "world/body/Body.h"
#include "world/level/BodyFactory.h"
#include "world/level/GameBodyFactory.h"

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
      music(std::make_unique<Music>()),
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
    loadTiming.initStarted(Clock::profileSeconds(), LoadTiming::processAgeSeconds());
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
    loadTiming.initFinished(Clock::profileSeconds());
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

void Game::dumpTextures(std::ostream& out) const
{
    if (renderer)
        renderer->dumpTextureCache(out);
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
    // Before userconfig.txt, so a key the player frees there stays free.
    if (GameVar* seen = findVar("bindsversion"); seen && gameInput)
        seen->setInt(gameInput->addNewerDefaults(seen->intValue));
    if (std::ifstream("data/userconfig.txt")) {
        registry.execute("exec userconfig.txt");
        registry.execute("exec userconfig.txt");
    }
    if (std::ifstream("data/autoexec.txt"))
        registry.execute("exec autoexec.txt");
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
