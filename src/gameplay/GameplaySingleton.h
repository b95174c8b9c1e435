#pragma once
// Process-wide access for gameplay code: the services of the running game
// (with the current player), the level clock, the HUD and the controller.
// Every next-time field of a body is a value on the level clock. Created on
// first access; the controller's shutdown destroys it.
#include <memory>

#include "core/BasicTimer.h"
#include "core/GameResourceBundle.h"

class DefaultGameplay;
class GameHUD;

class GameplaySingleton {
public:
    GameplaySingleton();
    virtual ~GameplaySingleton() = default;
    GameplaySingleton(const GameplaySingleton&) = delete;
    GameplaySingleton& operator=(const GameplaySingleton&) = delete;

    // The instance, created zeroed on first call.
    static GameplaySingleton& get();
    // Forgets the instance; the next get() makes a fresh one.
    static void destroy();

    // Milliseconds since the level started: levelTimer.current - levelTimer.start.
    float levelTime() const { return levelTimer.currentTime - levelTimer.startTime; }

    GameResourceBundle resources;
    BasicTimer levelTimer;
    GameHUD* hud = nullptr;
    DefaultGameplay* gameplay = nullptr;
};

// Shorthand for GameplaySingleton::get().levelTime().
float levelTime();
