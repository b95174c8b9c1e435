#include "core/BasicTimer.h"

#include "core/Clock.h"

float BasicTimer::now() { return Clock::ticksToFloat(Clock::ticks()); }

void BasicTimer::start()
{
    ticksPerSecond = 1000.0f;
    running = true;
    startTime = currentTime = previousTime = now();
}

void BasicTimer::tick()
{
    previousTime = currentTime;
    currentTime = now();
}

void BasicTimer::pause()
{
    pauseTime = currentTime;
    paused = true;
}

void BasicTimer::resume()
{
    const float elapsedBefore = pauseTime - startTime;
    const float t = now();
    startTime = t - elapsedBefore;
    currentTime = t;
    previousTime = t - (pauseTime - previousTime);
    paused = false;
}
