// Cost per live particle of the particle manager's step and draw, with
// 10,000 particles in 100 systems, against a flat array doing the same
// arithmetic and writing the same vertices. Compare Particles/* with
// FlatArray/* of one run; items are live particles.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "render/NullRenderer.h"

namespace {
constexpr int systemCount = 100;
constexpr int perSystem = 100;
constexpr float step = 1.0f / 120.0f;

// Stands in for the GL vertex stream: every quad lands in one buffer.
class StreamRenderer : public NullRenderer {
public:
    void setColour(float r, float g, float b, float a) override
    {
        colour[0] = r, colour[1] = g, colour[2] = b, colour[3] = a;
    }
    void beginQuads() override { used = 0; }
    void drawCentredQuad(float cx, float cy, float z, float hw, float hh, bool) override
    {
        if (used + 28 > stream.size())
            stream.resize(stream.size() * 2 + 28);
        float* out = &stream[used];
        const float xs[4] = {cx - hw, cx + hw, cx + hw, cx - hw};
        const float ys[4] = {cy + hh, cy + hh, cy - hh, cy - hh};
        for (int i = 0; i < 4; ++i, out += 7) {
            out[0] = xs[i], out[1] = ys[i], out[2] = z;
            out[3] = colour[0], out[4] = colour[1], out[5] = colour[2], out[6] = colour[3];
        }
        used += 28;
    }
    std::vector<float> stream = std::vector<float>(1 << 20);
    size_t used = 0;
    float colour[4] = {};
};

ParticleSystemParams immortalBurst()
{
    ParticleSystemParams p;
    p.id = "bench";
    p.initialParticles = perSystem;
    p.maxParticles = perSystem;
    p.particleLifeTime = -1.0f;
    p.generationShape = "sphere";
    p.vel.set(40, 40, 0);
    p.acc.set(0, -20, 0);
    p.colour.set(255, 200, 100, 255);
    p.colourVel.set(-1, -1, -1, -0.001f);
    p.dimension.set(4, 4);
    p.endDimension.set(6, 6);
    return p;
}

struct Scene {
    StreamRenderer renderer;
    ParticleSystemParams params = immortalBurst();
    ParticleManager manager;
    Scene()
    {
        std::srand(5);
        manager.setRenderer(&renderer);
        manager.init();
        for (int i = 0; i < systemCount; ++i) {
            ParticleSystem* s = manager.createSystem("default");
            s->params = &params;
            s->systemLifeTime = 0.0f;
            s->paused = true;
            s->deleteParticles();
            s->maxParticles = perSystem;
            s->init();
            s->position.set(static_cast<float>(i % 10) * 20.0f, static_cast<float>(i / 10) * 20.0f, 0);
            s->emitInitial();
        }
    }
};

void Particles_Update(benchmark::State& state)
{
    Scene scene;
    for (auto _ : state)
        scene.manager.update(step);
    state.SetItemsProcessed(state.iterations() * scene.manager.countParticles());
}
BENCHMARK(Particles_Update);

void Particles_Draw(benchmark::State& state)
{
    Scene scene;
    for (auto _ : state) {
        scene.manager.draw();
        benchmark::DoNotOptimize(scene.renderer.stream.data());
    }
    state.SetItemsProcessed(state.iterations() * scene.manager.countParticles());
}
BENCHMARK(Particles_Draw);

// The baseline: one structure of arrays for all 10,000 particles.
struct Flat {
    static constexpr int n = systemCount * perSystem;
    std::vector<float> x = std::vector<float>(n), y = std::vector<float>(n), z = std::vector<float>(n, 2.0f);
    std::vector<float> vx = std::vector<float>(n), vy = std::vector<float>(n);
    std::vector<float> ax = std::vector<float>(n), ay = std::vector<float>(n, -20.0f);
    std::vector<float> r = std::vector<float>(n, 255), g = std::vector<float>(n, 200), b = std::vector<float>(n, 100),
                       a = std::vector<float>(n, 255);
    std::vector<float> w = std::vector<float>(n, 4), h = std::vector<float>(n, 4), age = std::vector<float>(n);
    std::vector<float> stream = std::vector<float>(static_cast<size_t>(n) * 28);
    Flat()
    {
        std::srand(5);
        for (int i = 0; i < n; ++i) {
            vx[i] = static_cast<float>(std::rand() % 80 - 40);
            vy[i] = static_cast<float>(std::rand() % 80 - 40);
        }
    }
};

float clamp255(float v) { return std::max(0.0f, std::min(255.0f, v)); }

void FlatArray_Update(benchmark::State& state)
{
    Flat f;
    for (auto _ : state) {
        for (int i = 0; i < Flat::n; ++i) {
            f.x[i] += f.vx[i] * step;
            f.y[i] += f.vy[i] * step;
            f.vx[i] += f.ax[i] * step;
            f.vy[i] += f.ay[i] * step;
            f.r[i] = clamp255(f.r[i] - step);
            f.g[i] = clamp255(f.g[i] - step);
            f.b[i] = clamp255(f.b[i] - step);
            f.a[i] = clamp255(f.a[i] - 0.001f * step);
            f.w[i] += 2.0f * step;
            f.h[i] += 2.0f * step;
            f.age[i] += step;
        }
        benchmark::DoNotOptimize(f.x.data());
    }
    state.SetItemsProcessed(state.iterations() * Flat::n);
}
BENCHMARK(FlatArray_Update);

void FlatArray_Draw(benchmark::State& state)
{
    Flat f;
    for (auto _ : state) {
        float* out = f.stream.data();
        for (int i = 0; i < Flat::n; ++i) {
            if (f.a[i] < 1.0f)
                continue;
            const float hw = f.w[i] * 0.5f, hh = f.h[i] * 0.5f;
            const float xs[4] = {f.x[i] - hw, f.x[i] + hw, f.x[i] + hw, f.x[i] - hw};
            const float ys[4] = {f.y[i] + hh, f.y[i] + hh, f.y[i] - hh, f.y[i] - hh};
            for (int c = 0; c < 4; ++c, out += 7) {
                out[0] = xs[c], out[1] = ys[c], out[2] = f.z[i];
                out[3] = f.r[i], out[4] = f.g[i], out[5] = f.b[i], out[6] = f.a[i];
            }
        }
        benchmark::DoNotOptimize(f.stream.data());
    }
    state.SetItemsProcessed(state.iterations() * Flat::n);
}
BENCHMARK(FlatArray_Draw);
}
