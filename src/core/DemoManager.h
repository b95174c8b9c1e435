#pragma once
// Records, replays and times demos. A recording starts the named level
// afresh (new player, seeded random numbers) and from then on notes, per
// world step, the commands that reach the game and the player's aim, with
// a world hash every `hashInterval` steps. Playback starts the same way and
// feeds the commands back at the same steps, so frame timing plays no part;
// it compares the hashes and stops at the first that differs. The timed
// playback runs every step as fast as the machine allows, optionally
// drawing each one, and prints where the time went. One instance, owned by
// the Game, which calls the step hooks around every world step.
#include <string>
#include <utility>
#include <vector>

#include "core/Demo.h"
#include "core/WorldHash.h"
#include "world/geometry/Vector.h"

class Game;
class GameVar;
class Player;

class DemoManager {
public:
    enum class Outcome { none, recorded, matched, diverged, failed, stopped, rehashed };

    explicit DemoManager(Game& game);
    ~DemoManager();
    DemoManager(const DemoManager&) = delete;
    DemoManager& operator=(const DemoManager&) = delete;

    // recorddemo, stopdemo, playdemo, timedemo and rehashdemo.
    void registerCommands();

    // Starts the level (the current one when `level` is empty) afresh and into demos/<name>.dem until stop().
    // records into demos/<name>.dem until stop() or the level is completed.
    // With `carried` the player starts with that state instead of a new one.
    bool record(const std::string& name, const std::string& level, const std::string& entry,
                const Demo::PlayerState* carried = nullptr);
    // Replays in real time through the frame loop.
    bool play(const std::string& name);
    // Replays start to end now, as fast as possible, and prints the step
    // times. With `rehash` the hashes are taken anew and the file rewritten
    // (after a deliberate change to the simulation).
    bool runTimed(const std::string& name, bool draw, bool rehash);
    // Ends a recording (writing its file) or a playback.
    void stop();

    // Around every world step, called by the Game.
    void beforeStep();
    void afterStep();
    // Command text from a bound key or button, before it runs.
    void noteCommand(const std::string& text);
    // The game let go of every held control (console or menu opened).
    void noteRelease();
    // The player reached the level's exit: a recording ends after this step,
    // a playback says how long the level took.
    void noteLevelCompleted();

    // What the player carries, read from and given to a live player.
    static Demo::PlayerState playerState(const Player& player);
    static void givePlayerState(Player& player, const Demo::PlayerState& state);
    // Commands that change the run in the player's favour or skip part of it.
    static bool isCheat(const std::string& command);
    // The cheats seen in the current or last session, in the order they first ran.
    const std::vector<std::string>& cheats() const { return cheatsSeen; }
    // The completion line the last session ended with.
    const std::string& completion() const { return completionLine; }
    // Whether the current or last session reached the level's exit.
    bool levelCompleted() const { return completedStep > 0; }

    bool isRecording() const { return mode == Mode::recording; }
    bool isPlaying() const { return mode == Mode::playing || mode == Mode::rehashing; }
    Outcome outcome() const { return lastOutcome; }
    // The last line the demo printed about how it ended.
    const std::string& message() const { return lastMessage; }
    uint32_t currentStep() const { return step; }

    // The variables a demo carries because they change the simulation.
    static const std::vector<std::string>& simulationVars();
    // Those of them that are a cheat when not at their default, whenever set.
    static const std::vector<std::string>& cheatVars();
    // Whether `text` starts with one of the demo commands (never recorded).
    static bool isDemoCommand(const std::string& text);

private:
    enum class Mode { idle, recording, playing, rehashing };

    // A fresh player on a freshly loaded level, random numbers seeded.
    bool startSession();
    bool startPlayback(const std::string& name, Mode playMode);
    bool loadDemo(const std::string& path, std::string& error);
    void finish(Outcome result, const std::string& text);
    void restoreVars();
    void trace() const;
    void noteCheat(const std::string& what);
    void checkVariables();
    // The one line a session ends with: completed or not, and its cheats.
    void reportCompletion();
    std::string describeDivergence(const Demo::Checkpoint& expected, const WorldHash::Result& got) const;
    std::string bodyLabel(int id) const;

    Game& game;
    Mode mode = Mode::idle;
    Demo demo;
    std::string name;
    uint32_t step = 0;
    size_t nextEvent = 0;
    size_t nextAim = 0;
    size_t nextCheckpoint = 0;
    Vector aim;
    bool aimRecorded = false;
    std::vector<Demo::Event> pending;
    std::vector<Demo::Checkpoint> fresh;
    WorldHash::Result lastHash;
    std::vector<std::pair<std::string, std::string>> savedVars;
    Outcome lastOutcome = Outcome::none;
    std::string lastMessage;
    GameVar* traceVar = nullptr;
    std::vector<std::string> cheatsSeen;
    std::vector<std::pair<std::string, std::string>> startVars;
    uint32_t completedStep = 0;
    bool completionPending = false;
    bool completionReported = false;
    std::string completionLine;
};
