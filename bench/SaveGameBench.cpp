// Save-game cost on a crowded level: writing the save (bodies, controller,
// player, the synced file swap) and loading it back (parse, level rebuild,
// restore). Arg = number of saved entities besides the level's floor.
#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "QuietStdout.h"
#include "core/Clock.h"
#include "core/Game.h"
#include "core/ManualClock.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"

namespace {
std::string box(const char* type, int i, float x, float y, float size, const char* params)
{
    auto v = [](float vx, float vy) { return "<v origin=\"" + std::to_string(vx) + "," + std::to_string(vy) + "\"/>"; };
    return std::string("<P type=\"") + type + "\" idname=\"b" + std::to_string(i) + "\"><params " + params +
           "/><verts>" + v(x, y) + v(x + size, y) + v(x + size, y + size) + v(x, y + size) + "</verts></P>";
}

// A scratch directory with maps/crowd.xml: a floor, and rows of crates and
// triggers as entities.
struct CrowdedGame {
    explicit CrowdedGame(int entities)
    {
        char pattern[] = "/tmp/bqsavebenchXXXXXX";
        previous = std::filesystem::current_path();
        if (!mkdtemp(pattern) || chdir(pattern) != 0)
            std::abort();
        directory = pattern;
        std::filesystem::create_directories("maps");
        std::ofstream level("maps/crowd.xml");
        level << "<level><Objects>" << box("default", -1, -20000, -100, 40000, "mass=\"0\" solid=\"true\"");
        for (int i = 0; i < entities; ++i)
            level << box(i % 2 ? "trigger" : "default", i, static_cast<float>(i % 100) * 40.0f,
                         static_cast<float>(i / 100) * 40.0f + 10.0f, 16.0f,
                         i % 2 ? "mass=\"0\" solid=\"false\" entity=\"true\""
                               : "mass=\"10\" solid=\"true\" entity=\"true\"");
        level << "</Objects></level>";
        level.close();
        Clock::install(&clock);
        game = std::make_unique<Game>(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
        game->getTimer().start();
        game->setGravityOverride(-80.0f);
        game->startGameplay();
        game->loadLevel("crowd", "");
        game->setPendingSaveName("bench");
    }
    ~CrowdedGame()
    {
        game.reset();
        Clock::install(nullptr);
        std::filesystem::current_path(previous);
        std::filesystem::remove_all(directory);
    }
    ManualClock clock{10000};
    std::unique_ptr<Game> game;
    std::string directory;
    std::filesystem::path previous;
};

void BM_SaveGame(benchmark::State& state)
{
    QuietStdout quiet;
    CrowdedGame crowd(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        crowd.game->requestSave();
        crowd.game->saveGame();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_SaveGame)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

void BM_LoadGame(benchmark::State& state)
{
    QuietStdout quiet;
    CrowdedGame crowd(static_cast<int>(state.range(0)));
    crowd.game->saveGame();
    for (auto _ : state)
        crowd.game->loadGame("bench");
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_LoadGame)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
}
