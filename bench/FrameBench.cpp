// Whole frames on the real renderer (run under a display, e.g. xvfb-run, with
// LP_NUM_THREADS=1 for the software rasteriser): the test level with its sky,
// bodies and particles, with and without the glow pass, against an empty
// frame (clear and swap) and a single full-screen textured additive quad.
// Run from the game directory or pass it in BQ_GAME_DIR.
#include <benchmark/benchmark.h>

#include <SDL.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "render/IRenderer.h"
#include "resources/GameDirectories.h"
#include "resources/ResourceManager.h"

namespace {

Game* startGame()
{
    static Game* game = [] () -> Game* {
        if (const char* dir = std::getenv("BQ_GAME_DIR"))
            if (chdir(dir) != 0)
                return nullptr;
        if (!std::getenv("DISPLAY"))
            return nullptr;
        const GameDirectories directories = GameDirectories::forThisProcess();
        directories.enter();
        directories.addDataSearch(ResourceManager::instance());
        static char name[] = "framebench";
        static char* argv[] = {name, const_cast<char*>("+set"), const_cast<char*>("vidwidth"), const_cast<char*>("1280"),
                               const_cast<char*>("+set"), const_cast<char*>("vidheight"), const_cast<char*>("720"),
                               const_cast<char*>("+set"), const_cast<char*>("vidfullscreen"), const_cast<char*>("0"),
                               const_cast<char*>("+map"), const_cast<char*>("test")};
        auto* g = new Game;
        g->setCommandLine(static_cast<int>(sizeof argv / sizeof argv[0]), argv);
        if (!g->init())
            return nullptr;
        // Settle the level (fades, sky particles) before measuring.
        for (int i = 0; i < 120; ++i) {
            g->pumpEvents();
            g->runFrame();
        }
        return g;
    }();
    return game;
}

Game* gameOrSkip(benchmark::State& state)
{
    Game* game = startGame();
    if (!game)
        state.SkipWithError("no display or game directory");
    return game;
}

void setBloom(int on)
{
    if (GameVar* v = findVar("drawbloom"))
        v->setInt(on);
}

// Frames of the bare renderer: clear, `draw`, swap.
template <class Draw>
void rendererFrames(benchmark::State& state, Draw draw)
{
    Game* game = gameOrSkip(state);
    if (!game)
        return;
    IRenderer& r = *game->getRenderer();
    for (auto _ : state) {
        r.beginFrame();
        draw(r);
        r.endFrame();
    }
}

void BM_EmptyFrame(benchmark::State& state)
{
    rendererFrames(state, [](IRenderer&) {});
}
BENCHMARK(BM_EmptyFrame)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_FullScreenQuad(benchmark::State& state)
{
    rendererFrames(state, [](IRenderer& r) {
        r.begin2D();
        r.setTexturing(true);
        r.setBlending(true);
        r.setAdditiveBlend();
        r.bindTexture("data/images/skyclouds.png");
        r.setColour(255.0f, 255.0f, 255.0f, 128.0f);
        r.drawQuad(0.0f, static_cast<float>(r.getHeight()), 0.0f, static_cast<float>(r.getWidth()),
                   static_cast<float>(r.getHeight()));
        r.end2D();
    });
}
BENCHMARK(BM_FullScreenQuad)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The glow pass alone over an empty frame: capture, sum, one full-window quad.
void BM_GlowPassOnly(benchmark::State& state)
{
    rendererFrames(state, [](IRenderer& r) {
        r.beginCapture();
        r.endCapture();
        r.drawGlow();
    });
}
BENCHMARK(BM_GlowPassOnly)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_TestLevelFrame(benchmark::State& state)
{
    Game* game = gameOrSkip(state);
    if (!game)
        return;
    setBloom(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        game->pumpEvents();
        game->runFrame();
    }
    setBloom(1);
}
BENCHMARK(BM_TestLevelFrame)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The test level under each shipped sky, without the glow pass.
void BM_SkyFrame(benchmark::State& state)
{
    static const char* const skies[] = {"default", "hcsky1", "hcsky2", "night", "haze", "lava"};
    Game* game = gameOrSkip(state);
    if (!game)
        return;
    const char* sky = skies[state.range(0)];
    state.SetLabel(sky);
    game->loadSky(std::string("data/sky/") + sky + ".xml");
    setBloom(0);
    for (int i = 0; i < 90; ++i) {
        game->pumpEvents();
        game->runFrame();
    }
    for (auto _ : state) {
        game->pumpEvents();
        game->runFrame();
    }
    setBloom(1);
    game->loadSky("data/sky/default.xml");
}
BENCHMARK(BM_SkyFrame)->DenseRange(0, 5)->Unit(benchmark::kMillisecond)->MinTime(1.0);

} // namespace

BENCHMARK_MAIN();
