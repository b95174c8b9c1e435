// The Game's start-up and level-change times, printed when "showloadtimes" is set.
#include "core/Game.h"

#include <cstdio>

#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "gui/GUIManager.h"

void Game::noteFrameShown()
{
    const double now = Clock::profileSeconds();
    std::optional<std::string> lines[2];
    if (loadTiming.startupPending())
        lines[0] = loadTiming.frameShown(now, LoadTiming::processAgeSeconds(), guiManager && guiManager->isVisible());
    if (levelLoaded && levelFramesDrawn > 0)
        lines[1] = loadTiming.levelShown(now, frameCount);
    const GameVar* show = findVar("showloadtimes");
    if (!show || show->intValue <= 0)
        return;
    for (const auto& line : lines) {
        if (!line)
            continue;
        std::printf("%s\n", line->c_str());
        conPrint(*line);
    }
}
