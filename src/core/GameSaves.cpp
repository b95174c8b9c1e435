// The Game's save games: writing the running world to saves/<name>.xml with
// a thumbnail beside it, and rebuilding the world from such a file.
#include "core/Game.h"

#include <sys/stat.h>
#include <tinyxml.h>

#include <algorithm>
#include <limits>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <utility>

#include "console/Console.h"
#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/SaveInfo.h"
#include "gameplay/Difficulty.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/IGameplay.h"
#include "gui/GUIManager.h"
#include "render/GameHUD.h"
#include "render/IRenderer.h"
#include "resources/AtomicFile.h"
#include "resources/ResourceManager.h"
#include "world/body/Body.h"
#include "world/level/LevelLoader.h"
#include "world/level/LevelValues.h"

namespace {
// The save's level must at least parse before the running one is thrown away.
bool levelReadable(const std::string& level)
{
    TiXmlDocument document;
    return !level.empty() &&
           ResourceManager::instance().loadDocument(
               document, LevelLoader::resourcePath(LevelLoader::levelPath(level))) &&
           document.RootElement();
}

bool withinWorld(const Vector& v)
{
    return std::fabs(v.x) <= LevelLoader::maxCoordinate && std::fabs(v.y) <= LevelLoader::maxCoordinate;
}

// The HUD belongs to the controller: without one there is none to tell.
void hudMessage(const IGameplay* gameplay, const std::string& text)
{
    if (!gameplay)
        return;
    if (GameHUD* hud = GameplaySingleton::get().hud)
        hud->showMessage(text);
}

void refuseSave(const std::string& path)
{
    std::printf("Can't load save file: %s\n", path.c_str());
    conPrint("Can't load save file: " + path);
}

bool fileExists(const std::string& path)
{
    struct stat info;
    return ::stat(path.c_str(), &info) == 0;
}

// What the player is told on screen when a save cannot be read or written.
std::string saveNameProblem(const std::string& name)
{
    if (name.size() > Game::maxSaveNameLength)
        return "Save names are at most " + std::to_string(Game::maxSaveNameLength) + " characters";
    return "Save names are letters, digits, spaces, '-', '_' and '.': " + name;
}
}

double Game::getPlaySeconds() const
{
    return playSecondsBase + static_cast<double>(stepCount - playStepBase) * stepSeconds;
}

void Game::setPlaySeconds(double seconds)
{
    // Hand-edited saves: no negative or absurd times.
    playSecondsBase = std::isfinite(seconds) ? std::clamp(seconds, 0.0, 1e9) : 0.0;
    playStepBase = stepCount;
}

bool Game::isSaveName(const std::string& name)
{
    if (name.empty() || name.size() > maxSaveNameLength || name[0] == '.')
        return false;
    return std::all_of(name.begin(), name.end(), [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) || c == ' ' || c == '-' || c == '_' || c == '.';
    });
}

void Game::buildSave(TiXmlDocument& document)
{
    auto* save = new TiXmlElement("save");
    save->SetAttribute("version", 1);
    save->SetAttribute("currentlevel", currentLevel);
    save->SetAttribute("nextbodyid", nextBodyId);
    save->SetAttribute("difficulty", Difficulty::current());
    LevelLoader::writeObjects(save, bodies);
    if (gameplay)
        gameplay->save(save);
    auto* playerElement = new TiXmlElement("Player");
    if (player)
        player->writeState(playerElement);
    save->LinkEndChild(playerElement);
    document.LinkEndChild(save);
}

void Game::captureThumbnail()
{
    // The picture on screen may carry the console: draw the world again into
    // the back buffer and take that. The next frame's 2D layer goes over it.
    if (levelLoaded && worldRunning) {
        renderer->beginFrame();
        drawWorld();
        drawGameplayOverlay();
    }
    renderer->grabScreen();
}

void Game::saveGame()
{
    const bool forCheckpoint = checkpointSavePending;
    checkpointSavePending = false;
    const bool quiet = std::exchange(quietSavePending, false);
    saveRequested = false;
    if (pendingSaveName.empty())
        pendingSaveName = "temp";
    const std::string path = savePath(pendingSaveName);
    if (!isSaveName(pendingSaveName)) {
        std::printf("Not a save name: %s\n", pendingSaveName.c_str());
        conPrint(saveNameProblem(pendingSaveName));
        showNotice(saveNameProblem(pendingSaveName));
        return;
    }
    std::printf("Saving save game: %s\n", path.c_str());
    // The clocks stand still while the files are written. A paused game's
    // clocks already do, and resuming them here would start them.
    const bool holdClocks = gameplay && !paused;
    if (holdClocks)
        gameplay->pause();

    TiXmlDocument document(path);
    buildSave(document);
    // What the save lists show without loading the level.
    if (TiXmlElement* save = document.RootElement()) {
        save->SetAttribute("title", SaveInfo::levelTitle(currentLevel));
        save->SetAttribute("savedat", std::to_string(static_cast<long long>(std::time(nullptr))));
        save->SetAttribute("playtime", std::to_string(static_cast<long long>(getPlaySeconds())));
        if (forCheckpoint)
            save->SetAttribute("checkpoint", "true");
    }
    ::mkdir("saves", 0755);
    const bool written = AtomicFile::replace(
        path, [&document](const std::string& temporary) { return document.SaveFile(temporary); });
    // With the menus up (the world stopped behind them) the picture is the
    // one taken as they opened, showing the game.
    if (worldRunning || !guiManager || !guiManager->isVisible())
        captureThumbnail();
    renderer->saveGrab(thumbnailPath(pendingSaveName), thumbnailWidth, thumbnailHeight);
    if (written) {
        if (forCheckpoint) {
            checkpointSave = pendingSaveName;
            checkpointLevel = currentLevel;
        }
        conPrint("Saved game: " + pendingSaveName);
        if (!quiet)
            hudMessage(gameplay.get(), "Game saved");
    }

    tickTimer();
    if (holdClocks)
        gameplay->resume();
}

void Game::loadGame(const std::string& name)
{
    if (starting) {
        startupLevel.reset();
        startupSave = name;
        return;
    }
    const std::string saveName = name.empty() ? std::string("temp") : name;
    const std::string path = savePath(saveName);
    TiXmlDocument document(path);
    if (!isSaveName(saveName)) {
        refuseSave(path);
        showNotice(saveNameProblem(saveName));
        return;
    }
    if (!ResourceManager::instance().loadDocument(document, path)) {
        refuseSave(path);
        showNotice(fileExists(path) ? "The save game " + saveName + " is damaged and was not loaded"
                                    : "There is no save game called " + saveName);
        return;
    }
    TiXmlElement* save = document.RootElement();
    const std::string level = attributeText(save, "currentlevel");
    if (!save || save->ValueStr() != "save" || level.empty()) {
        refuseSave(path);
        showNotice("The save game " + saveName + " is damaged and was not loaded");
        return;
    }
    if (!levelReadable(level)) {
        refuseSave(path);
        showNotice("The save game " + saveName + " needs the level " + level + ", which could not be loaded");
        return;
    }
    const bool checkpoint = checkpointLoadPending && saveName == checkpointSave;
    double savedPlayTime = 0.0;
    save->QueryDoubleAttribute("playtime", &savedPlayTime);
    pendingSaveName = saveName;
    std::printf("Loading save game: %s\n", path.c_str());
    // "version" is written for the readers of the file; it changes nothing here.
    const int savedNextId = readInt(attributeText(save, "nextbodyid"));
    // A save plays on at the difficulty it was started with; older saves have none.
    if (const std::string saved = attributeText(save, "difficulty"); !saved.empty())
        if (GameVar* var = findVar("difficulty"))
            var->setInt(Difficulty::clampLevel(readInt(saved)));

    quadTree.setSplitAllowed(true);
    unloadLevel();
    LevelLoader loader(*this, *getBodyFactory());
    if (!loader.loadSavedLevel(level, save->FirstChildElement("Objects"), quadTree)) {
        showNotice("The save game " + saveName + " could not be loaded");
        return;
    }
    // A hand-edited count must not hand out ids that bodies already carry,
    // and must leave room to count on.
    constexpr int maxBodyId = std::numeric_limits<int>::max() / 2;
    int highestId = 1;
    for (const Body* body : bodies)
        highestId = std::max(highestId, std::min(body->autoid, maxBodyId));
    nextBodyId = std::clamp(std::max(savedNextId, highestId + 1), 2, maxBodyId);

    enterLevel(level);
    // The controller's clocks first: startLevel then keeps them.
    if (gameplay) {
        gameplay->load(save);
        gameplay->startLevel("");
    }
    if (player) {
        const Vector spawned = player->pos;
        if (TiXmlElement* saved = save->FirstChildElement("Player"))
            player->readState(saved);
        if (!withinWorld(player->pos) || !withinWorld(player->oldpos)) {
            std::printf("Saved player position %s is out of range\n", player->pos.toString().c_str());
            player->setPosition(spawned);
            player->oldpos = player->renderpos = spawned;
        }
        player->autoid = 1;
        player->camera = player->pos;
        player->transform();
        player->updateBounds();
        quadTree.update(player);
    }

    setPlaySeconds(savedPlayTime);
    worldRunning = true;
    levelLoaded = true;
    if (paused) {
        paused = false;
        timer.resume();
    }
    levelPending = false;
    loadPending = false;
    checkpointLoadPending = false;
    pendingLevel.clear();
    pendingLevelEntry.clear();
    console->setVisible(false);
    inputManager.setTarget("game");
    if (guiManager)
        guiManager->setVisible(false);
    quadTree.setSplitAllowed(false);
    tickTimer();
    checkpointLevel = checkpoint ? level : std::string();
    hudMessage(gameplay.get(), checkpoint ? "Back at the checkpoint" : "Game loaded");
}
