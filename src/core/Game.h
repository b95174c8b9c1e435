#pragma once
// The one application object. It owns every manager (renderer, sound,
// console, input, gameplay, bodies, quadtree, sky...), runs the frame and the
// fixed-step world update, and carries out deferred level, load and save
// requests at the start of a later frame.
#include <cstdint>
#include <iosfwd>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/BasicTimer.h"
#include "core/LoadTiming.h"
#include "world/geometry/Vector.h"
#include "input/InputManager.h"
#include "world/physics/Collision.h"
#include "world/quadtree/QuadTree.h"

class Body;
class BodyFactory;
class Console;
class DemoManager;
class GameInput;
class GameVar;
class GUIManager;
class IGameplay;
class IRenderer;
class ISound;
class Music;
class SkyManager;
class SimpleFadeOverlay;
class TiXmlDocument;
class ParticleManager;
class StepProfile;

class Game {
public:
    static constexpr float stepSeconds = 0.025f;
    // How far from the player a pad's aim stick aims, in world units.
    static constexpr float padAimDistance = 256.0f;
    static constexpr float particleStepSeconds = 1.0f / 120.0f;
    static constexpr float maxFrameSeconds = 0.25f;
    static constexpr float activityRadius = 800.0f;

    // The game with its real window and sound device.
    Game();
    // Any renderer and sound: tests pass NullRenderer and NullSound.
    Game(std::unique_ptr<IRenderer> renderer, std::unique_ptr<ISound> sound);
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;
    virtual ~Game();

    // The process-wide game, or null before one is constructed.
    static Game* current();

    virtual bool init();
    virtual bool registerCommands();
    virtual void shutdown();
    virtual void quit();
    virtual void drawBodies();
    virtual void runFrame();
    virtual void endFrame();
    virtual void updateWorld();
    // One fixed world step: the demo's hooks, the controls, the thinks,
    // gravity and collisions, the move. The timed demo passes a profile to
    // charge each part's time to.
    void stepWorld(StepProfile* profile = nullptr);
    // The particle steps that `seconds` of play are owed.
    void stepParticles(float seconds);
    // One drawn frame of the timed demo: the world as it stands after a step.
    void drawStepFrame();
    // Carries out a pending level change or save-game load; true when one ran.
    bool runPendingRequests();
    virtual void moveBodies(float step);
    virtual void applyGravity(float step);
    virtual void collideBodies(float step);
    virtual void collideBody(Body* body, float step);
    // frozenvel := vel for every active body; runs between gravity and collisions.
    virtual void freezeVelocities();
    // The "gravity" variable's value; false while there is no such variable.
    virtual bool gravityValue(float& out) const;
    // Stands in for the "gravity" variable where no registry exists (tests, tools).
    void setGravityOverride(float g)
    {
        gravityOverride = g;
        hasGravityOverride = true;
    }
    void clearGravityOverride() { hasGravityOverride = false; }
    // Bodies far from the player (and not always active) are left alone.
    bool isNearPlayer(const Body& body) const;
    QuadTree& getQuadTree() { return quadTree; }
    virtual void drawWorld();
    virtual void drawScene(bool bloomPass);
    virtual void loadLevel(const std::string& name, const std::string& entry);
    virtual void requestLevel(const std::string& name, const std::string& entry);
    // Whether the level file exists and parses (loadLevel's own first check).
    bool canLoadLevel(const std::string& name) const;
    virtual void unloadLevel();
    // Stores the size in the video variables, then changeVideoMode.
    virtual void restartVideo(int width, int height, bool fullscreen);
    // Sets the mode without touching the variables, reloads the fonts, tells
    // everyone the new size and drops the bodies' cached texture ids.
    virtual void changeVideoMode(int width, int height, bool fullscreen);
    // Tells the console, the GUI and the gameplay controller the window size.
    void announceScreenSize();

    ISound* getSound() const { return sound.get(); }
    Music* getMusic() const { return music.get(); }
    // Asks for the track of what is on screen: menus, cut scene or level.
    void updateMusic();
    IRenderer* getRenderer() const { return renderer.get(); }
    Console* getConsole() const { return console.get(); }
    InputManager& getInputManager() { return inputManager; }
    GUIManager* getGUIManager() const { return guiManager.get(); }
    SkyManager* getSkyManager() const { return skyManager.get(); }
    GameInput* getGameInput() const { return gameInput.get(); }
    ParticleManager* getParticleManager() const { return particleManager.get(); }
    BasicTimer& getTimer() { return timer; }
    const BasicTimer& getTimer() const { return timer; }
    Body* getPlayer() const { return player; }
    void setPlayer(Body* p) { player = p; }

    virtual void addBody(Body* body, bool assignId);
    virtual void addActiveBody(Body* body);
    virtual void removeBody(Body* body);
    virtual void removeActiveBody(Body* body);
    virtual void spawnBody(Body* body);
    virtual void markForRemoval(Body* body);
    virtual void destroyBody(Body* body);
    virtual void clearLevel();
    virtual void tickTimer();
    virtual void updateCamera(float frameTime);
    virtual void updateAim();
    virtual void setQuit(bool q) { quitRequested = q; }
    virtual bool isQuitting() const { return quitRequested; }
    virtual void requestSave() { saveRequested = true; }
    // A save the player did not ask for (a new adventure's first): no
    // "Game saved" over the level's first message.
    void requestQuietSave()
    {
        requestSave();
        quietSavePending = true;
    }
    // A checkpoint's save: the player's save as usual, remembered as the
    // place to come back to after a death in this level.
    virtual void requestCheckpointSave();
    // Whether a checkpoint was saved in the running level.
    bool hasCheckpoint() const { return !checkpointLevel.empty() && checkpointLevel == currentLevel; }
    // After a death: back to the last checkpoint's save in this level, or
    // the level afresh.
    virtual void restartAfterDeath();
    bool isSaveRequested() const { return saveRequested; }
    // Writes saves/<pendingSaveName>.xml and its thumbnail (the name "temp"
    // when none is pending); each file is replaced whole or not at all.
    virtual void saveGame();
    // Rebuilds the world from saves/<name>.xml; a save that cannot be read
    // leaves the running game as it is.
    virtual void loadGame(const std::string& name);
    static constexpr int thumbnailWidth = 320;
    static constexpr int thumbnailHeight = 240;
    static std::string savePath(const std::string& name) { return "saves/" + name + ".xml"; }
    static std::string thumbnailPath(const std::string& name) { return "saves/" + name + ".png"; }
    // Letters, digits, spaces, "-", "_" and "." (not first), at most
    // maxSaveNameLength: a name never reaches outside saves/.
    static bool isSaveName(const std::string& name);
    static constexpr size_t maxSaveNameLength = 32;
    // A save name as typed after a command: the whole rest of the line, or
    // the text between the first pair of double quotes.
    static std::string saveNameFromArguments(const std::string& argumentLine);
    // Seconds of world steps in this run, kept in its saves; a new
    // adventure starts again from 0.
    double getPlaySeconds() const;
    void setPlaySeconds(double seconds);
    // A short message drawn over everything, menus included, for a few
    // seconds: failures the player should see, not only find in the log.
    void showNotice(const std::string& text);
    // The message on screen now, "" when none.
    std::string currentNotice() const;
    static constexpr uint32_t noticeMs = 4000;
    virtual void requestLoad(const std::string& name);
    // Plays the named cut scene in the GUI component "cutscene": the GUI
    // takes the input and the world stops until the scene ends.
    virtual void showCutscene(const std::string& name);
    // Plays the cut scene once the requested save is written (a new
    // adventure saves its first level before the opening story).
    void showCutsceneAfterSave(const std::string& name) { cutsceneAfterSave = name; }
    virtual void clearOverlay();
    virtual void startFade();
    virtual void pause();
    virtual void unpause();

    // Installs a gameplay controller (taking ownership): the old one is
    // released first, the new one gets the screen size and the game's services.
    virtual void setGameplay(std::unique_ptr<IGameplay> controller);
    // Shuts the controller down and deletes it; its result, or true without one.
    virtual bool releaseGameplay();
    IGameplay* getGameplay() const { return gameplay.get(); }
    // The controller's level timer and HUD over the picture, every frame.
    void drawGameplayOverlay();
    void writeLevelShot();
    // Start-up of play: the DefaultGameplay controller, its input target
    // "game", and the player (id 1, 16 x 16, mass 100). Part of init; headless
    // tests call it on their own.
    void startGameplay();

    // Stores the game's input target, lets it register its commands and makes
    // it the input manager's target "game".
    void installGameInput(std::unique_ptr<GameInput> input);
    // config.txt (or, before the game has written one, default.cfg), then
    // userconfig.txt twice, then autoexec.txt when it exists.
    void runStartupScripts();

    // Writes the key bindings and variables as a console script. The automatic
    // file (written at every exit) carries a banner telling players not to edit it.
    virtual void writeConfig(const std::string& fileName, bool automatic);
    // Player collisions and gravity off, or back on.
    virtual void toggleNoclip();
    void setNoclip(bool on)
    {
        if (on != noclip)
            toggleNoclip();
    }
    bool isNoclip() const { return noclip; }
    // A new player in place of the old one, as at start-up; the level it
    // stood in is unloaded first.
    void resetPlayer();
    DemoManager* getDemos() const { return demos.get(); }
    // SIGTERM or SIGINT arrived; long loops outside the frame check it.
    static bool terminateRequested();
    // The renderer's texture cache listing.
    void dumpTextures(std::ostream& out) const;
    // Grabs the screen at the next buffer swap.
    void requestCapture() { captureRequested = true; }
    // Saves a picture of the whole level once one is loaded (path under screenshots/).
    void requestLevelShot(const std::string& path) { pendingLevelShot = path; }
    const std::string& getPendingLevelShot() const { return pendingLevelShot; }
    void setPendingSaveName(const std::string& name) { pendingSaveName = name; }
    const std::string& getPendingSaveName() const { return pendingSaveName; }
    // Loads the given sky file and makes it the current sky.
    virtual void loadSky(const std::string& path);
    void setShowMap(bool on) { showMap = on; }
    bool isShowingMap() const { return showMap; }
    // The frame-rate and body-count lines drawn over the world when debuginfo is on.
    virtual void drawDebugText();
    // A crosshair at the player's aim point while the game has the input.
    virtual void drawCrosshair();
    // Moves a chase point after a target; true when it has settled (within 2 units).
    static bool followChasePoint(const Vector& target, Vector& chase, float frameTime);
    bool isCameraSettled() const { return cameraSettled; }
    // Runs the commands given on the command line, each on its own: the "set"
    // commands (before the video mode is set) or all the others.
    void runCommandLine(bool settingsOnly);

    // Runs the event pump until the queue is empty.
    void pumpEvents();
    // Key repeat on for the console and menus, off while playing.
    void updateKeyRepeat();
    // Console commands given on the command line ("+map test +exec x.txt").
    void setCommandLine(int argc, char** argv);
    const std::vector<std::string>& getCommandLineCommands() const { return commandLineCommands; }

    // The factory levels are read through: a plain Body for "default", the
    // game's body types through its fallback. Made on first use.
    BodyFactory* getBodyFactory();
    void setNextBodyId(int id) { nextBodyId = id; }

    std::list<Body*>& getBodies() { return bodies; }
    std::list<Body*>& getActiveBodies() { return activeBodies; }
    bool isLevelLoaded() const { return levelLoaded; }
    bool isWorldRunning() const { return worldRunning; }
    void setWorldRunning(bool running) { worldRunning = running; }
    bool isPaused() const { return paused; }
    // The console or the menus are up over a level: it is drawn but does
    // not step, so nothing happens behind them.
    bool isWorldHeld() const;
    bool isLevelPending() const { return levelPending; }
    bool isLoadPending() const { return loadPending; }
    bool isShutDown() const { return shutDown; }
    uint32_t getFrameCount() const { return frameCount; }
    // Counts a frame swapped outside the main loop (cinematics).
    void countFrame() { ++frameCount; }
    uint64_t getStepCount() const { return stepCount; }
    float getSimulationAccumulator() const { return simulationAccumulator; }
    float getParticleAccumulator() const { return particleAccumulator; }
    int getNextBodyId() const { return nextBodyId; }
    const std::string& getCurrentLevel() const { return currentLevel; }
    void setStartTicks(uint32_t t) { startTicks = t; }

protected:
    std::unique_ptr<ISound> sound;
    std::unique_ptr<Music> music;
    std::unique_ptr<IRenderer> renderer;
    std::unique_ptr<GUIManager> guiManager;
    std::unique_ptr<SkyManager> skyManager;
    // The full-window fade after level and save-game requests; null when none.
    std::unique_ptr<SimpleFadeOverlay> overlay;
    InputManager inputManager;
    std::unique_ptr<Console> console;
    std::unique_ptr<GameInput> gameInput;
    std::unique_ptr<IGameplay> gameplay;
    // The player lives from start-up to shutdown, across levels.
    std::unique_ptr<Body> persistentPlayer;
    // Declared after the player: it goes first and tells the bodies that
    // follow its systems to let go.
    std::unique_ptr<ParticleManager> particleManager;
    std::unique_ptr<DemoManager> demos;

    std::list<Body*> bodies;
    std::list<Body*> activeBodies;
    std::vector<Body*> collisionCandidates;
    std::vector<Body*> visibleBodies;
    QuadTree quadTree;
    Collision collision;
    float gravityOverride = 0.0f;
    bool hasGravityOverride = false;
    Body* player = nullptr;
    std::unique_ptr<BodyFactory> bodyFactory;
    // The factory of the game's body types, the fallback of bodyFactory.
    // Belongs to the gameplay controller once that exists.
    std::unique_ptr<BodyFactory> gameBodyFactory;

    uint32_t startTicks = 0;
    uint32_t frameCount = 0;
    BasicTimer timer;
    bool worldRunning = false;
    bool levelLoaded = false;
    bool quitRequested = false;
    std::list<Body*>::iterator bodyIterNext;
    bool levelPending = false;
    std::string pendingLevel;
    std::string pendingLevelEntry;
    float movieClock = 0.0f;
    bool captureRequested = false;
    std::string pendingLevelShot;
    std::string pendingSaveName;
    std::string cutsceneAfterSave;
    // Frames drawn since the level was loaded and first stepped.
    int levelFramesDrawn = 0;
    uint64_t levelStartStep = 0;
    std::string currentLevel;
    bool loadPending = false;
    // A checkpoint save or load is waiting for the next frame.
    bool checkpointSavePending = false;
    bool checkpointLoadPending = false;
    bool quietSavePending = false;
    // The save written at the last checkpoint and its level ("" for none).
    std::string checkpointSave;
    std::string checkpointLevel;
    int nextBodyId = 2;
    bool saveRequested = false;
    bool paused = false;
    bool shutDown = false;
    bool showMap = false;

    // The two step accumulators carry over level changes on purpose.
    float simulationAccumulator = 0.0f;
    float particleAccumulator = 0.0f;
    uint64_t stepCount = 0;
    // Play time is counted in steps from this base.
    double playSecondsBase = 0.0;
    uint64_t playStepBase = 0;
    std::vector<std::string> commandLineCommands;

    bool setInitialVideoMode();
    void storeVideoMode();
    // After a level's bodies are built: the level's name, the player (id 1)
    // in the world, and the level's sky (or the default one) with the two
    // cloud layers.
    void enterLevel(const std::string& name);
    // The save document for the running game.
    void buildSave(TiXmlDocument& document);
    // Draws the world afresh and holds the picture for the thumbnail.
    void captureThumbnail();
    void refreshVisibleBodies();
    void drawPausedImage();
    void interpolateBodies(float alpha);
    // The player body of the gameplay controller, id 1, 16 x 16, mass 100.
    void createPlayer();
    bool noclip = false;
    bool keyRepeatOn = true;
    // True from the start of init until its start-up scripts and set-up are done.
    bool starting = false;
    // False when the variable or key definitions could not be read: the
    // settings of such a start are not the player's and are never saved.
    bool definitionsLoaded = true;
    void reportDamagedData();
    // The level a start-up script asked for, loaded once start-up is done.
    std::optional<std::pair<std::string, std::string>> startupLevel;
    // The same for a save game.
    std::optional<std::string> startupSave;
    bool cameraSettled = false;
    std::string skyFile;
    // The level a level change asked for and could not load; asked again
    // in the same level, it is not tried again.
    std::string failedLevelRequest;
    std::string noticeText;
    uint32_t noticeShownAt = 0;
    // The notice in the 2D layer, over the GUI and under the console.
    void drawNotice();
    LoadTiming loadTiming;
    // After each frame is shown: prints the start-up and level-change times
    // when "showloadtimes" is set.
    void noteFrameShown();

    // Looked up once by registerCommands; the registry owns them.
    GameVar* chasecam = nullptr;
    GameVar* gravity = nullptr;
    GameVar* frustumcull = nullptr;
    GameVar* frustumcull2 = nullptr;
    GameVar* collideoutsidefrustum = nullptr;
    GameVar* drawgrid = nullptr;
    GameVar* drawboundingspheres = nullptr;
    GameVar* drawboundingboxes = nullptr;
    GameVar* drawsky = nullptr;
    GameVar* drawbloom = nullptr;
    GameVar* drawparticles = nullptr;
    GameVar* bodyinfo = nullptr;
    GameVar* partcileinfo = nullptr;
    GameVar* drawspeed = nullptr;
    GameVar* debuginfo = nullptr;
    GameVar* movierecord = nullptr;
};
