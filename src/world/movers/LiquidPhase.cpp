#include "world/movers/LiquidPhase.h"

#include "core/Game.h"
#include "gameplay/GameplaySingleton.h"

float LiquidPhase::advance(float now, float frameSeconds)
{
    if (phase < -19.0f)
        phase = now + frameSeconds;
    if (now != lastTime) {
        lastTime = now;
        phase += forwards ? frameSeconds : -frameSeconds;
    }
    return phase;
}

float LiquidPhase::advanceWithGame()
{
    Game* game = Game::current();
    return advance(levelTime(), game ? game->getTimer().frameTime() : 0.0f);
}
