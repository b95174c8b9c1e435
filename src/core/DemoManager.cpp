#include "core/DemoManager.h"

#include <algorithm>
#include <cctype>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sstream>
#include <map>

#include "console/CommandRegistry.h"
#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "core/Game.h"
#include "core/StepProfile.h"
#include "gameplay/player/GameplayInput.h"
#include "gameplay/player/Player.h"
#include "input/GameInput.h"
#include "resources/ResourceManager.h"
#include "world/body/Body.h"

namespace {
const char* const demoCommands[] = {"recorddemo", "stopdemo", "playdemo", "timedemo", "rehashdemo"};

// Demo news goes to the log as well as the console: scripted runs read it there.
void say(const std::string& text)
{
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
    conPrint(text);
}

std::string hex16(uint64_t value)
{
    char buffer[24];
    std::snprintf(buffer, sizeof buffer, "%016" PRIx64, value);
    return buffer;
}

const CommandRegistry& registry() { return CommandRegistry::instance(); }

std::string lowerCase(std::string word)
{
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return word;
}

std::string badName(const std::string& name)
{
    return "Bad demo name \"" + name + "\": use letters, digits, '-', '_' and '.'";
}
}

DemoManager::DemoManager(Game& owner) : game(owner) {}

DemoManager::~DemoManager() { CommandRegistry::instance().watcher = nullptr; }

const std::vector<std::string>& DemoManager::simulationVars()
{
    static const std::vector<std::string> names = {"gravity", "movemode", "maxgibs", "difficulty"};
    return names;
}

const std::vector<std::string>& DemoManager::cheatVars()
{
    // Difficulty is the player's choice and maxgibs only thins the debris.
    static const std::vector<std::string> names = {"gravity", "movemode"};
    return names;
}

bool DemoManager::isDemoCommand(const std::string& text)
{
    const size_t start = text.find_first_not_of(" \t");
    if (start == std::string::npos)
        return false;
    const size_t end = text.find_first_of(" \t;", start);
    std::string word = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return std::find(std::begin(demoCommands), std::end(demoCommands), word) != std::end(demoCommands);
}

bool DemoManager::isCheat(const std::string& command)
{
    static const char* const cheatCommands[] = {"god",    "noclip", "give",        "giveall",      "upgrade",
                                                "warp",   "warpto", "warpnearest", "invis",        "killvelocity",
                                                "map",    "loadgame", "fireplayer", "fireplayeratmouse"};
    const std::string word = lowerCase(command);
    return std::find(std::begin(cheatCommands), std::end(cheatCommands), word) != std::end(cheatCommands);
}

void DemoManager::registerCommands()
{
    traceVar = findVar("demotrace");
    // Whatever way a command arrives (a key, a script it execs), it passes here.
    CommandRegistry::instance().watcher = [this](const std::string& command) {
        if (mode != Mode::idle && isCheat(command))
            noteCheat(lowerCase(command));
    };
    registerCommand("record a demo from a fresh start of a level: recorddemo <name> [level] [spawn point]",
                    "recorddemo", [this] {
                        if (registry().argumentCount < 1) {
                            say("Usage: recorddemo <name> [level] [spawn point]");
                            return;
                        }
                        record(registry().arg(0), registry().arg(1), registry().arg(2));
                    });
    registerCommand("stop recording or playing a demo", "stopdemo", [this] {
        if (mode == Mode::idle)
            say("No demo is recording or playing");
        stop();
    });
    registerCommand("play a demo back in real time: playdemo <name>", "playdemo", [this] {
        if (registry().argumentCount < 1) {
            say("Usage: playdemo <name>");
            return;
        }
        play(registry().arg(0));
    });
    registerCommand("play a demo as fast as possible and print the step times: timedemo <name> [nodraw]",
                    "timedemo", [this] {
                        if (registry().argumentCount < 1) {
                            say("Usage: timedemo <name> [nodraw]");
                            return;
                        }
                        const std::string name = registry().arg(0);
                        runTimed(name, registry().arg(1) != "nodraw", false);
                    });
    registerCommand("replay a demo's input and store fresh world hashes: rehashdemo <name>", "rehashdemo",
                    [this] {
                        if (registry().argumentCount < 1) {
                            say("Usage: rehashdemo <name>");
                            return;
                        }
                        const std::string name = registry().arg(0);
                        runTimed(name, false, true);
                    });
}

bool DemoManager::startSession()
{
    if (game.isPaused())
        game.unpause();
    game.setNoclip(false);
    // Seeded before the level loads: its bodies may roll dice as they are made.
    std::srand(demo.seed);
    game.resetPlayer();
    game.loadLevel(demo.level, demo.entry);
    if (!game.isLevelLoaded() || game.getCurrentLevel() != demo.level)
        return false;
    if (auto* player = dynamic_cast<Player*>(game.getPlayer()); player && demo.player)
        givePlayerState(*player, *demo.player);
    cheatsSeen.clear();
    // Set before the start, a replay sets it again from the file: either way it ran.
    for (const std::string& var : cheatVars())
        if (const GameVar* v = findVar(var); v && !v->isDefault())
            noteCheat("set " + var);
    completionLine.clear();
    completedStep = 0;
    completionPending = completionReported = false;
    startVars.clear();
    for (const std::string& var : simulationVars())
        if (const GameVar* v = findVar(var))
            startVars.emplace_back(var, v->stringValue);
    if (GameInput* input = game.getGameInput())
        input->releaseAll();
    GameplayInput::fireWeaponId = 0;
    step = 0;
    nextEvent = nextAim = nextCheckpoint = 0;
    aimRecorded = false;
    aim = Vector();
    pending.clear();
    fresh.clear();
    return true;
}

bool DemoManager::record(const std::string& demoName, const std::string& level, const std::string& entry,
                         const Demo::PlayerState* carried)
{
    stop();
    if (!Demo::isDemoName(demoName)) {
        finish(Outcome::failed, badName(demoName));
        return false;
    }
    const std::string levelName = level.empty() ? game.getCurrentLevel() : level;
    if (levelName.empty() || (level.empty() && !game.isLevelLoaded())) {
        finish(Outcome::failed, "No level is loaded: recorddemo <name> <level>");
        return false;
    }
    if (!game.canLoadLevel(levelName)) {
        finish(Outcome::failed, "Cannot record demo " + demoName + ": level " + levelName + " cannot be loaded");
        return false;
    }
    demo.clear();
    demo.level = levelName;
    demo.entry = entry;
    // Any seed will do; the clock makes each recording its own.
    demo.seed = Clock::ticks() * 2654435761u + 1u;
    for (const std::string& var : simulationVars())
        if (const GameVar* v = findVar(var))
            demo.vars.emplace_back(var, v->stringValue);
    if (carried)
        demo.player = *carried;
    if (!startSession()) {
        demo.clear();
        finish(Outcome::failed, "Cannot record demo " + demoName + ": level " + levelName + " did not load");
        return false;
    }
    name = demoName;
    mode = Mode::recording;
    say("Recording demo " + Demo::pathFor(name) + " on level " + levelName);
    return true;
}

bool DemoManager::startPlayback(const std::string& demoName, Mode playMode)
{
    stop();
    if (!Demo::isDemoName(demoName)) {
        finish(Outcome::failed, badName(demoName));
        return false;
    }
    const std::string path = Demo::pathFor(demoName);
    std::string error;
    if (!loadDemo(path, error)) {
        finish(Outcome::failed, "Bad demo file " + path + ": " + error);
        return false;
    }
    if (!game.canLoadLevel(demo.level)) {
        const std::string level = demo.level;
        demo.clear();
        finish(Outcome::failed, "Bad demo file " + path + ": its level " + level + " cannot be loaded");
        return false;
    }
    savedVars.clear();
    // Demos from before difficulty existed were played at normal.
    std::vector<std::pair<std::string, std::string>> vars = demo.vars;
    if (std::none_of(vars.begin(), vars.end(), [](const auto& v) { return v.first == "difficulty"; }))
        vars.emplace_back("difficulty", "1");
    for (const auto& [var, value] : vars) {
        GameVar* v = findVar(var);
        if (!v) {
            say("Demo " + demoName + ": the game has no variable " + var + "; ignored");
            continue;
        }
        savedVars.emplace_back(var, v->stringValue);
        v->setString(value);
    }
    if (!startSession()) {
        restoreVars();
        const std::string level = demo.level;
        demo.clear();
        finish(Outcome::failed, "Demo " + demoName + ": level " + level + " did not load");
        return false;
    }
    name = demoName;
    mode = playMode;
    say("Playing demo " + path + ": level " + demo.level + ", " + std::to_string(demo.steps) + " steps");
    if (demo.steps == 0)
        finish(Outcome::matched, "Demo " + name + " played: 0 steps");
    return true;
}

bool DemoManager::loadDemo(const std::string& path, std::string& error)
{
    // The player's own recordings first, then the shipped ones beside the data.
    if (std::filesystem::exists(path))
        return demo.load(path, error);
    size_t size = 0;
    bool failed = false;
    const std::unique_ptr<char[]> bytes = ResourceManager::instance().getBytes(path, size, failed);
    if (!bytes || failed) {
        demo.clear();
        error = "cannot be read";
        return false;
    }
    if (size > Demo::maxFileBytes) {
        demo.clear();
        error = "larger than " + std::to_string(Demo::maxFileBytes >> 20) + " MiB";
        return false;
    }
    std::istringstream in(std::string(bytes.get(), size));
    return demo.read(in, error);
}

bool DemoManager::play(const std::string& demoName) { return startPlayback(demoName, Mode::playing); }

bool DemoManager::runTimed(const std::string& demoName, bool draw, bool rehash)
{
    if (!startPlayback(demoName, rehash ? Mode::rehashing : Mode::playing))
        return false;
    StepProfile profile;
    const double started = Clock::profileSeconds();
    while (isPlaying()) {
        if (Game::terminateRequested() || game.isQuitting()) {
            finish(Outcome::stopped, "Demo " + name + " stopped at step " + std::to_string(step) + " of " +
                                         std::to_string(demo.steps));
            break;
        }
        game.runPendingRequests();
        if (!game.isLevelLoaded() || !game.isWorldRunning()) {
            finish(Outcome::failed, "Demo " + name + ": the world stopped running at step " +
                                        std::to_string(step) + " of " + std::to_string(demo.steps));
            break;
        }
        profile.startStep();
        game.stepWorld(&profile);
        game.stepParticles(Game::stepSeconds);
        profile.lap(StepProfile::particles);
        if (draw) {
            game.drawStepFrame();
            profile.lap(StepProfile::drawing);
        }
        profile.endStep();
    }
    const double seconds = Clock::profileSeconds() - started;
    // The frame clock sat still while the steps ran; do not let the next
    // frame try to catch up on all of it.
    game.tickTimer();
    game.tickTimer();
    if (!rehash && profile.steps() > 0) {
        const std::string report = profile.report("timedemo " + demoName, seconds, draw);
        size_t start = 0;
        while (start < report.size()) {
            const size_t end = report.find('\n', start);
            say(report.substr(start, end - start));
            start = end == std::string::npos ? report.size() : end + 1;
        }
    }
    return lastOutcome == Outcome::matched || lastOutcome == Outcome::rehashed;
}

void DemoManager::stop()
{
    if (mode == Mode::recording) {
        // The world as the last step left it: keys and the cursor may have
        // moved since, but no step saw that.
        if (step > 0 && (demo.checkpoints.empty() || demo.checkpoints.back().step != step))
            demo.checkpoints.push_back({step, lastHash.world, lastHash.bodies});
        demo.steps = step;
        reportCompletion();
        mode = Mode::idle;
        const std::string path = Demo::pathFor(name);
        if (demo.save(path)) {
            finish(Outcome::recorded, "Recorded demo " + path + ": " + std::to_string(step) + " steps (" +
                                          std::to_string(step / 40) + " s)");
        } else {
            finish(Outcome::failed, "Could not write demo " + path);
        }
        return;
    }
    if (isPlaying())
        finish(Outcome::stopped, "Demo " + name + " stopped at step " + std::to_string(step) + " of " +
                                     std::to_string(demo.steps));
}

void DemoManager::finish(Outcome result, const std::string& text)
{
    const bool wasPlaying = isPlaying();
    mode = Mode::idle;
    lastOutcome = result;
    lastMessage = text;
    say(text);
    if (wasPlaying) {
        restoreVars();
        // The player takes over with nothing held down.
        if (GameInput* input = game.getGameInput())
            input->releaseAll();
    }
}

void DemoManager::restoreVars()
{
    for (const auto& [var, value] : savedVars)
        if (GameVar* v = findVar(var))
            v->setString(value);
    savedVars.clear();
}

void DemoManager::noteCommand(const std::string& text)
{
    if (mode != Mode::recording || text.empty() || isDemoCommand(text))
        return;
    Demo::Event event;
    event.step = step;
    // One line per command in the file.
    event.text = text.substr(0, std::min(text.find_first_of("\r\n"), Demo::maxCommandBytes));
    if (!event.text.empty())
        pending.push_back(std::move(event));
}

void DemoManager::noteRelease()
{
    if (mode != Mode::recording)
        return;
    Demo::Event event;
    event.step = step;
    event.kind = Demo::EventKind::releaseAll;
    pending.push_back(std::move(event));
}

void DemoManager::beforeStep()
{
    auto* player = dynamic_cast<Player*>(game.getPlayer());
    if (mode == Mode::recording) {
        for (Demo::Event& event : pending) {
            event.step = step;
            demo.events.push_back(std::move(event));
        }
        pending.clear();
        if (player && (!aimRecorded || player->mouseWorldPos.x != aim.x || player->mouseWorldPos.y != aim.y)) {
            aim = player->mouseWorldPos;
            aimRecorded = true;
            demo.aims.push_back({step, aim.x, aim.y});
        }
        return;
    }
    if (!isPlaying())
        return;
    while (nextEvent < demo.events.size() && demo.events[nextEvent].step <= step) {
        const Demo::Event& event = demo.events[nextEvent++];
        if (event.kind == Demo::EventKind::releaseAll) {
            if (GameInput* input = game.getGameInput())
                input->releaseAll();
        } else {
            CommandRegistry::instance().execute(event.text);
        }
        // A command may have ended the playback (stopdemo typed mid-demo).
        if (!isPlaying())
            return;
    }
    while (nextAim < demo.aims.size() && demo.aims[nextAim].step <= step) {
        aim = Vector(demo.aims[nextAim].x, demo.aims[nextAim].y, 0.0f);
        ++nextAim;
    }
    if (player)
        player->mouseWorldPos = aim;
}

void DemoManager::afterStep()
{
    if (mode == Mode::idle)
        return;
    ++step;
    checkVariables();
    if (completionPending) {
        completionPending = false;
        completedStep = step;
    }
    if (mode == Mode::recording) {
        // The stop may come before the next checkpoint: keep this step's hash.
        WorldHash::compute(game, lastHash);
        if (step % demo.hashInterval == 0)
            demo.checkpoints.push_back({step, lastHash.world, lastHash.bodies});
        // The demo ends where the level does; the next one goes on from there.
        if (completedStep == step)
            stop();
        return;
    }
    if (traceVar && traceVar->intValue > 0 && step % static_cast<uint32_t>(traceVar->intValue) == 0)
        trace();
    if (mode == Mode::rehashing) {
        if (step % demo.hashInterval == 0 || step == demo.steps || step == completedStep) {
            WorldHash::Result hash = WorldHash::compute(game);
            fresh.push_back({step, hash.world, std::move(hash.bodies)});
        }
    } else if (nextCheckpoint < demo.checkpoints.size() && demo.checkpoints[nextCheckpoint].step == step) {
        const Demo::Checkpoint& expected = demo.checkpoints[nextCheckpoint++];
        const WorldHash::Result got = WorldHash::compute(game);
        if (got.world != expected.hash) {
            finish(Outcome::diverged, describeDivergence(expected, got));
            return;
        }
    }
    if (completedStep == step)
        reportCompletion();
    // A cut scene at the exit ends the demo there; a plain level change may
    // go on into the next level.
    if (step < demo.steps && (completedStep != step || game.isWorldRunning()))
        return;
    reportCompletion();
    if (mode == Mode::rehashing) {
        const size_t count = fresh.size();
        demo.steps = step;
        demo.checkpoints = std::move(fresh);
        fresh.clear();
        const std::string path = Demo::pathFor(name);
        if (demo.save(path))
            finish(Outcome::rehashed, "Demo " + name + " rehashed: " + std::to_string(demo.steps) + " steps, " +
                                          std::to_string(count) + " world hashes written to " + path);
        else
            finish(Outcome::failed, "Could not write demo " + path);
        return;
    }
    finish(Outcome::matched, "Demo " + name + " played: " + std::to_string(step) + " steps, all " +
                                 std::to_string(nextCheckpoint) + " world hashes matched");
}

std::string DemoManager::bodyLabel(int id) const
{
    for (const Body* body : game.getBodies())
        if (body->autoid == id)
            return std::to_string(id) + " (" + body->type + (body->id.empty() || body->id == "generic" ? "" : " " + body->id) + ")";
    return std::to_string(id);
}

std::string DemoManager::describeDivergence(const Demo::Checkpoint& expected, const WorldHash::Result& got) const
{
    const uint32_t from = expected.step > demo.hashInterval ? expected.step - demo.hashInterval : 0;
    std::string text = "Demo " + name + " diverged between steps " + std::to_string(from) + " and " +
                       std::to_string(expected.step) + ": world hash " + hex16(got.world) + ", recorded " +
                       hex16(expected.hash);
    std::map<int, uint32_t> recorded;
    for (const Demo::BodyDigest& body : expected.bodies)
        recorded[body.id] = body.digest;
    std::vector<std::string> differ, extra;
    for (const Demo::BodyDigest& body : got.bodies) {
        auto it = recorded.find(body.id);
        if (it == recorded.end()) {
            extra.push_back(bodyLabel(body.id));
            continue;
        }
        if (it->second != body.digest)
            differ.push_back(bodyLabel(body.id));
        recorded.erase(it);
    }
    auto list = [](const std::vector<std::string>& items) {
        std::string out;
        for (size_t i = 0; i < items.size() && i < 12; ++i)
            out += (i ? ", " : "") + items[i];
        if (items.size() > 12)
            out += " and " + std::to_string(items.size() - 12) + " more";
        return out;
    };
    std::vector<std::string> missing;
    for (const auto& [id, digest] : recorded)
        missing.push_back(std::to_string(id));
    if (!differ.empty())
        text += "; bodies that differ: " + list(differ);
    if (!missing.empty())
        text += "; bodies missing: " + list(missing);
    if (!extra.empty())
        text += "; bodies not in the recording: " + list(extra);
    if (differ.empty() && missing.empty() && extra.empty())
        text += "; every body agrees, so the controls, weapon, cash or level clock differ";
    return text;
}

void DemoManager::trace() const
{
    const auto* player = dynamic_cast<const Player*>(game.getPlayer());
    if (!player)
        return;
    char line[256];
    std::snprintf(line, sizeof line, "demo %s step %u: player at %.1f %.1f, health %d, armour %d, weapon %d, cash %d%s",
                  name.c_str(), step, static_cast<double>(player->pos.x), static_cast<double>(player->pos.y),
                  player->health, player->armour, player->inventory.currentWeapon, player->properties.cash,
                  player->dead ? ", dead" : "");
    std::printf("%s\n", line);
}

void DemoManager::noteLevelCompleted()
{
    if (mode != Mode::idle && completedStep == 0)
        completionPending = true;
}

void DemoManager::noteCheat(const std::string& what)
{
    if (std::find(cheatsSeen.begin(), cheatsSeen.end(), what) == cheatsSeen.end())
        cheatsSeen.push_back(what);
}

void DemoManager::checkVariables()
{
    for (const auto& [var, value] : startVars)
        if (const GameVar* v = findVar(var); v && v->stringValue != value)
            noteCheat("set " + var);
}

void DemoManager::reportCompletion()
{
    if (completionReported)
        return;
    completionReported = true;
    std::string cheats;
    for (const std::string& cheat : cheatsSeen)
        cheats += (cheats.empty() ? "" : ", ") + cheat;
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.1f", static_cast<double>(completedStep) / 40.0);
    const std::string outcome =
        completedStep > 0 ? std::string(" completed in ") + seconds + " s" : std::string(" not completed");
    completionLine =
        "demo " + name + ": level " + demo.level + outcome + ", cheats: " + (cheats.empty() ? "none" : cheats);
    say(completionLine);
}

Demo::PlayerState DemoManager::playerState(const Player& player)
{
    using State = Demo::PlayerState;
    State state;
    state.health = std::clamp(player.health, 1, State::maxHealth);
    state.armour = std::clamp(player.armour, 0, State::maxHealth);
    state.cash = std::clamp(player.properties.cash, 0, State::maxCash);
    state.upgrade = std::clamp(player.properties.currentLevel, 0, 12);
    state.healthLevel = std::clamp(player.properties.healthLevel, 1, 5);
    state.armourLevel = std::clamp(player.properties.armourLevel, 1, 5);
    state.swarmLevel = std::clamp(player.properties.swarmLevel, 1, 5);
    state.weapon = std::clamp(player.inventory.currentWeapon, 1, 11);
    for (int id = 1; id <= 11; ++id)
        if (player.inventory.owns(id))
            state.owns.push_back(id);
    for (const auto& [type, count] : player.inventory.ammo)
        if (type >= 0 && type <= 11)
            state.ammo.emplace_back(type, std::clamp(count, -1, State::maxAmmo));
    return state;
}

void DemoManager::givePlayerState(Player& player, const Demo::PlayerState& state)
{
    PlayerProperties& properties = player.properties;
    properties.cash = state.cash;
    properties.currentLevel = state.upgrade;
    properties.setHealthLevel(state.healthLevel);
    properties.setArmourLevel(state.armourLevel);
    properties.setSwarmLevel(state.swarmLevel);
    player.maxhealth = properties.maxHealth;
    player.maxarmour = properties.maxArmour;
    player.health = state.health;
    player.armour = state.armour;
    Inventory& inventory = player.inventory;
    for (int id = 1; id <= 11; ++id)
        inventory.owned[id] = 0;
    for (int id : state.owns)
        inventory.owned[id] = 1;
    for (const auto& [type, count] : state.ammo)
        inventory.ammo[type] = count;
    if (inventory.owns(state.weapon))
        inventory.currentWeapon = state.weapon;
}
