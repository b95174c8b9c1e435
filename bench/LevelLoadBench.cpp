// Loading the largest level in the game directory's maps/ the way "map"
// does (the old level unloaded, the file read and parsed, bodies built,
// indexed and linked, the player placed), beside a bare TinyXML load of the
// same file. The load also times a bare parse between its iterations, in
// thread CPU time, and reports the ratio of the two as "vs_parse".
#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <tinyxml.h>
#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>

#include "QuietStdout.h"
#include "core/Clock.h"
#include "core/Game.h"
#include "core/ManualClock.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"

namespace {
namespace fs = std::filesystem;

// Runs in the staged game directory, so levels find their data as in play.
struct LevelFile {
    std::string name;  // as "map" takes it
    std::string path;
    std::uintmax_t bytes = 0;

    LevelFile()
    {
        std::error_code error;
        fs::current_path(BQ_GAME_DIR, error);
        for (const auto& entry : fs::directory_iterator("maps", error))
            if (entry.path().extension() == ".xml" && entry.file_size() > bytes) {
                bytes = entry.file_size();
                name = entry.path().stem().string();
                path = entry.path().string();
            }
    }
};

const LevelFile& largestLevel()
{
    static const LevelFile level;
    return level;
}

double threadSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

bool parse(const LevelFile& level)
{
    TiXmlDocument document;
    return document.LoadFile(level.path.c_str()) && document.RootElement();
}

void LevelLoad_TinyXml(benchmark::State& state)
{
    const LevelFile& level = largestLevel();
    for (auto _ : state) {
        if (!parse(level)) {
            state.SkipWithError("the level does not parse");
            return;
        }
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * level.bytes));
    state.SetLabel(level.name);
}

void LevelLoad_Game(benchmark::State& state)
{
    const LevelFile& level = largestLevel();
    QuietStdout quiet;
    ManualClock clock{10000};
    Clock::install(&clock);
    {
        Game game(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
        game.getTimer().start();
        game.startGameplay();
        double loading = 0.0, parsing = 0.0;
        for (auto _ : state) {
            const double a = threadSeconds();
            game.loadLevel(level.name, "");
            const double b = threadSeconds();
            state.PauseTiming();
            parse(level);
            parsing += threadSeconds() - b;
            state.ResumeTiming();
            loading += b - a;
        }
        state.counters["vs_parse"] = parsing > 0.0 ? loading / parsing : 0.0;
        if (!game.isLevelLoaded())
            state.SkipWithError("the level did not load");
        game.unloadLevel();
    }
    Clock::install(nullptr);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * level.bytes));
    state.SetLabel(level.name);
}
}

BENCHMARK(LevelLoad_TinyXml)->Unit(benchmark::kMillisecond)->Repetitions(3)->ReportAggregatesOnly(false);
BENCHMARK(LevelLoad_Game)->Unit(benchmark::kMillisecond)->Repetitions(3)->ReportAggregatesOnly(false);
