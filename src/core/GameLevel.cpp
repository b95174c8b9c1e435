// The Game's levels and requests: loading and leaving levels, level changes, restarts and cut scenes.
#include "core/Game.h"

#include <tinyxml.h>

#include <cstdio>

#include "console/Console.h"
#include "console/ConsolePrint.h"
#include "core/Clock.h"
#include "gameplay/IGameplay.h"
#include "gui/GUIManager.h"
#include "menus/CutSceneFrame.h"
#include "particles/ParticleManager.h"
#include "render/SkyManager.h"
#include "resources/ResourceManager.h"
#include "sound/Music.h"
#include "world/body/Body.h"
#include "world/level/LevelLoader.h"

void Game::loadSky(const std::string& path)
{
    skyFile = path;
    if (skyManager->loadSky(path))
        skyManager->switchSky(path);
}

namespace {
bool readLevelDocument(const std::string& name, TiXmlDocument& document)
{
    // No row and column counting: nothing here reports them, and it was
    // a sixth of the parse.
    document.SetTabSize(0);
    return ResourceManager::instance().loadDocument(document,
                                                    LevelLoader::resourcePath(LevelLoader::levelPath(name))) &&
           document.RootElement();
}
}

void Game::loadLevel(const std::string& name, const std::string& entry)
{
    // A "map" in a start-up script runs before the effects, sounds and fonts
    // are loaded: the level waits until they are.
    if (starting) {
        startupLevel = {name, entry};
        return;
    }
    loadTiming.levelRequested(name, Clock::profileSeconds(), frameCount);
    // A level that does not even parse leaves the running one alone. The
    // document read here is the one the level is built from.
    TiXmlDocument document;
    if (!readLevelDocument(name, document)) {
        const std::string path = LevelLoader::levelPath(name);
        std::printf("Could not load level file: %s\n", path.c_str());
        conPrint("Failed to load level: " + path);
        showNotice("Could not load the level " + name);
        loadTiming.levelFailed();
        // A level change asked for by the level itself is dropped, not
        // retried every frame behind a black screen.
        if (levelPending) {
            failedLevelRequest = name;
            levelPending = false;
            pendingLevel.clear();
            pendingLevelEntry.clear();
            clearOverlay();
        }
        return;
    }

    quadTree.setSplitAllowed(true);
    unloadLevel();
    // The renderer's resources and the font renderer are reset here once
    // those exist; unloadLevel has removed the particle systems.

    nextBodyId = 2;
    LevelLoader loader(*this, *getBodyFactory());
    if (!loader.loadLevelDocument(name, document, quadTree)) {
        showNotice("Could not load the level " + name);
        loadTiming.levelFailed();
        levelPending = false;
        return;
    }

    enterLevel(name);
    checkpointLevel.clear();
    if (gameplay) {
        gameplay->startLevel(entry);
        // The spawn point moved the player: index it where it now stands.
        if (player)
            quadTree.update(player);
    }

    worldRunning = true;
    levelLoaded = true;
    levelPending = false;
    pendingLevel.clear();
    pendingLevelEntry.clear();
    // The menus (or a cut scene) give way to the level they asked for.
    if (guiManager)
        guiManager->setVisible(false);
    inputManager.setTarget("game");
    // Leaves do not split while the game runs.
    quadTree.setSplitAllowed(false);
    tickTimer();
    loadTiming.levelLoaded(Clock::profileSeconds());
}

bool Game::canLoadLevel(const std::string& name) const
{
    TiXmlDocument check;
    return readLevelDocument(name, check);
}

void Game::enterLevel(const std::string& name)
{
    currentLevel = name;
    failedLevelRequest.clear();
    if (player) {
        player->autoid = 1;
        player->textureId = -1;
        player->updateBounds();
        quadTree.insert(player);
        addBody(player, false);
        addActiveBody(player);
    }
    // A level that names no sky still gets one rather than a black void.
    if (!skyManager->getCurrentSky())
        skyManager->loadSky(SkyManager::defaultSky);
    skyManager->loadSky("data/sky/hcsky1.xml");
    skyManager->loadSky("data/sky/hcsky2.xml");
}

void Game::requestLevel(const std::string& name, const std::string& entry)
{
    // A level change the player still stands in asks again every step:
    // the failure has been told once.
    if (name == failedLevelRequest)
        return;
    levelPending = true;
    pendingLevel = name;
    pendingLevelEntry = entry;
    loadTiming.levelRequested(name, Clock::profileSeconds(), frameCount);
    startFade();
}

void Game::unloadLevel()
{
    // The next level's skyinfo names its own track; none means silence.
    music->setLevelTrack("");
    levelFramesDrawn = 0;
    levelStartStep = stepCount;
    if (gameplay)
        gameplay->endLevel();
    if (player && player->quadTreeNode) {
        player->quadTreeNode->remove(player);
        player->quadTreeNode = nullptr;
    }
    clearLevel();
    bodies.clear();
    activeBodies.clear();
    bodyIterNext = activeBodies.end();
    quadTree.clear();
    particleManager->removeAllSystems();
    skyManager->clear();
    worldRunning = false;
    levelLoaded = false;
    nextBodyId = 2;
}

void Game::requestCheckpointSave()
{
    checkpointSavePending = true;
    saveRequested = true;
}

void Game::restartAfterDeath()
{
    if (!hasCheckpoint()) {
        requestLevel(currentLevel, "");
        return;
    }
    // Set again once the save has loaded: one that no longer loads leaves
    // the next attempt to restart the level.
    checkpointLevel.clear();
    checkpointLoadPending = true;
    loadPending = true;
    startFade();
}

void Game::requestLoad(const std::string& name)
{
    loadPending = true;
    pendingSaveName = name;
    startFade();
}

void Game::showCutscene(const std::string& name)
{
    auto* frame = dynamic_cast<CutSceneFrame*>(guiManager->findComponent(CutSceneFrame::componentName));
    if (!frame)
        return;
    guiManager->setVisible(true);
    inputManager.setTarget("gui");
    worldRunning = false;
    console->setVisible(false);
    frame->play(name);
}
