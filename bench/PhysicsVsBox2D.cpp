// Our world step and spatial queries against Box2D 2.4.1 on the same scenes,
// single-threaded, with the game's fixed 0.025 s step. Each scene is described
// once (seeded) and then built in both engines, so both simulate the same
// geometry, masses and starting velocities. The run ends with a summary of
// "ours / Box2D" per scene and a correctness gate: no movable body may leave
// the closed box or turn non-finite, in either engine.
//
// Units: the game works in game units (the player is 16 units tall, gravity
// is hundreds of units/s^2); Box2D is tuned for metres. One Box2D metre is
// 16 game units here, so a 12-unit crate is a 0.75 m box to Box2D.
//
// Physics model: our bodies translate only, so Box2D bodies get
// fixedRotation. Box2D keeps its own defaults otherwise (8 velocity and 3
// position iterations, sleeping allowed); the *_NoSleep lines show what
// sleeping buys it, since our engine has no sleeping.
//
// Extra flags, beside Google Benchmark's own: --steps=N world steps per scene
// run (default 400, i.e. 10 s of game time), --reps=N repetitions of each
// scene run and query set (default 3). Ratios use the fastest repetition.
// On a busy machine, read the CPU columns rather than the wall clock.
#include <box2d/box2d.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/Game.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"
#include "world/body/Body.h"
#include "world/quadtree/QuadTree.h"
#include "world/quadtree/Ray.h"
#include "world/quadtree/TraceResults.h"

namespace {
constexpr float unitsPerMetre = 16.0f;
constexpr float dt = Game::stepSeconds;
constexpr int velocityIterations = 8;
constexpr int positionIterations = 3;

b2Vec2 toMetres(const Vector& v) { return b2Vec2(v.x / unitsPerMetre, v.y / unitsPerMetre); }
Vector toUnits(const b2Vec2& v) { return Vector(v.x * unitsPerMetre, v.y * unitsPerMetre); }

// ---------------------------------------------------------------------------
// Scene descriptions, shared by both engines.

struct ShapeDesc {
    Vector pos;
    Vector vel;
    std::vector<Vector> local;  // convex, counter-clockwise, at most 8 vertices
    float mass = 0.0f;          // 0: static
    bool projectile = false;
    bool mover = false;  // no mass, but moved by its velocity (a lift or platform)
};

constexpr float wallThickness = 40.0f;

struct SceneDesc {
    float gravity = -500.0f;  // units/s^2
    float restitution = 0.05f;
    float halfExtent = 2000.0f;  // inner faces of the closed box's walls
    std::vector<ShapeDesc> shapes;
};

class Rng {
public:
    explicit Rng(unsigned seed) : engine(seed) {}
    float uniform(float lo, float hi) { return std::uniform_real_distribution<float>(lo, hi)(engine); }
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(engine); }

private:
    std::mt19937 engine;
};

float polygonArea(const std::vector<Vector>& p)
{
    float a = 0.0f;
    for (size_t i = 0; i < p.size(); ++i) {
        const Vector& u = p[i];
        const Vector& v = p[(i + 1) % p.size()];
        a += u.x * v.y - v.x * u.y;
    }
    return 0.5f * std::fabs(a);
}

std::vector<Vector> rectangle(float w, float h)
{
    return {Vector(-w / 2, -h / 2), Vector(w / 2, -h / 2), Vector(w / 2, h / 2), Vector(-w / 2, h / 2)};
}

// A triangle, box, pentagon, hexagon or octagon of about the given size,
// turned by a random angle.
std::vector<Vector> mixedPolygon(Rng& rng, float size)
{
    static const int sides[] = {3, 4, 5, 6, 8};
    const int kind = rng.pick(6);
    if (kind == 5)
        return rectangle(size, size * rng.uniform(0.3f, 1.0f));
    const int n = sides[kind];
    const float r = size * 0.5f;
    const float phase = rng.uniform(0.0f, 6.2831853f);
    std::vector<Vector> out;
    for (int i = 0; i < n; ++i) {
        const float a = phase + 6.2831853f * static_cast<float>(i) / static_cast<float>(n);
        out.emplace_back(r * std::cos(a), r * std::sin(a));
    }
    return out;
}

// Mass follows area, so mass ratios match Box2D's uniform density.
float massFor(const std::vector<Vector>& local) { return polygonArea(local) / 16.0f; }

void addWalls(SceneDesc& scene)
{
    const float h = scene.halfExtent, t = wallThickness, len = 2.0f * h + 2.0f * t;
    const std::array<std::array<float, 4>, 4> walls = {
        {{0, -h - t / 2, len, t}, {0, h + t / 2, len, t}, {-h - t / 2, 0, t, len}, {h + t / 2, 0, t, len}}};
    for (const auto& [x, y, w, hh] : walls) {
        ShapeDesc wall;
        wall.pos = Vector(x, y);
        wall.local = rectangle(w, hh);
        scene.shapes.push_back(wall);
    }
}

// A game-like level: 2,000 static blocks and ledges, then 200 crates and 100
// fast projectiles dropped onto them, falling, colliding and coming to rest.
SceneDesc gameLevel()
{
    Rng rng(11);
    SceneDesc scene;
    scene.gravity = -500.0f;
    addWalls(scene);
    for (int i = 0; i < 2000; ++i) {
        ShapeDesc s;
        s.pos = Vector(rng.uniform(-1900, 1900), rng.uniform(-1900, 1000));
        s.local = rng.pick(3) == 0 ? mixedPolygon(rng, rng.uniform(16, 48))
                                   : rectangle(rng.uniform(16, 96), rng.uniform(8, 32));
        scene.shapes.push_back(s);
    }
    for (int i = 0; i < 300; ++i) {
        ShapeDesc s;
        s.pos = Vector(rng.uniform(-1800, 1800), rng.uniform(1100, 1900));
        if (i % 3 == 2) {
            s.local = rectangle(4, 4);
            s.vel = Vector(rng.uniform(-600, 600), rng.uniform(-600, 100));
            s.projectile = true;
        } else {
            s.local = rectangle(12, 12);
            s.vel = Vector(rng.uniform(-100, 100), 0);
        }
        s.mass = massFor(s.local);
        scene.shapes.push_back(s);
    }
    return scene;
}

// A sparse scene: 1,000 mixed polygons thrown about a large closed box under
// light gravity, bouncing off the walls and each other.
SceneDesc sparseBox()
{
    Rng rng(23);
    SceneDesc scene;
    scene.gravity = -80.0f;
    scene.restitution = 0.5f;
    scene.halfExtent = 1600.0f;
    addWalls(scene);
    // One per cell of a 32 x 32 grid (97.5 units apart), so nothing starts overlapped.
    const float cell = 2.0f * (scene.halfExtent - 40.0f) / 32.0f;
    for (int i = 0; i < 1000; ++i) {
        ShapeDesc s;
        const float cx = -scene.halfExtent + 40.0f + cell * (static_cast<float>(i % 32) + 0.5f);
        const float cy = -scene.halfExtent + 40.0f + cell * (static_cast<float>(i / 32) + 0.5f);
        s.pos = Vector(cx + rng.uniform(-10, 10), cy + rng.uniform(-10, 10));
        s.local = mixedPolygon(rng, rng.uniform(8, 40));
        s.vel = Vector(rng.uniform(-300, 300), rng.uniform(-300, 300));
        s.mass = massFor(s.local);
        scene.shapes.push_back(s);
    }
    return scene;
}

// Level-shaped rooms for the cost curve, 16 bodies each, laid out in a
// square grid: a floor, a wall, two ledges, a platform moving to and fro, a
// resting stack of nine crates and two crates resting on a ledge and on the
// platform. Everything starts at rest where it lies, as a loaded level does.
constexpr float roomSize = 256.0f;
constexpr int bodiesPerRoom = 16;
constexpr float moverSpeed = 40.0f;
constexpr int moverFlipSteps = 40;

SceneDesc rooms(int bodies)
{
    SceneDesc scene;
    scene.gravity = -500.0f;
    const int count = std::max(1, bodies / bodiesPerRoom);
    const int columns = static_cast<int>(std::ceil(std::sqrt(static_cast<double>(count))));
    const auto add = [&](float x, float y, float w, float h, float mass, bool mover) {
        ShapeDesc s;
        s.pos = Vector(x, y);
        s.local = rectangle(w, h);
        s.mass = mass > 0.0f ? massFor(s.local) : 0.0f;
        s.mover = mover;
        if (mover)
            s.vel = Vector(moverSpeed, 0.0f);
        scene.shapes.push_back(s);
    };
    for (int i = 0; i < count; ++i) {
        const float rx = roomSize * static_cast<float>(i % columns);
        const float ry = roomSize * static_cast<float>(i / columns);
        add(rx + 128, ry + 8, roomSize, 16, 0, false);        // floor
        add(rx + 8, ry + 136, 16, 240, 0, false);             // wall
        add(rx + 200, ry + 120, 48, 8, 0, false);             // ledges
        add(rx + 70, ry + 180, 48, 8, 0, false);
        add(rx + 128, ry + 80, 40, 8, 0, true);               // moving platform
        for (int c = 0; c < 3; ++c)
            for (int r = 0; r < 3; ++r)
                add(rx + 40 + 13.0f * static_cast<float>(c), ry + 22 + 12.0f * static_cast<float>(r), 12, 12, 1,
                    false);
        add(rx + 200, ry + 130, 12, 12, 1, false);            // on the ledge
        add(rx + 128, ry + 90, 12, 12, 1, false);             // on the platform
    }
    // The grid's centre, so the quadtree square is placed over it.
    const float extent = roomSize * static_cast<float>(columns);
    scene.halfExtent = 0.5f * extent;
    for (ShapeDesc& s : scene.shapes)
        s.pos = s.pos - Vector(scene.halfExtent, scene.halfExtent);
    return scene;
}

// Platforms go to and fro: the same velocity for both engines at every step.
float moverVelocity(int step) { return (step / moverFlipSteps) % 2 == 0 ? moverSpeed : -moverSpeed; }

// ---------------------------------------------------------------------------
// The scenes in each engine.

std::unique_ptr<Body> makeBody(const ShapeDesc& s, float restitution)
{
    auto b = std::make_unique<Body>();
    b->setPosition(s.pos);
    b->localVertices = s.local;
    b->setMass(s.mass);
    b->nonmassmover = s.mover;
    b->restitution = restitution;
    b->vel = s.vel;
    b->transform();
    b->updateBounds();
    return b;
}

struct OurWorld {
    Game game{std::make_unique<NullRenderer>(), std::make_unique<NullSound>()};
    std::vector<Body*> movables;
    std::vector<Body*> movers;
    int steps = 0;

    explicit OurWorld(const SceneDesc& scene)
    {
        game.setGravityOverride(scene.gravity);
        QuadTree& tree = game.getQuadTree();
        tree.build(Vector(0, 0), 2.0f * scene.halfExtent + 96.0f, 2);
        for (const ShapeDesc& s : scene.shapes) {
            if (s.mass > 0.0f || s.mover)
                continue;
            Body* b = makeBody(s, scene.restitution).release();
            game.addBody(b, false);
            tree.insert(b);
        }
        tree.setSplitAllowed(false);
        for (const ShapeDesc& s : scene.shapes) {
            if (s.mass <= 0.0f && !s.mover)
                continue;
            Body* b = makeBody(s, scene.restitution).release();
            game.spawnBody(b);
            (s.mover ? movers : movables).push_back(b);
        }
    }
    ~OurWorld() { game.unloadLevel(); }
    OurWorld(const OurWorld&) = delete;
    OurWorld& operator=(const OurWorld&) = delete;

    void step()
    {
        if (!movers.empty()) {
            const float vx = moverVelocity(steps);
            for (Body* b : movers)
                b->vel = Vector(vx, 0.0f);
        }
        ++steps;
        game.applyGravity(dt);
        game.freezeVelocities();
        game.collideBodies(dt);
        game.moveBodies(dt);
    }
};

struct Box2DWorld {
    b2World world;
    std::vector<b2Body*> movables;
    std::vector<b2Body*> movers;
    int steps = 0;

    Box2DWorld(const SceneDesc& scene, bool allowSleep) : world(b2Vec2(0.0f, scene.gravity / unitsPerMetre))
    {
        world.SetAllowSleeping(allowSleep);
        for (const ShapeDesc& s : scene.shapes) {
            b2BodyDef def;
            def.type = s.mover ? b2_kinematicBody : s.mass > 0.0f ? b2_dynamicBody : b2_staticBody;
            def.position = toMetres(s.pos);
            def.linearVelocity = toMetres(s.vel);
            def.fixedRotation = true;
            def.bullet = s.projectile;
            b2Body* body = world.CreateBody(&def);
            b2PolygonShape shape;
            b2Vec2 points[b2_maxPolygonVertices];
            const int n = static_cast<int>(std::min<size_t>(s.local.size(), b2_maxPolygonVertices));
            for (int i = 0; i < n; ++i)
                points[i] = toMetres(s.local[static_cast<size_t>(i)]);
            shape.Set(points, n);
            b2FixtureDef fixture;
            fixture.shape = &shape;
            fixture.density = 1.0f;
            fixture.friction = 0.2f;
            fixture.restitution = scene.restitution;
            body->CreateFixture(&fixture);
            if (s.mover)
                movers.push_back(body);
            else if (s.mass > 0.0f)
                movables.push_back(body);
        }
    }

    void step()
    {
        if (!movers.empty()) {
            const b2Vec2 v(moverVelocity(steps) / unitsPerMetre, 0.0f);
            for (b2Body* b : movers)
                b->SetLinearVelocity(v);
        }
        ++steps;
        world.Step(dt, velocityIterations, positionIterations);
    }
};

// ---------------------------------------------------------------------------
// The correctness gate and a few figures to show both engines did the same.

// A body whose centre is past the middle of a wall has left: separation
// pushes it out of the far side, and it keeps going (or rests on the roof),
// so a check after the last step catches every escape. Both engines let a
// fast body sink into a wall for a step before pushing it back (ours moves
// with the velocity frozen before the collision pass), so the inner face is
// not the line; how deep they sink is shown as "sink".
struct GateResult {
    int escaped = 0;
    int nonFinite = 0;
    int total = 0;
};
std::map<std::string, GateResult> gateResults;

struct BodyState {
    Vector pos;
    Vector vel;
    float halfWidth = 0.0f;
    float halfHeight = 0.0f;
};

void check(const std::string& name, const SceneDesc& scene, const std::vector<BodyState>& bodies,
           benchmark::State& state)
{
    GateResult& g = gateResults[name];
    const float line = scene.halfExtent + 0.5f * wallThickness;
    float resting = 0.0f, meanY = 0.0f, sink = 0.0f;
    int escaped = 0;
    for (const BodyState& b : bodies) {
        const Vector& p = b.pos;
        ++g.total;
        if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(b.vel.x) || !std::isfinite(b.vel.y)) {
            ++g.nonFinite;
            continue;
        }
        if (std::fabs(p.x) > line || std::fabs(p.y) > line) {
            ++escaped;
            continue;
        }
        sink = std::max({sink, std::fabs(p.x) + b.halfWidth - scene.halfExtent,
                         std::fabs(p.y) + b.halfHeight - scene.halfExtent});
        if (b.vel.x * b.vel.x + b.vel.y * b.vel.y < 25.0f * 25.0f)
            resting += 1.0f;
        meanY += p.y;
    }
    g.escaped += escaped;
    const float n = bodies.empty() ? 1.0f : static_cast<float>(bodies.size());
    state.counters["resting"] = resting;
    state.counters["meanY"] = meanY / n;
    state.counters["sink"] = sink;
    state.counters["escaped"] = escaped;
}

void halfExtents(const std::vector<Vector>& local, BodyState& out)
{
    for (const Vector& v : local) {
        out.halfWidth = std::max(out.halfWidth, std::fabs(v.x));
        out.halfHeight = std::max(out.halfHeight, std::fabs(v.y));
    }
}

int steps = 400;
int repetitions = 3;

void runOurs(benchmark::State& state, const SceneDesc& scene, const std::string& name)
{
    OurWorld world(scene);
    for (auto _ : state)
        world.step();
    std::vector<BodyState> bodies;
    for (const Body* b : world.movables) {
        BodyState s{b->pos, b->vel};
        halfExtents(b->localVertices, s);
        bodies.push_back(s);
    }
    check(name, scene, bodies, state);
}

void runBox2D(benchmark::State& state, const SceneDesc& scene, const std::string& name, bool allowSleep)
{
    Box2DWorld world(scene, allowSleep);
    for (auto _ : state)
        world.step();
    std::vector<BodyState> bodies;
    for (const b2Body* b : world.movables) {
        BodyState s{toUnits(b->GetPosition()), toUnits(b->GetLinearVelocity())};
        const b2AABB box = b->GetFixtureList()->GetAABB(0);
        s.halfWidth = 0.5f * (box.upperBound.x - box.lowerBound.x) * unitsPerMetre;
        s.halfHeight = 0.5f * (box.upperBound.y - box.lowerBound.y) * unitsPerMetre;
        bodies.push_back(s);
    }
    check(name, scene, bodies, state);
}

// The cost curve: one world step of the rooms scene at each size.
const std::array<int, 4> curveSizes = {1000, 4000, 16000, 64000};
int curveSteps = 100;

const SceneDesc& roomsScene(int bodies)
{
    static std::map<int, SceneDesc> scenes;
    auto it = scenes.find(bodies);
    if (it == scenes.end())
        it = scenes.emplace(bodies, rooms(bodies)).first;
    return it->second;
}

void curveOurs(benchmark::State& state, int bodies)
{
    const SceneDesc& scene = roomsScene(bodies);
    OurWorld world(scene);
    for (auto _ : state)
        world.step();
    state.counters["bodies"] = static_cast<double>(scene.shapes.size());
}

void curveBox2D(benchmark::State& state, int bodies, bool allowSleep)
{
    const SceneDesc& scene = roomsScene(bodies);
    Box2DWorld world(scene, allowSleep);
    for (auto _ : state)
        world.step();
    state.counters["bodies"] = static_cast<double>(scene.shapes.size());
}

// ---------------------------------------------------------------------------
// Spatial queries: 1,000 rays, circles and rectangles against 10,000 static
// polygons, answered by our quadtree, by Box2D's dynamic tree and by a scan
// of every polygon. Each engine answers the same question: all hits of a
// segment sorted by distance; every body whose bounding circle reaches into a
// circle; every body whose bounds overlap a rectangle.

constexpr float queryWorld = 8192.0f;
constexpr int queryStatics = 10000;
constexpr int queryCount = 1000;
constexpr float queryRadius = 100.0f;
constexpr float queryRect = 64.0f;

struct QueryScene {
    std::vector<ShapeDesc> shapes;
    std::vector<float> radii;  // bounding radius of each polygon about its position
    std::vector<Vector> points;
    std::vector<Ray> rays;

    QuadTree tree;
    std::vector<std::unique_ptr<Body>> bodies;
    std::vector<std::unique_ptr<Body>> probes;
    b2World world{b2Vec2(0.0f, 0.0f)};

    QueryScene()
    {
        Rng rng(7);
        const float h = queryWorld * 0.5f - 64.0f;
        tree.build(Vector(0, 0), queryWorld, 2);
        for (int i = 0; i < queryStatics; ++i) {
            ShapeDesc s;
            s.pos = Vector(rng.uniform(-h, h), rng.uniform(-h, h));
            s.local = mixedPolygon(rng, rng.uniform(4, 48));
            shapes.push_back(s);
            float r = 0.0f;
            for (const Vector& v : s.local)
                r = std::max(r, std::sqrt(v.x * v.x + v.y * v.y));
            radii.push_back(r);

            bodies.push_back(makeBody(s, 0.05f));
            tree.insert(bodies.back().get());

            b2BodyDef def;
            def.position = toMetres(s.pos);
            def.userData.pointer = static_cast<uintptr_t>(i);
            b2Body* body = world.CreateBody(&def);
            b2PolygonShape shape;
            b2Vec2 pts[b2_maxPolygonVertices];
            for (size_t k = 0; k < s.local.size(); ++k)
                pts[k] = toMetres(s.local[k]);
            shape.Set(pts, static_cast<int>(s.local.size()));
            body->CreateFixture(&shape, 0.0f);
        }
        tree.setSplitAllowed(false);
        for (int i = 0; i < queryCount; ++i) {
            points.emplace_back(rng.uniform(-h, h), rng.uniform(-h, h));
            ShapeDesc probe;
            probe.pos = points.back();
            probe.local = rectangle(queryRect, queryRect);
            probe.mass = 1.0f;
            probes.push_back(makeBody(probe, 0.05f));
            const Vector from(rng.uniform(-h, h), rng.uniform(-h, h));
            rays.emplace_back(from, from + Vector(rng.uniform(-400, 400), rng.uniform(-400, 400)));
        }
    }
};

QueryScene& queryScene()
{
    static QueryScene s;
    return s;
}

struct AllHits : b2RayCastCallback {
    struct Hit {
        float fraction;
        b2Fixture* fixture;
    };
    std::vector<Hit> hits;
    float ReportFixture(b2Fixture* fixture, const b2Vec2&, const b2Vec2&, float fraction) override
    {
        hits.push_back({fraction, fixture});
        return 1.0f;  // keep going: every hit, not just the nearest
    }
};

struct Overlaps : b2QueryCallback {
    std::vector<b2Fixture*> found;
    bool ReportFixture(b2Fixture* fixture) override
    {
        found.push_back(fixture);
        return true;
    }
};

void Ours_Rays(benchmark::State& state)
{
    QueryScene& s = queryScene();
    TraceResults results;
    size_t hits = 0;
    for (auto _ : state) {
        hits = 0;
        for (const Ray& r : s.rays) {
            results.clear();
            s.tree.trace(r, results, false);
            QuadTree::sortResults(results);
            hits += results.results.size();
            benchmark::DoNotOptimize(results.results.data());
        }
    }
    state.counters["hits"] = static_cast<double>(hits);
}

void Box2D_Rays(benchmark::State& state)
{
    QueryScene& s = queryScene();
    AllHits cb;
    size_t hits = 0;
    for (auto _ : state) {
        hits = 0;
        for (const Ray& r : s.rays) {
            cb.hits.clear();
            s.world.RayCast(&cb, toMetres(r.start), toMetres(r.end));
            std::stable_sort(cb.hits.begin(), cb.hits.end(),
                             [](const AllHits::Hit& a, const AllHits::Hit& b) { return a.fraction < b.fraction; });
            hits += cb.hits.size();
            benchmark::DoNotOptimize(cb.hits.data());
        }
    }
    state.counters["hits"] = static_cast<double>(hits);
}

void Brute_Rays(benchmark::State& state)
{
    QueryScene& s = queryScene();
    TraceResults results;
    size_t hits = 0;
    for (auto _ : state) {
        hits = 0;
        for (const Ray& r : s.rays) {
            results.clear();
            for (const auto& b : s.bodies) {
                float f = 0.0f;
                if (QuadTree::rayHitsPolygon(r, b->worldVertices, f))
                    results.add(TraceResult(f, 0.0f, Vector(), b.get()));
            }
            QuadTree::sortResults(results);
            hits += results.results.size();
            benchmark::DoNotOptimize(results.results.data());
        }
    }
    state.counters["hits"] = static_cast<double>(hits);
}

void Ours_Circles(benchmark::State& state)
{
    QueryScene& s = queryScene();
    std::vector<Body*> out;
    size_t hits = 0;
    for (auto _ : state) {
        hits = 0;
        for (const Vector& p : s.points) {
            out.clear();
            s.tree.withinRadius(p, queryRadius, out);
            hits += out.size();
            benchmark::DoNotOptimize(out.data());
        }
    }
    state.counters["hits"] = static_cast<double>(hits);
}

void Box2D_Circles(benchmark::State& state)
{
    QueryScene& s = queryScene();
    Overlaps cb;
    std::vector<b2Body*> out;
    const float r = queryRadius / unitsPerMetre;
    size_t hits = 0;
    for (auto _ : state) {
        hits = 0;
        for (const Vector& p : s.points) {
            const b2Vec2 c = toMetres(p);
            b2AABB box;
            box.lowerBound = c - b2Vec2(r, r);
            box.upperBound = c + b2Vec2(r, r);
            cb.found.clear();
            out.clear();
            s.world.QueryAABB(&cb, box);
            for (b2Fixture* f : cb.found) {
                b2Body* body = f->GetBody();
                const float reach = s.radii[body->GetUserData().pointer] / unitsPerMetre + r;
                if (b2DistanceSquared(body->GetPosition(), c) <= reach * reach)
                    out.push_back(body);
            }
            hits += out.size();
            benchmark::DoNotOptimize(out.data());
        }
    }
    state.counters["hits"] = static_cast<double>(hits);
}

void Brute_Circles(benchmark::State& state)
{
    QueryScene& s = queryScene();
    std::vector<Body*> out;
    size_t hits = 0;
    for (auto _ : state) {
        hits = 0;
        for (const Vector& p : s.points) {
            out.clear();
            for (const auto& b : s.bodies) {
                const float dx = p.x - b->pos.x, dy = p.y - b->pos.y, reach = b->sweptRadius + queryRadius;
                if (dx * dx + dy * dy <= reach * reach)
                    out.push_back(b.get());
            }
            hits += out.size();
            benchmark::DoNotOptimize(out.data());
        }
    }
    state.counters["hits"] = static_cast<double>(hits);
}

void Ours_Rectangles(benchmark::State& state)
{
    QueryScene& s = queryScene();
    std::vector<Body*> out;
    size_t hits = 0;
    for (auto _ : state) {
        hits = 0;
        for (const auto& probe : s.probes) {
            out.clear();
            s.tree.candidates(*probe, out, dt);
            hits += out.size();
            benchmark::DoNotOptimize(out.data());
        }
    }
    state.counters["hits"] = static_cast<double>(hits);
}

void Box2D_Rectangles(benchmark::State& state)
{
    QueryScene& s = queryScene();
    Overlaps cb;
    std::vector<b2Fixture*> out;
    const float half = 0.5f * queryRect / unitsPerMetre;
    size_t hits = 0;
    for (auto _ : state) {
        hits = 0;
        for (const Vector& p : s.points) {
            const b2Vec2 c = toMetres(p);
            b2AABB box;
            box.lowerBound = c - b2Vec2(half, half);
            box.upperBound = c + b2Vec2(half, half);
            cb.found.clear();
            out.clear();
            s.world.QueryAABB(&cb, box);
            // The tree answers with fattened boxes; keep the real overlaps.
            for (b2Fixture* f : cb.found)
                if (b2TestOverlap(box, f->GetAABB(0)))
                    out.push_back(f);
            hits += out.size();
            benchmark::DoNotOptimize(out.data());
        }
    }
    state.counters["hits"] = static_cast<double>(hits);
}

void Brute_Rectangles(benchmark::State& state)
{
    QueryScene& s = queryScene();
    std::vector<Body*> out;
    size_t hits = 0;
    for (auto _ : state) {
        hits = 0;
        for (const auto& probe : s.probes) {
            out.clear();
            for (const auto& b : s.bodies)
                if (probe->boundsOverlap(*b))
                    out.push_back(b.get());
            hits += out.size();
            benchmark::DoNotOptimize(out.data());
        }
    }
    state.counters["hits"] = static_cast<double>(hits);
}

// ---------------------------------------------------------------------------
// Reporting: the usual console table, then the ratios.

class SummaryReporter : public benchmark::ConsoleReporter {
public:
    struct Times {
        double cpu = 0.0;
        double real = 0.0;
        bool seen = false;
    };
    std::map<std::string, Times> best;  // fastest repetition of each benchmark

    void ReportRuns(const std::vector<Run>& reports) override
    {
        ConsoleReporter::ReportRuns(reports);
        for (const Run& run : reports) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            // Times go through one unit so lines of different units compare.
            const double scale = benchmark::GetTimeUnitMultiplier(run.time_unit);
            Times& t = best[run.run_name.function_name];
            const double cpu = run.GetAdjustedCPUTime() / scale;
            const double real = run.GetAdjustedRealTime() / scale;
            if (!t.seen || cpu < t.cpu)
                t.cpu = cpu;
            if (!t.seen || real < t.real)
                t.real = real;
            t.seen = true;
        }
    }
};

void printRatio(const SummaryReporter& r, const char* label, const std::string& ours, const std::string& theirs)
{
    const auto a = r.best.find(ours);
    const auto b = r.best.find(theirs);
    if (a == r.best.end() || b == r.best.end() || !(b->second.cpu > 0.0) || !(b->second.real > 0.0))
        return;
    std::printf("  %-34s %8.2f cpu  %8.2f wall   (%s %.1f us, %s %.1f us cpu)\n", label,
                a->second.cpu / b->second.cpu, a->second.real / b->second.real, ours.c_str(),
                a->second.cpu * 1e6, theirs.c_str(), b->second.cpu * 1e6);
}

// The slope of log(time per step) over log(bodies), least squares over
// the curve's sizes: 1 is linear growth.
void printExponent(const SummaryReporter& r, const char* label, const std::string& prefix, double& out)
{
    double sx = 0, sy = 0, sxx = 0, sxy = 0;
    int n = 0;
    std::printf("  %-22s", label);
    for (const int bodies : curveSizes) {
        const auto it = r.best.find(prefix + std::to_string(bodies));
        if (it == r.best.end() || !(it->second.cpu > 0.0))
            continue;
        const double x = std::log(static_cast<double>(bodies)), y = std::log(it->second.cpu);
        sx += x;
        sy += y;
        sxx += x * x;
        sxy += x * y;
        ++n;
        std::printf(" %9.1f", it->second.cpu * 1e6);
    }
    const double d = n * sxx - sx * sx;
    out = n >= 2 && d > 0.0 ? (n * sxy - sx * sy) / d : 0.0;
    std::printf("  us/step   exponent %.2f\n", out);
}

bool intFlag(const char* arg, const char* name, int& out)
{
    const size_t n = std::strlen(name);
    if (std::strncmp(arg, name, n) != 0)
        return false;
    out = std::max(1, std::atoi(arg + n));
    return true;
}
}

int main(int argc, char** argv)
{
    std::vector<char*> args;
    for (int i = 0; i < argc; ++i)
        if (i == 0 || (!intFlag(argv[i], "--steps=", steps) && !intFlag(argv[i], "--reps=", repetitions) &&
                       !intFlag(argv[i], "--curve-steps=", curveSteps)))
            args.push_back(argv[i]);
    int count = static_cast<int>(args.size());

    static const SceneDesc level = gameLevel();
    static const SceneDesc sparse = sparseBox();
    const auto stepBench = [](const char* name, auto fn) {
        benchmark::RegisterBenchmark(name, fn)
            ->Iterations(steps)
            ->Repetitions(repetitions)
            ->ReportAggregatesOnly(false)
            ->Unit(benchmark::kMicrosecond);
    };
    stepBench("Level_Ours", [](benchmark::State& s) { runOurs(s, level, "Level_Ours"); });
    stepBench("Level_Box2D", [](benchmark::State& s) { runBox2D(s, level, "Level_Box2D", true); });
    stepBench("Level_Box2D_NoSleep", [](benchmark::State& s) { runBox2D(s, level, "Level_Box2D_NoSleep", false); });
    stepBench("Sparse_Ours", [](benchmark::State& s) { runOurs(s, sparse, "Sparse_Ours"); });
    stepBench("Sparse_Box2D", [](benchmark::State& s) { runBox2D(s, sparse, "Sparse_Box2D", true); });
    stepBench("Sparse_Box2D_NoSleep",
              [](benchmark::State& s) { runBox2D(s, sparse, "Sparse_Box2D_NoSleep", false); });
    for (const int bodies : curveSizes) {
        const std::string n = std::to_string(bodies);
        for (const auto& [name, fn] : std::vector<std::pair<std::string, std::function<void(benchmark::State&)>>>{
                 {"Curve_Ours_" + n, [bodies](benchmark::State& s) { curveOurs(s, bodies); }},
                 {"Curve_Box2D_" + n, [bodies](benchmark::State& s) { curveBox2D(s, bodies, true); }},
                 {"Curve_Box2D_NoSleep_" + n, [bodies](benchmark::State& s) { curveBox2D(s, bodies, false); }}})
            benchmark::RegisterBenchmark(name.c_str(), fn)
                ->Iterations(curveSteps)
                ->Repetitions(repetitions)
                ->ReportAggregatesOnly(false)
                ->Unit(benchmark::kMicrosecond);
    }
    for (const auto& [name, fn] : std::vector<std::pair<const char*, void (*)(benchmark::State&)>>{
             {"Rays_Ours", Ours_Rays},
             {"Rays_Box2D", Box2D_Rays},
             {"Rays_Brute", Brute_Rays},
             {"Circles_Ours", Ours_Circles},
             {"Circles_Box2D", Box2D_Circles},
             {"Circles_Brute", Brute_Circles},
             {"Rectangles_Ours", Ours_Rectangles},
             {"Rectangles_Box2D", Box2D_Rectangles},
             {"Rectangles_Brute", Brute_Rectangles}})
        benchmark::RegisterBenchmark(name, fn)
            ->Repetitions(std::strstr(name, "Brute") ? 1 : repetitions)
            ->ReportAggregatesOnly(false)
            ->Unit(benchmark::kMicrosecond);

    // Interleaved repetitions spread the load of a shared machine over both
    // sides of each pair; a later flag on the command line still wins.
    args.insert(args.begin() + 1, const_cast<char*>("--benchmark_enable_random_interleaving=true"));
    count = static_cast<int>(args.size());

    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data()))
        return 2;
    SummaryReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    std::printf("\nratio (ours / Box2D), fastest repetition; below 1 means we are faster\n");
    printRatio(reporter, "game-like level, world step", "Level_Ours", "Level_Box2D");
    printRatio(reporter, "  vs Box2D without sleeping", "Level_Ours", "Level_Box2D_NoSleep");
    printRatio(reporter, "sparse box, world step", "Sparse_Ours", "Sparse_Box2D");
    printRatio(reporter, "  vs Box2D without sleeping", "Sparse_Ours", "Sparse_Box2D_NoSleep");
    for (const int bodies : curveSizes) {
        const std::string n = std::to_string(bodies);
        const std::string label = "rooms, " + n + " bodies, world step";
        printRatio(reporter, label.c_str(), "Curve_Ours_" + n, "Curve_Box2D_" + n);
    }
    printRatio(reporter, "1,000 rays", "Rays_Ours", "Rays_Box2D");
    printRatio(reporter, "1,000 circles", "Circles_Ours", "Circles_Box2D");
    printRatio(reporter, "1,000 rectangles", "Rectangles_Ours", "Rectangles_Box2D");
    std::printf("ratio (ours / brute force)\n");
    printRatio(reporter, "1,000 rays", "Rays_Ours", "Rays_Brute");
    printRatio(reporter, "1,000 circles", "Circles_Ours", "Circles_Brute");
    printRatio(reporter, "1,000 rectangles", "Rectangles_Ours", "Rectangles_Brute");

    double ours = 0.0, box2d = 0.0, noSleep = 0.0;
    std::printf("cost curve over %d, %d, %d and %d bodies (fastest repetition)\n", curveSizes[0], curveSizes[1],
                curveSizes[2], curveSizes[3]);
    printExponent(reporter, "ours", "Curve_Ours_", ours);
    printExponent(reporter, "Box2D", "Curve_Box2D_", box2d);
    printExponent(reporter, "Box2D without sleeping", "Curve_Box2D_NoSleep_", noSleep);
    if (ours > 0.0 && box2d > 0.0)
        std::printf("growth: ours %s Box2D's\n", ours <= box2d ? "no faster than" : "FASTER than");

    bool passed = true;
    for (const auto& [name, g] : gateResults) {
        const bool ok = g.escaped == 0 && g.nonFinite == 0;
        passed = passed && ok;
        if (!ok)
            std::printf("gate: %s: %d of %d bodies left the box, %d non-finite\n", name.c_str(), g.escaped,
                        g.total, g.nonFinite);
    }
    std::printf("gate (no movable body leaves the closed box): %s\n", passed ? "PASSED" : "FAILED");
    return passed ? 0 : 1;
}
