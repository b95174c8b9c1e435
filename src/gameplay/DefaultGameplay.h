#pragma once
// The game's gameplay controller: creates bodies through the game's body
// factory, runs every body's per-step update and timed think on the level
// clock, places the player at a spawn point when a level starts, caps the
// number of gibs, saves its clocks, registers the gameplay debug commands and
// runs the race mini-game (start, checkpoints, finish, reset) on the race clock.
#include <memory>
#include <string>
#include <vector>

#include "core/BasicTimer.h"
#include "gameplay/IGameplay.h"
#include "render/GameHUD.h"

class GameBodyFactory;
class GameVar;
class Player;

class DefaultGameplay : public IGameplay {
public:
    DefaultGameplay();
    ~DefaultGameplay() override;

    bool init(GameResourceBundle& resources) override;
    bool shutdown() override;
    Body* createBody(const std::string& typeName) override;
    BodyFactory* getBodyFactory() override;
    void preStep() override {}
    void update(float stepTime) override;
    void postStep() override {}
    void startLevel(const std::string& spawnPointId) override;
    void endLevel() override;
    void drawOverlay(IRenderer* renderer) override;
    void drawHud(IRenderer* renderer, float frameTime) override;
    Body* nearestSpawnPoint(Body* body) override;
    Body* startSpawnPoint() override;
    GameInput* createInput() override;
    void setScreenSize(int width, int height) override;
    int getScreenWidth() const { return screenWidth; }
    int getScreenHeight() const { return screenHeight; }
    void save(TiXmlElement* element) override;
    void load(TiXmlElement* element) override;
    void levelRestored() override {}
    void tickClock() override;
    void pause() override;
    void resume() override;

    // The first spawn point whose id is `id`, or null.
    virtual Body* findSpawnPoint(const std::string& id);
    // Cuts `count` so that no more than "maxgibs" gibs are ever granted, then
    // counts it as granted. The caller creates only `count` gibs.
    virtual void allocateGibs(int& count);
    // A gib left the world: one more may be granted.
    virtual void gibRemoved();

    // The race mini-game, driven by the race bodies.
    void startRace();
    void checkpointReached();
    void finishRace();
    void resetRace();
    bool isRaceActive() const { return raceActive; }
    // Race-clock milliseconds since the race started (frozen once finished).
    float raceTime() const { return raceTimer.currentTime - raceTimer.startTime; }
    const BasicTimer& getRaceTimer() const { return raceTimer; }

    GameHUD& getHud() { return hud; }
    Player* getPlayer() const { return player; }
    const std::vector<Body*>& getSpawnPoints() const { return spawnPoints; }
    int getGibCount() const { return gibCount; }
    // How far below the level's lowest geometry a falling player dies.
    static constexpr float fallDepth = 1000.0f;

    // Clock text form: "start,current,previous,ticksPerSecond,paused".
    static std::string clockToText(const BasicTimer& clock);
    // Reads the text form back, elapsed times and all. False, clock
    // untouched, when the text is not a clock.
    static bool clockFromText(BasicTimer& clock, const std::string& text);
    // The level and race clocks count simulated milliseconds, a whole step
    // at a time, never the wall clock: a step's thinks must see the same
    // times whatever the frame rate, or a replayed game would drift.
    // Starts the clock at zero: 1000 ticks per second, running, not paused.
    static void restartClock(BasicTimer& clock);
    // One step of `ms` milliseconds, unless the clock is paused.
    static void advanceClock(BasicTimer& clock, float ms);
    // Lets a paused clock count again from where it stopped.
    static void resumeClock(BasicTimer& clock);

private:
    void registerCommands();
    void warpTo();
    void warpNearest();
    void firePlayer();
    void firePlayerAtMouse();
    void getMousePos();
    void killVelocity();
    void playerInfo();

    std::unique_ptr<GameBodyFactory> bodyFactory;
    std::vector<Body*> spawnPoints;
    Player* player = nullptr;
    GameHUD hud;
    int screenWidth = 640;
    int screenHeight = 480;
    GameVar* drawTimerVar = nullptr;
    GameVar* maxGibsVar = nullptr;
    bool loadedFromSave = false;
    bool raceActive = false;
    BasicTimer raceTimer;
    int gibCount = 0;
    // Below this y the player has left the level for good and dies.
    float fallLimit = 0.0f;
    bool hasFallLimit = false;
};
