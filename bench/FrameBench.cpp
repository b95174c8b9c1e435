// Whole frames on the real renderer (run under a display, e.g. xvfb-run, with
// LP_NUM_THREADS=1 for the software rasteriser): the test level with its sky,
// bodies and particles, with and without the glow pass, against an empty
// frame (clear and swap) and a single full-screen textured additive quad;
// then each shipped level where its player starts, as a count of those quads
// ("BM_LevelFrame/<level>", quads=) and pass by pass ("BM_LevelPasses/<level>").
// Run from the game directory or pass it in BQ_GAME_DIR.
#include <benchmark/benchmark.h>

#include <SDL.h>
#include <unistd.h>

#include <GL/gl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "core/Game.h"
#include "core/ManualClock.h"
#include "gameplay/IGameplay.h"
#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "render/BaseSky.h"
#include "render/IRenderer.h"
#include "render/Renderer.h"
#include "render/SkyManager.h"
#include "world/body/Body.h"
#include "resources/GameDirectories.h"
#include "resources/ResourceManager.h"

namespace {

// With BQ_FRAME_SHOTS=dir the bench runs on a clock that moves only when
// told, and writes still frames there drawn with and without reuse.
ManualClock shotClock(1000);

bool shotMode() { return std::getenv("BQ_FRAME_SHOTS") != nullptr; }

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
        if (shotMode())
            Clock::install(&shotClock);
        auto* g = new Game;
        g->setCommandLine(static_cast<int>(sizeof argv / sizeof argv[0]), argv);
        if (!g->init())
            return nullptr;
        // Settle the level (fades, sky particles) before measuring.
        for (int i = 0; i < 120 && !Game::terminateRequested(); ++i) {
            shotClock.advance(33);
            g->pumpEvents();
            g->runFrame();
        }
        return g;
    }();
    return game;
}

// The game's SIGTERM handler only notes the signal; every loop here checks
// it so the bench stops like the game does.
bool stopping(benchmark::State& state)
{
    if (!Game::terminateRequested())
        return false;
    state.SkipWithError("stopped by SIGTERM");
    return true;
}

Game* gameOrSkip(benchmark::State& state)
{
    Game* game = startGame();
    if (!game)
        state.SkipWithError("no display or game directory");
    else if (stopping(state))
        return nullptr;
    return game;
}

void setBloom(int on)
{
    if (GameVar* v = findVar("drawbloom"))
        v->setInt(on);
}

// Off: every frame drawn in full, as before the renderer kept anything.
void setReuse(Game& game, bool on)
{
    if (auto* renderer = dynamic_cast<Renderer*>(game.getRenderer()))
        renderer->setFrameReuse(on);
}

void labelReuse(benchmark::State& state, bool on) { state.SetLabel(on ? "reuse" : "full"); }

// Frames of the bare renderer: clear, `draw`, swap.
template <class Draw>
void rendererFrames(benchmark::State& state, Draw draw)
{
    Game* game = gameOrSkip(state);
    if (!game)
        return;
    IRenderer& r = *game->getRenderer();
    for (auto _ : state) {
        if (stopping(state))
            break;
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

// The unit frames are counted in: one textured, blended quad over the window.
void drawFullScreenQuad(IRenderer& r)
{
    r.begin2D();
    r.setTexturing(true);
    r.setBlending(true);
    r.setAdditiveBlend();
    r.bindTexture("data/images/skyclouds.png");
    r.setColour(255.0f, 255.0f, 255.0f, 128.0f);
    r.drawQuad(0.0f, static_cast<float>(r.getHeight()), 0.0f, static_cast<float>(r.getWidth()),
               static_cast<float>(r.getHeight()));
    r.end2D();
}

void BM_FullScreenQuad(benchmark::State& state)
{
    rendererFrames(state, drawFullScreenQuad);
}
BENCHMARK(BM_FullScreenQuad)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The glow pass alone over an empty frame: capture, sum, the glow on the window
// (one full-window quad when nothing is reused; with nothing captured, nothing).
void BM_GlowPassOnly(benchmark::State& state)
{
    Game* game = gameOrSkip(state);
    if (!game)
        return;
    const bool reuse = state.range(0) != 0;
    labelReuse(state, reuse);
    setReuse(*game, reuse);
    rendererFrames(state, [](IRenderer& r) {
        r.beginCapture();
        r.endCapture();
        r.drawGlow();
    });
    setReuse(*game, true);
}
BENCHMARK(BM_GlowPassOnly)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// Arguments: glow pass on, frame reuse on.
void BM_TestLevelFrame(benchmark::State& state)
{
    Game* game = gameOrSkip(state);
    if (!game)
        return;
    const bool reuse = state.range(1) != 0;
    labelReuse(state, reuse);
    setReuse(*game, reuse);
    setBloom(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        if (stopping(state))
            break;
        game->pumpEvents();
        game->runFrame();
    }
    setBloom(1);
    setReuse(*game, true);
}
BENCHMARK(BM_TestLevelFrame)
    ->ArgsProduct({{0, 1}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2.0);

// The test level under each shipped sky, without the glow pass.
void BM_SkyFrame(benchmark::State& state)
{
    static const char* const skies[] = {"default", "hcsky1", "hcsky2", "night", "haze", "lava"};
    Game* game = gameOrSkip(state);
    if (!game)
        return;
    const char* sky = skies[state.range(0)];
    const bool reuse = state.range(1) != 0;
    state.SetLabel(std::string(sky) + (reuse ? " reuse" : " full"));
    setReuse(*game, reuse);
    game->loadSky(std::string("data/sky/") + sky + ".xml");
    setBloom(0);
    for (int i = 0; i < 90 && !Game::terminateRequested(); ++i) {
        game->pumpEvents();
        game->runFrame();
    }
    for (auto _ : state) {
        if (stopping(state))
            break;
        game->pumpEvents();
        game->runFrame();
    }
    setBloom(1);
    setReuse(*game, true);
    game->loadSky("data/sky/default.xml");
}
BENCHMARK(BM_SkyFrame)
    ->ArgsProduct({benchmark::CreateDenseRange(0, 5, 1), {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(1.0);


// Every shipped level by name, sorted, for the per-level frames below.
const std::vector<std::string>& shippedLevels()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> found;
        if (const char* dir = std::getenv("BQ_GAME_DIR"))
            if (chdir(dir) != 0)
                return found;
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator("maps", error))
            if (entry.path().extension() == ".xml")
                found.push_back(entry.path().stem().string());
        std::sort(found.begin(), found.end());
        return found;
    }();
    return names;
}

// All threads of this process, so llvmpipe's rasteriser counts and other
// programs on a shared machine do not.
double processSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

// The game with a shipped level loaded and run for a second, so the frames
// measured after it are the ones a player sees, not the first uploads.
Game* levelAtStart(benchmark::State& state, const std::string& name)
{
    Game* game = gameOrSkip(state);
    if (!game)
        return nullptr;
    game->loadLevel(name, "");
    for (int i = 0; i < 60 && !Game::terminateRequested(); ++i) {
        game->pumpEvents();
        game->runFrame();
    }
    return game;
}

// A game frame of a level where its player starts, as the game runs it
// (glow and reuse as configured), beside the full-screen quad frame measured
// between its frames: "quads" is one in the other, in process CPU time.
// Registered per level in main, as "BM_LevelFrame/<level>".
void BM_LevelFrame(benchmark::State& state, const std::string& name)
{
    Game* game = levelAtStart(state, name);
    if (!game)
        return;
    IRenderer& r = *game->getRenderer();
    double level = 0.0, quad = 0.0;
    for (auto _ : state) {
        if (stopping(state))
            break;
        // llvmpipe draws when flushed: finish each frame so its work lands on it.
        const double a = processSeconds();
        game->pumpEvents();
        game->runFrame();
        glFinish();
        const double b = processSeconds();
        r.beginFrame();
        drawFullScreenQuad(r);
        r.endFrame();
        glFinish();
        level += b - a;
        quad += processSeconds() - b;
    }
    state.counters["quads"] = quad > 0.0 ? level / quad : 0.0;
    game->loadLevel("test", "");
}

// Where a frame of the test level goes, pass by pass: the same drawing as the
// game's own frame, with glFinish after each pass so its cost lands on it.
// Counters are milliseconds of process CPU time (rasteriser included) per frame.
class PassTimer {
public:
    explicit PassTimer(benchmark::State& s) : state(s) { restart(); }
    void restart()
    {
        glFinish();
        last = processSeconds();
    }
    void lap(const char* pass)
    {
        glFinish();
        const double now = processSeconds();
        state.counters[pass] += 1000.0 * (now - last);
        last = now;
    }

private:
    benchmark::State& state;
    double last = 0.0;
};

void drawSkyLayers(IRenderer& r, BaseSky& sky, const Vector& camera, PassTimer& t)
{
    // Mirrors the sky's own drawing, one timed lap per rectangle.
    r.setDepthWrites(false);
    r.pushMatrix();
    r.translate(-camera.x, -camera.y, 0.0f);
    r.setBlending(true);
    r.beginBackdrop(&sky);
    int n = 0;
    static const char* const names[] = {"sky0", "sky1", "sky2", "sky3", "sky4", "sky5+"};
    for (const auto& rect : sky.rects) {
        r.setTexturing(rect->textured);
        r.setBlending(rect->blendStyle == 1 || !rect->isOpaque());
        if (rect->blendStyle == 1)
            r.setAdditiveBlend();
        else
            r.setAlphaBlend();
        sky.drawRect(r, 0.0f, *rect);
        t.lap(names[std::min(n++, 5)]);
    }
    r.endBackdrop();
    t.lap("skykept");
    r.setBlending(true);
    r.setAlphaBlend();
    if (sky.lensFlareOn)
        sky.lensFlare.draw(r);
    r.popMatrix();
    t.lap("skyflare");
    r.pushMatrix();
    r.translate(-camera.x, -camera.y, 0.0f);
    r.setBlending(true);
    r.setTexturing(true);
    for (ParticleSystem* system : sky.particleSystems)
        if (system->alive)
            system->draw();
    r.setDepthWrites(true);
    r.setAlphaBlend();
    r.popMatrix();
    t.lap("skyparticles");
}

void framePasses(benchmark::State& state, Game* game, bool reuse)
{
    if (!game || !game->getPlayer() || !game->getSkyManager()->getCurrentSky())
        return;
    setBloom(1);
    labelReuse(state, reuse);
    setReuse(*game, reuse);
    IRenderer& r = *game->getRenderer();
    std::vector<Body*> visible;
    PassTimer t(state);
    for (auto _ : state) {
        if (stopping(state))
            break;
        state.PauseTiming();
        game->pumpEvents();
        game->runFrame();
        state.ResumeTiming();
        t.restart();
        r.beginFrame();
        t.lap("clear");
        const Vector& at = game->getPlayer()->renderpos;
        r.setCamera(at.x, at.y, -256.0f);
        visible.clear();
        game->getQuadTree().collectVisible(r, visible, true, false);
        auto drawScene = [&](bool capture) {
            for (Body* body : visible)
                r.drawBody(*body);
            t.lap(capture ? "capbodies" : "bodies");
            game->getParticleManager()->draw();
            t.lap(capture ? "capparticles" : "particles");
        };
        r.beginCapture();
        drawScene(true);
        r.endCapture();
        t.lap("capcopy");
        drawSkyLayers(r, *game->getSkyManager()->getCurrentSky(), r.getCamera(), t);
        drawScene(false);
        r.drawGlow();
        t.lap("glow");
        if (IGameplay* gameplay = game->getGameplay()) {
            gameplay->drawOverlay(&r);
            gameplay->drawHud(&r, 0.0f);
        }
        t.lap("hud");
        r.endFrame();
        t.lap("swap");
    }
    for (auto& counter : state.counters)
        counter.second = counter.second / static_cast<double>(state.iterations());
    setReuse(*game, true);
}
void BM_FramePasses(benchmark::State& state) { framePasses(state, gameOrSkip(state), state.range(0) != 0); }
BENCHMARK(BM_FramePasses)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(3.0);

// The same for a shipped level where its player starts, frames kept as in play.
// Registered per level in main, as "BM_LevelPasses/<level>".
void BM_LevelPasses(benchmark::State& state, const std::string& name)
{
    Game* game = levelAtStart(state, name);
    if (!game)
        return;
    framePasses(state, game, true);
    game->loadLevel("test", "");
}

// The pictures the benchmarks time, as binary PPM files.
void writeFrame(IRenderer& r, const std::string& path)
{
    const int w = r.getWidth();
    const int h = r.getHeight();
    std::vector<unsigned char> pixels(static_cast<size_t>(w) * static_cast<size_t>(h) * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, w, h, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    FILE* f = std::fopen(path.c_str(), "wb");
    if (!f)
        return;
    std::fprintf(f, "P6\n%d %d\n255\n", w, h);
    for (int y = h - 1; y >= 0; --y)
        std::fwrite(pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(w) * 3, 1,
                    static_cast<size_t>(w) * 3, f);
    std::fclose(f);
}

// Settles the scene on the moving clock, then stops the clock and writes the
// same still frame drawn in full, with reuse (after the kept backdrop has gone
// round every band) and in full again (which shows what noise there is).
void shootScene(Game& game, Renderer& renderer, const std::string& stem)
{
    auto frames = [&](int n, uint32_t step) {
        for (int i = 0; i < n; ++i) {
            shotClock.advance(step);
            game.pumpEvents();
            game.runFrame();
        }
    };
    renderer.setFrameReuse(false);
    frames(60, 33);
    frames(2, 0);
    // runFrame ends with the world drawn but not yet swapped.
    writeFrame(renderer, stem + "_full.ppm");
    renderer.setFrameReuse(true);
    frames(12, 0);
    writeFrame(renderer, stem + "_reuse.ppm");
    renderer.setFrameReuse(false);
    frames(2, 0);
    writeFrame(renderer, stem + "_full2.ppm");
}

int writeShots(const std::string& dir)
{
    Game* game = startGame();
    auto* renderer = game ? dynamic_cast<Renderer*>(game->getRenderer()) : nullptr;
    if (!renderer)
        return 1;
    setBloom(1);
    shootScene(*game, *renderer, dir + "/level_glow");
    setBloom(0);
    shootScene(*game, *renderer, dir + "/level_noglow");
    setBloom(1);
    for (const char* sky : {"default", "hcsky1", "hcsky2", "night", "haze", "lava"}) {
        game->loadSky(std::string("data/sky/") + sky + ".xml");
        shootScene(*game, *renderer, dir + "/sky_" + sky);
    }
    renderer->setFrameReuse(true);
    // A switch fades the new sky in: the frames just after one, kept and in full.
    for (bool reuse : {false, true}) {
        renderer->setFrameReuse(reuse);
        game->loadSky("data/sky/night.xml");
        for (int i = 0; i < 40; ++i) {
            shotClock.advance(33);
            game->pumpEvents();
            game->runFrame();
        }
        game->loadSky("data/sky/hcsky1.xml");
        for (int i = 0; i < 3; ++i) {
            shotClock.advance(33);
            game->pumpEvents();
            game->runFrame();
            writeFrame(*renderer, dir + "/switch" + std::to_string(i) + (reuse ? "_reuse.ppm" : "_full.ppm"));
        }
    }
    renderer->setFrameReuse(true);
    game->loadSky("data/sky/default.xml");
    // Each shipped level where its player starts, as BM_LevelFrame draws it.
    for (const std::string& level : shippedLevels()) {
        game->loadLevel(level, "");
        shootScene(*game, *renderer, dir + "/map_" + level);
    }
    renderer->setFrameReuse(true);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (const char* dir = std::getenv("BQ_FRAME_SHOTS"))
        return writeShots(dir);
    for (const std::string& level : shippedLevels())
        benchmark::RegisterBenchmark(("BM_LevelFrame/" + level).c_str(), BM_LevelFrame, level)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime()
            ->MinTime(2.0);
    for (const std::string& level : shippedLevels())
        benchmark::RegisterBenchmark(("BM_LevelPasses/" + level).c_str(), BM_LevelPasses, level)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime()
            ->MinTime(2.0);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
