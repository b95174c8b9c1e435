#pragma once
// The rules of play that belong to no single body, as the Game sees them:
// creating bodies by type name, the per-step update and timed thinks, level
// start and end, the clocks, overlays and save-game state. The Game owns one
// controller and calls these hooks from its frame; everything else reaches the
// controller through the GameplaySingleton.
#include <string>

class Body;
class BodyFactory;
class GameInput;
class GameResourceBundle;
class IRenderer;
class TiXmlElement;

class IGameplay {
public:
    virtual ~IGameplay() = default;

    // Once, after setScreenSize, when the Game installs the controller. Builds
    // the body factory, registers the controller's commands. True on success.
    virtual bool init(GameResourceBundle& resources) = 0;
    // At program end, before the Game deletes the controller.
    virtual bool shutdown() = 0;
    // A new body of that type name, or null for an unknown name. Creating a
    // "player" also makes it the current player.
    virtual Body* createBody(const std::string& typeName) = 0;
    virtual BodyFactory* getBodyFactory() = 0;
    // Before every fixed simulation step (the Game's loop).
    virtual void preStep() = 0;
    // Every fixed step, before gravity, collision and movement: clocks,
    // per-body step updates and timed thinks.
    virtual void update(float stepTime) = 0;
    // After every fixed step.
    virtual void postStep() = 0;
    // After a level has been built; spawnPointId may be empty.
    virtual void startLevel(const std::string& spawnPointId) = 0;
    // Before the next level is built (and when a level is unloaded).
    virtual void endLevel() = 0;
    // Screen-space text over the world (the level timer), every frame.
    virtual void drawOverlay(IRenderer* renderer) = 0;
    // The HUD, every frame.
    virtual void drawHud(IRenderer* renderer, float frameTime) = 0;
    // The spawn point nearest to the body, or null without spawn points.
    virtual Body* nearestSpawnPoint(Body* body) = 0;
    // The first spawn point marked as the level's start, or null.
    virtual Body* startSpawnPoint() = 0;
    // The input target "game"; the caller owns it.
    virtual GameInput* createInput() = 0;
    virtual void setScreenSize(int width, int height) = 0;
    // Save-game state of the controller (clocks and race).
    virtual void save(TiXmlElement* element) = 0;
    // Read before startLevel of a restored level, which then keeps the clocks.
    virtual void load(TiXmlElement* element) = 0;
    // Reserved for the save-game reader; does nothing here.
    virtual void levelRestored() = 0;
    // Moves the level clock on by one world step.
    virtual void tickClock() = 0;
    // Menus and the console stop the clocks; resume removes the paused span.
    virtual void pause() = 0;
    virtual void resume() = 0;
};
