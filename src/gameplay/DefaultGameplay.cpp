#include "gameplay/DefaultGameplay.h"

#include <tinyxml.h>

#include <cctype>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "console/CommandRegistry.h"
#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "core/Game.h"
#include "gameplay/items/Inventory.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/RaceBlock.h"
#include "gameplay/player/GameplayInput.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/WeaponDefinitions.h"
#include "world/level/LevelValues.h"
#include "world/body/Body.h"
#include "world/geometry/TextForm.h"
#include "world/level/GameBodyFactory.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "world/logic/SpawnPoint.h"

namespace {
std::string boolText(bool b) { return b ? "true" : "false"; }

std::string formatNumber(float value)
{
    std::ostringstream out;
    out << value;
    return out.str();
}

const char* const raceRule = "---------";

// The spawn point's "startpoint" level key, matched like every level attribute.
bool isStartPoint(const Body& body)
{
    for (const auto& [name, value] : body.attributes) {
        std::string lower = name;
        for (char& c : lower)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (lower == "startpoint")
            return value == "true";
    }
    return false;
}

// Overlay text in the "vera" font at size 14.
void drawText(IRenderer* renderer, float x, float y, const std::string& text)
{
    FontRenderer* font = renderer->getFontRenderer();
    if (!font || !font->selectFont("vera", 14))
        return;
    renderer->setTexturing(true);
    renderer->setColour(255.0f, 255.0f, 255.0f, 255.0f);
    font->drawText(x, y, text);
}
}

DefaultGameplay::DefaultGameplay()
{
    raceTimer.ticksPerSecond = 1000.0f;
    raceTimer.running = false;
}

DefaultGameplay::~DefaultGameplay()
{
    GameplaySingleton& s = GameplaySingleton::get();
    if (s.gameplay == this) {
        s.gameplay = nullptr;
        s.hud = nullptr;
    }
}

bool DefaultGameplay::init(GameResourceBundle& resources)
{
    std::printf("============ INIT GAMEPLAY ============\n");
    hud.init();
    hud.resize(screenWidth, screenHeight);
    bodyFactory = std::make_unique<GameBodyFactory>();
    bodyFactory->registerPrototypes();

    GameplaySingleton& s = GameplaySingleton::get();
    s.resources = resources;
    s.hud = &hud;
    s.gameplay = this;

    WeaponDefinitions::load();
    Inventory::registerCommands();
    drawTimerVar = getVar("drawtimer");
    maxGibsVar = getVar("maxgibs");
    registerCommands();
    return true;
}

bool DefaultGameplay::shutdown()
{
    bodyFactory.reset();
    GameplaySingleton::destroy();
    std::printf("============ SHUTDOWN GAMEPLAY ============\n");
    return true;
}

Body* DefaultGameplay::createBody(const std::string& typeName)
{
    // Unknown names get nothing here; the level loader's own factory is the
    // one that falls back to plain static bodies.
    if (!bodyFactory || !bodyFactory->findPrototype(typeName))
        return nullptr;
    std::unique_ptr<Body> body = bodyFactory->create(typeName);
    if (!body)
        return nullptr;
    if (typeName == "player") {
        player = dynamic_cast<Player*>(body.get());
        GameplaySingleton::get().resources.player = player;
    }
    return body.release();
}

BodyFactory* DefaultGameplay::getBodyFactory() { return bodyFactory.get(); }

void DefaultGameplay::update(float stepTime)
{
    GameplaySingleton& s = GameplaySingleton::get();
    advanceClock(s.levelTimer, stepTime * 1000.0f);
    if (raceActive)
        advanceClock(raceTimer, stepTime * 1000.0f);

    const float t = s.levelTime();
    hud.setPlayer(s.resources.player);
    hud.update(stepTime);

    Game* game = s.resources.game;
    if (!game)
        return;
    // Bodies spawned by a think are appended to the list and still get this
    // step; removals are only marks, so the walk stays valid.
    for (Body* body : game->getBodies()) {
        body->step(stepTime);
        if (body->thinks && body->nextthink < t) {
            body->think(stepTime);
            body->nextthink = t + body->thinkInterval;
        }
    }
    // Out through a gap in a broken level: nothing below will ever stop
    // the fall, so end it (god mode cannot help here).
    Player* p = s.resources.player;
    if (p && hasFallLimit && !p->dead && p->pos.y < fallLimit)
        p->die();
}

void DefaultGameplay::startLevel(const std::string& spawnPointId)
{
    GameplaySingleton& s = GameplaySingleton::get();
    Player* p = s.resources.player;

    if (!loadedFromSave) {
        // The player's timers are on the level clock, which restarts now:
        // shift them back by the time spent in the level just left.
        const float elapsed = s.levelTime();
        if (p) {
            p->nextpaintime -= elapsed;
            p->quadtime -= elapsed;
            p->invinctime -= elapsed;
            if (p->hasquad)
                p->applyQuadEffect();
            if (p->hasinvinc)
                p->applyInvincibleEffect();
            p->levelReset();
        }
        restartClock(s.levelTimer);
        restartClock(raceTimer);
    }
    loadedFromSave = false;

    spawnPoints.clear();
    hasFallLimit = false;
    if (Game* game = s.resources.game) {
        for (Body* body : game->getBodies()) {
            if (body->type == "spawnpoint")
                spawnPoints.push_back(body);
            if (body == p)
                continue;
            for (const Vector& v : body->worldVertices)
                if (std::isfinite(v.y) && (!hasFallLimit || v.y - fallDepth < fallLimit)) {
                    fallLimit = v.y - fallDepth;
                    hasFallLimit = true;
                }
        }
    }

    Body* chosen = nullptr;
    if (!spawnPointId.empty())
        chosen = findSpawnPoint(spawnPointId);
    if (!chosen)
        chosen = startSpawnPoint();
    if (chosen && p) {
        p->setPosition(chosen->pos);
        p->camera = chosen->pos;
        if (auto* point = dynamic_cast<SpawnPoint*>(chosen))
            point->spawnEffect();
    }

    // The last level's gibs went with its bodies.
    gibCount = 0;
    if (p) {
        p->inventory.initialise();
        if (Game* game = s.resources.game)
            game->setPlayer(p);
        p->transform();
        p->updateBounds();
        p->isfiring = false;
        p->nextthink = 0.0f;
    }
    hud.setPlayer(p);
    hud.levelReset();
}

void DefaultGameplay::endLevel()
{
    GameplaySingleton::get().levelTimer.running = false;
    spawnPoints.clear();
    hud.setPlayer(nullptr);
}

void DefaultGameplay::drawOverlay(IRenderer* renderer)
{
    if (!renderer || !drawTimerVar || drawTimerVar->intValue <= 0)
        return;
    const std::string text = "Level Time: " + formatNumber(levelTime() / 1000.0f);
    renderer->begin2D();
    drawText(renderer, 20.0f, 60.0f, text);
    renderer->end2D();
}

void DefaultGameplay::drawHud(IRenderer* renderer, float frameTime) { hud.draw(renderer, frameTime); }

Body* DefaultGameplay::nearestSpawnPoint(Body* body)
{
    if (!body)
        return nullptr;
    Body* best = nullptr;
    float bestDistance = 0.0f;
    for (Body* sp : spawnPoints) {
        const float dx = sp->pos.x - body->pos.x;
        const float dy = sp->pos.y - body->pos.y;
        const float d = dx * dx + dy * dy;
        if (!best || d < bestDistance) {
            best = sp;
            bestDistance = d;
        }
    }
    return best;
}

Body* DefaultGameplay::startSpawnPoint()
{
    for (Body* sp : spawnPoints)
        if (isStartPoint(*sp))
            return sp;
    return nullptr;
}

Body* DefaultGameplay::findSpawnPoint(const std::string& id)
{
    for (Body* sp : spawnPoints)
        if (sp->id == id)
            return sp;
    return nullptr;
}

GameInput* DefaultGameplay::createInput() { return new GameplayInput(); }

void DefaultGameplay::setScreenSize(int width, int height)
{
    screenWidth = width;
    screenHeight = height;
    hud.resize(width, height);
}

void DefaultGameplay::save(TiXmlElement* element)
{
    if (!element)
        return;
    element->SetAttribute("timer", clockToText(GameplaySingleton::get().levelTimer));
    element->SetAttribute("raceactive", boolText(raceActive));
    element->SetAttribute("racetimer", clockToText(raceTimer));
}

void DefaultGameplay::load(TiXmlElement* element)
{
    if (!element)
        return;
    if (const char* text = element->Attribute("timer")) {
        BasicTimer& level = GameplaySingleton::get().levelTimer;
        clockFromText(level, text);
        // A save made from the pause menu holds a paused clock; the restored
        // level runs.
        level.paused = false;
    }
    const char* active = element->Attribute("raceactive");
    raceActive = active && std::string(active) == "true";
    if (const char* text = element->Attribute("racetimer"))
        clockFromText(raceTimer, text);
    loadedFromSave = true;
}

void DefaultGameplay::tickClock() { advanceClock(GameplaySingleton::get().levelTimer, Game::stepSeconds * 1000.0f); }

void DefaultGameplay::pause()
{
    BasicTimer& level = GameplaySingleton::get().levelTimer;
    level.pauseTime = level.currentTime;
    level.paused = true;
    if (raceActive) {
        raceTimer.pauseTime = raceTimer.currentTime;
        raceTimer.paused = true;
    }
}

void DefaultGameplay::resume()
{
    resumeClock(GameplaySingleton::get().levelTimer);
    if (raceActive)
        resumeClock(raceTimer);
}

void DefaultGameplay::allocateGibs(int& count)
{
    const int maxGibs = maxGibsVar ? maxGibsVar->intValue : 0;
    if (gibCount + count > maxGibs)
        count = maxGibs - gibCount;
    gibCount += count;
}

void DefaultGameplay::gibRemoved()
{
    if (gibCount > 0)
        --gibCount;
}

// ---- clocks ---------------------------------------------------------------

std::string DefaultGameplay::clockToText(const BasicTimer& clock)
{
    char buffer[160];
    std::snprintf(buffer, sizeof buffer, "%f,%f,%f,%f,%s", clock.startTime, clock.currentTime,
                  clock.previousTime, clock.ticksPerSecond, clock.paused ? "true" : "false");
    return buffer;
}

bool DefaultGameplay::clockFromText(BasicTimer& clock, const std::string& text)
{
    const std::vector<std::string> fields = splitTokens(text, ",");
    if (fields.size() < 5)
        return false;
    // Saved clocks may be hand-edited: keep their times finite and bounded.
    clock.startTime = readTime(fields[0]);
    clock.currentTime = readTime(fields[1]);
    clock.previousTime = readTime(fields[2]);
    clock.ticksPerSecond = parseFloat(fields[3]);
    clock.paused = fields[4] == "true";
    clock.pauseTime = clock.currentTime;
    return true;
}

void DefaultGameplay::restartClock(BasicTimer& clock)
{
    clock.ticksPerSecond = 1000.0f;
    clock.running = true;
    clock.paused = false;
    clock.startTime = clock.currentTime = clock.previousTime = 0.0f;
}

void DefaultGameplay::advanceClock(BasicTimer& clock, float ms)
{
    if (clock.paused)
        return;
    clock.previousTime = clock.currentTime;
    clock.currentTime += ms;
}

void DefaultGameplay::resumeClock(BasicTimer& clock) { clock.paused = false; }

// ---- race -------------------------------------------------------------------

namespace {
void raceMessage(const std::string& text)
{
    if (GameHUD* h = GameplaySingleton::get().hud)
        h->showMessage(text, 8);
}
}

void DefaultGameplay::startRace()
{
    raceActive = true;
    restartClock(raceTimer);
    raceMessage("Race Started!!");
    conPrint(raceRule);
    conPrint("Race Started");
}

void DefaultGameplay::checkpointReached()
{
    if (!raceActive)
        return;
    const std::string text = "Checkpoint: " + formatNumber(raceTime() / 1000.0f);
    raceMessage(text);
    conPrint(text);
}

void DefaultGameplay::finishRace()
{
    if (raceActive) {
        const std::string text = "Race Finished: " + formatNumber(raceTime() / 1000.0f);
        raceMessage(text);
        conPrint(text);
        conPrint(raceRule);
    }
    raceActive = false;
    // Frozen, so the final time stays readable on the HUD.
    raceTimer.pauseTime = raceTimer.currentTime;
    raceTimer.paused = true;
}

void DefaultGameplay::resetRace()
{
    raceActive = false;
    raceMessage("Race reset.");
    raceTimer.ticksPerSecond = 1000.0f;
    raceTimer.running = false;
    if (Game* game = GameplaySingleton::get().resources.game)
        for (Body* body : game->getBodies())
            if (body->type == "raceblock")
                if (auto* block = dynamic_cast<RaceBlock*>(body))
                    block->reset();
}

// ---- debug commands -----------------------------------------------------------

void DefaultGameplay::registerCommands()
{
    registerCommand("warp to a named node", "warpto", [this] { warpTo(); });
    registerCommand("warp to the nearest node", "warpnearest", [this] { warpNearest(); });
    registerCommand("fire the player at a position at a speed", "fireplayer", [this] { firePlayer(); });
    registerCommand("fire the player at the mouse at a speed", "fireplayeratmouse",
                    [this] { firePlayerAtMouse(); });
    registerCommand("get the world pos of the mouse", "getmousepos", [this] { getMousePos(); });
    registerCommand("kill all player velocity", "killvelocity", [this] { killVelocity(); });
    registerCommand("dump player info", "playerinfo", [this] { playerInfo(); });
}

namespace {
Player* currentPlayer() { return GameplaySingleton::get().resources.player; }
Game* currentGameOfGameplay() { return GameplaySingleton::get().resources.game; }

void launch(Player* p, const Vector& target, float speed)
{
    Vector d(target.x - p->pos.x, target.y - p->pos.y);
    const float len = d.length2D();
    if (len > 0.0f)
        d = d * (1.0f / len);
    p->vel = d * speed;
}
}

void DefaultGameplay::warpTo()
{
    CommandRegistry& reg = CommandRegistry::instance();
    if (reg.argumentCount < 1) {
        conPrint("warpto incorrect usage, please specify an object id");
        return;
    }
    Player* p = currentPlayer();
    Game* game = currentGameOfGameplay();
    if (!p || !game)
        return;
    const std::string target = reg.arg(0);
    for (Body* body : game->getBodies()) {
        if (body->id == target) {
            p->vel = Vector();
            p->setPosition(body->pos);
        }
    }
}

void DefaultGameplay::warpNearest()
{
    Player* p = currentPlayer();
    Game* game = currentGameOfGameplay();
    if (!p || !game)
        return;
    Body* best = nullptr;
    float bestDistance = 0.0f;
    for (Body* body : game->getBodies()) {
        if (body->type != "namedpoint")
            continue;
        const float d = body->pos.distance2D(p->pos);
        if (!best || d < bestDistance) {
            best = body;
            bestDistance = d;
        }
    }
    if (!best) {
        conPrint("Couldn't find a named node");
        return;
    }
    p->vel = Vector();
    p->setPosition(best->pos);
}

void DefaultGameplay::firePlayer()
{
    CommandRegistry& reg = CommandRegistry::instance();
    if (reg.argumentCount < 2) {
        conPrint("fireplayer incorrect usage, please specify a position and a speed");
        return;
    }
    Player* p = currentPlayer();
    if (!p)
        return;
    Vector target;
    target.fromString(reg.arg(0));
    launch(p, target, parseFloat(reg.arg(1)));
}

void DefaultGameplay::firePlayerAtMouse()
{
    CommandRegistry& reg = CommandRegistry::instance();
    if (reg.argumentCount < 1) {
        conPrint("fireplayeratmouse incorrect usage, please specify a speed");
        return;
    }
    if (Player* p = currentPlayer())
        launch(p, p->mouseWorldPos, parseFloat(reg.arg(0)));
}

void DefaultGameplay::getMousePos()
{
    if (Player* p = currentPlayer())
        conPrint("Player Mouse Pos: " + p->mouseWorldPos.toString());
}

void DefaultGameplay::killVelocity()
{
    if (Player* p = currentPlayer())
        p->vel = Vector();
}

void DefaultGameplay::playerInfo()
{
    Player* p = currentPlayer();
    if (!p)
        return;
    Game* game = currentGameOfGameplay();
    const std::string level = game ? game->getCurrentLevel() : std::string();
    Vector pos = p->pos;
    Vector vel = p->vel;
    const std::string lines[3] = {
        "Player pos, vel: " + pos.toString() + " " + vel.toString(),
        "Player Mouse Pos: " + p->mouseWorldPos.toString(),
        "Current Level: " + level + " : at time: " + formatNumber(levelTime()),
    };
    std::ofstream out("playerinfo.txt", std::ios::trunc);
    for (const std::string& line : lines) {
        if (out)
            out << line << '\n';
        conPrint(line);
    }
}
