#pragma once
// Millisecond timer used by the game loop, cinematics and timed objects.
// Pausing removes the paused span from the timer, so the first frame after
// a resume is as long as the last frame before the pause.

class BasicTimer {
public:
    float startTime = 0.0f;
    float currentTime = 0.0f;
    float previousTime = 0.0f;
    float ticksPerSecond = 1000.0f;
    bool running = true;
    float pauseTime = 0.0f;
    bool paused = false;

    virtual ~BasicTimer() = default;

    // Starts counting from now.
    void start();
    // previousTime := currentTime; currentTime := now.
    void tick();
    void pause();
    void resume();
    // Seconds between the last two ticks.
    float frameTime() const { return (currentTime - previousTime) / 1000.0f; }
    // Milliseconds since start.
    float elapsed() const { return currentTime - startTime; }

    static float now();
};
