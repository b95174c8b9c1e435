// Spatial queries through the quadtree against a brute-force scan of the same
// bodies, and a full world step of a level-sized scene. Compare the
// QuadTree/* and Brute/* lines of one run: same queries, same answers.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <vector>

#include "core/Game.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"
#include "world/body/Body.h"
#include "world/geometry/Geometry.h"
#include "world/quadtree/QuadTree.h"

namespace {
constexpr float worldSize = 8192.0f;
constexpr int staticCount = 10000;
constexpr int queryCount = 1000;

float uniform(float lo, float hi) { return lo + (hi - lo) * static_cast<float>(std::rand() % 32768) / 32768.0f; }

std::unique_ptr<Body> makeBox(float x, float y, float w, float h, float mass)
{
    auto b = std::make_unique<Body>();
    b->setPosition(Vector(x, y));
    b->makeRectangle(w, h);
    b->setMass(mass);
    b->updateBounds();
    return b;
}

struct Scene {
    QuadTree tree;
    std::vector<std::unique_ptr<Body>> bodies;
    std::vector<std::unique_ptr<Body>> probes;
    std::vector<Vector> points;
    std::vector<Ray> rays;

    Scene()
    {
        std::srand(7);
        tree.build(Vector(0, 0), worldSize, 2);
        const float h = worldSize * 0.5f - 64.0f;
        for (int i = 0; i < staticCount; ++i) {
            bodies.push_back(makeBox(uniform(-h, h), uniform(-h, h), uniform(4, 48), uniform(4, 48), 0.0f));
            tree.insert(bodies.back().get());
        }
        tree.setSplitAllowed(false);
        for (int i = 0; i < queryCount; ++i) {
            points.emplace_back(uniform(-h, h), uniform(-h, h));
            probes.push_back(makeBox(points.back().x, points.back().y, 64, 64, 1.0f));
            const Vector from(uniform(-h, h), uniform(-h, h));
            rays.emplace_back(from, from + Vector(uniform(-400, 400), uniform(-400, 400)));
        }
    }
};

Scene& scene()
{
    static Scene s;
    return s;
}

void QuadTree_Radius(benchmark::State& state)
{
    Scene& s = scene();
    std::vector<Body*> out;
    for (auto _ : state)
        for (const Vector& p : s.points) {
            out.clear();
            s.tree.withinRadius(p, 100.0f, out);
            benchmark::DoNotOptimize(out.data());
        }
}

void Brute_Radius(benchmark::State& state)
{
    Scene& s = scene();
    std::vector<Body*> out;
    for (auto _ : state)
        for (const Vector& p : s.points) {
            out.clear();
            for (const auto& b : s.bodies) {
                const float dx = p.x - b->pos.x, dy = p.y - b->pos.y, reach = b->sweptRadius + 100.0f;
                if (dx * dx + dy * dy <= reach * reach)
                    out.push_back(b.get());
            }
            benchmark::DoNotOptimize(out.data());
        }
}

void QuadTree_Rectangle(benchmark::State& state)
{
    Scene& s = scene();
    std::vector<Body*> out;
    for (auto _ : state)
        for (const auto& probe : s.probes) {
            out.clear();
            s.tree.candidates(*probe, out, 0.025f);
            benchmark::DoNotOptimize(out.data());
        }
}

void Brute_Rectangle(benchmark::State& state)
{
    Scene& s = scene();
    std::vector<Body*> out;
    for (auto _ : state)
        for (const auto& probe : s.probes) {
            out.clear();
            for (const auto& b : s.bodies)
                if (probe->boundsOverlap(*b))
                    out.push_back(b.get());
            benchmark::DoNotOptimize(out.data());
        }
}

void QuadTree_Ray(benchmark::State& state)
{
    Scene& s = scene();
    TraceResults results;
    for (auto _ : state)
        for (const Ray& r : s.rays) {
            results.clear();
            s.tree.trace(r, results, false);
            QuadTree::sortResults(results);
            benchmark::DoNotOptimize(results.results.data());
        }
}

void Brute_Ray(benchmark::State& state)
{
    Scene& s = scene();
    TraceResults results;
    for (auto _ : state)
        for (const Ray& r : s.rays) {
            results.clear();
            for (const auto& b : s.bodies) {
                float f = 0.0f;
                if (QuadTree::rayHitsPolygon(r, b->worldVertices, f))
                    results.add(TraceResult(f, 0.0f, Vector(), b.get()));
            }
            QuadTree::sortResults(results);
            benchmark::DoNotOptimize(results.results.data());
        }
}

// A game-like level: 2,000 static blocks and 300 boxes falling onto them.
void World_Step(benchmark::State& state)
{
    std::srand(11);
    Game game(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
    game.setGravityOverride(-500.0f);
    QuadTree& tree = game.getQuadTree();
    tree.build(Vector(0, 0), 4096, 2);
    for (int i = 0; i < 2000; ++i) {
        Body* b = makeBox(uniform(-1900, 1900), uniform(-1900, 1000), uniform(16, 96), uniform(8, 32), 0).release();
        game.addBody(b, false);
        tree.insert(b);
    }
    Body* floor = makeBox(0, -1990, 4000, 20, 0).release();
    game.addBody(floor, false);
    tree.insert(floor);
    tree.setSplitAllowed(false);
    for (int i = 0; i < 300; ++i) {
        Body* b = makeBox(uniform(-1800, 1800), uniform(1100, 1800), 12, 12, 10).release();
        b->vel = Vector(uniform(-100, 100), 0);
        game.spawnBody(b);
    }
    for (auto _ : state) {
        game.applyGravity(Game::stepSeconds);
        game.freezeVelocities();
        game.collideBodies(Game::stepSeconds);
        game.moveBodies(Game::stepSeconds);
    }
    game.unloadLevel();
}
}

BENCHMARK(QuadTree_Radius)->Unit(benchmark::kMicrosecond);
BENCHMARK(Brute_Radius)->Unit(benchmark::kMicrosecond);
BENCHMARK(QuadTree_Rectangle)->Unit(benchmark::kMicrosecond);
BENCHMARK(Brute_Rectangle)->Unit(benchmark::kMicrosecond);
BENCHMARK(QuadTree_Ray)->Unit(benchmark::kMicrosecond);
BENCHMARK(Brute_Ray)->Unit(benchmark::kMicrosecond);
BENCHMARK(World_Step)->Unit(benchmark::kMicrosecond)->Iterations(400);
