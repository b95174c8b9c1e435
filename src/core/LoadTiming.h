#pragma once
// How long the player waits: from the process start to the first menu frame,
// and from a level change being asked for to the first frame that shows the
// new level stepped. Only bookkeeping: the Game passes in the times (seconds
// on one monotonic clock) and prints the lines this hands back.
#include <cstdint>
#include <optional>
#include <string>

class LoadTiming {
public:
    // processAge as from processAgeSeconds(), for the time before init.
    void initStarted(double now, double processAge = -1.0)
    {
        initStart = now;
        initStartAge = processAge;
    }
    void initFinished(double now) { initEnd = now; }
    bool startupPending() const { return !startupReported; }
    // The start-up line, the first time a frame is shown; processAge < 0
    // when the process start is unknown (timed from init instead).
    std::optional<std::string> frameShown(double now, double processAge, bool menu);

    // A later request before the level is shown keeps the first time: that
    // is when the player's wait began.
    void levelRequested(const std::string& name, double now, uint32_t frame);
    void levelLoaded(double now);
    // A level that did not load shows nothing to wait for.
    void levelFailed() { pending = false; }
    // The level-change line, once per change, when the stepped level is shown.
    std::optional<std::string> levelShown(double now, uint32_t frame);

    // Seconds since this process started, from /proc; -1 where that is unknown.
    static double processAgeSeconds();

private:
    bool startupReported = false;
    double initStart = -1.0;
    double initEnd = -1.0;
    double initStartAge = -1.0;
    bool pending = false;
    bool loaded = false;
    std::string level;
    double requestedAt = 0.0;
    double loadedAt = 0.0;
    uint32_t requestFrame = 0;
};
