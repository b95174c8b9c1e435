#pragma once
// A scene that runs its own small loop before (or instead of) the main loop:
// it polls events, keeps time and swaps buffers itself. A skippable scene
// ends on any key or mouse button once it has run for a moment; closing the
// window ends it and the game with it. Input never reaches the input manager.
#include <SDL.h>

#include <string>

#include "core/BasicTimer.h"

class Game;

class Cinematic {
public:
    // Input earlier than this does not skip the scene (a key still held from start-up).
    static constexpr float skipDelaySeconds = 0.3f;

    virtual ~Cinematic() = default;

    // Reacts to one event: skips the scene or quits the game.
    void handleEvent(const SDL_Event& event, Game& game);

    std::string title;
    bool running = false;
    // Seconds since the scene started.
    float elapsed = 0.0f;
    // Restarted every second.
    BasicTimer sceneTimer;
    bool skippable = true;

protected:
    // Ticks the game timer and the scene timer, clears the screen, handles pending events.
    void beginFrame(Game& game);
    // Records a movie frame when recording, swaps the buffers and counts the frame.
    void endFrame(Game& game);
    // The next pending event; false when there is none. Tests feed their own events.
    virtual bool pollEvent(SDL_Event& event) { return SDL_PollEvent(&event) != 0; }
};
