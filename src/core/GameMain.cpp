#include "core/GameMain.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>

#include "core/Clock.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "core/GameLogoScene.h"
#include "core/LevelTools.h"
#include "gui/GUIManager.h"
#include "menus/MainInterface.h"
#include "particles/ParticleRandom.h"
#include "render/IRenderer.h"
#include "resources/GameDirectories.h"
#include "resources/ResourceManager.h"

int gameMain(int argc, char** argv)
{
    // Level tools run instead of the game: no log file, window or audio.
    int toolStatus = 0;
    if (runLevelTool(argc, argv, toolStatus))
        return toolStatus;
    // The player's files go to the working directory: the game directory, or
    // the user directory for an installed game.
    const GameDirectories directories = GameDirectories::forThisProcess();
    directories.enter();
    // The resource manager comes first and opens data.zip; its report goes to
    // the terminal, not to the log.
    directories.addDataSearch(ResourceManager::instance());
    std::printf("game starting\n");
    std::fflush(stdout);
    if (!std::freopen("outputlog.txt", "w", stdout))
        std::fprintf(stderr, "could not open outputlog.txt\n");
    // Line buffering keeps the log readable when the process is killed.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    std::printf("%s\n", directories.describe().c_str());
    const auto seed = static_cast<unsigned>(std::time(nullptr));
    std::srand(seed);
    ParticleRandom::seed(seed);

    Game game;
    game.setCommandLine(argc, argv);
    if (!game.init())
        return 0;

    // The menus wait under the logo card and appear when it ends.
    GUIManager* gui = game.getGUIManager();
    gui->getRoot().addChild(std::make_unique<MainInterface>())->toggle();
    gui->setScreenSize(game.getRenderer()->getWidth(), game.getRenderer()->getHeight());

    game.setStartTicks(Clock::ticks());
    {
        GameLogoScene logo;
        // Scripted runs (tests, demos) can skip the card with "set skiplogo 1".
        const GameVar* skip = findVar("skiplogo");
        if (!game.isQuitting() && !(skip && skip->intValue > 0))
            logo.run();
    }
    while (!game.isQuitting()) {
        game.pumpEvents();
        if (!game.isQuitting())
            game.runFrame();
    }
    game.shutdown();
    game.quit();
    std::fflush(stdout);
    return 0;
}
