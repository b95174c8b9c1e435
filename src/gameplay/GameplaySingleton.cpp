#include "gameplay/GameplaySingleton.h"

namespace {
std::unique_ptr<GameplaySingleton> instancePtr;
}

GameplaySingleton::GameplaySingleton()
{
    levelTimer.ticksPerSecond = 0.0f;
    levelTimer.running = true;
}

GameplaySingleton& GameplaySingleton::get()
{
    if (!instancePtr)
        instancePtr = std::make_unique<GameplaySingleton>();
    return *instancePtr;
}

void GameplaySingleton::destroy() { instancePtr.reset(); }

float levelTime() { return GameplaySingleton::get().levelTime(); }
