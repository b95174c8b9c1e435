#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include "world/WorldTestHelpers.h"
#include "world/body/Body.h"
#include "world/geometry/Geometry.h"
#include "world/quadtree/QuadTree.h"

namespace {
std::unique_ptr<Body> box(float x, float y, float w, float h, float mass = 0.0f)
{
    auto b = std::make_unique<Body>();
    worldtest::shapeBox(*b, x, y, w, h, mass);
    return b;
}

void moveTo(Body& b, const Vector& to)
{
    b.setPosition(to);
    b.transform();
    b.updateBounds();
}

class QuadTreeTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(tree.build(Vector(0, 0), 1024, 2)); }
    Body* add(std::unique_ptr<Body> b)
    {
        owned.push_back(std::move(b));
        return owned.back().get();
    }
    // Declared first so the bodies go before the tree.
    QuadTree tree;
    std::vector<std::unique_ptr<Body>> owned;
};
}

TEST_F(QuadTreeTest, ContainmentIncludesEdgesAndStraddlersStayInTheParent)
{
    // Exactly on the root's right edge and on the first child's edges.
    Body* edge = add(box(-256, 256, 512, 512));
    ASSERT_TRUE(tree.insert(edge));
    EXPECT_EQ(edge->quadTreeNode, tree.getChildren()[0].get());

    Body* straddler = add(box(0, 0, 10, 10));
    ASSERT_TRUE(tree.insert(straddler));
    EXPECT_EQ(straddler->quadTreeNode, &tree);

    Body* outside = add(box(600, 0, 10, 10));
    EXPECT_FALSE(tree.insert(outside));
    EXPECT_EQ(outside->quadTreeNode, nullptr);

    Body* onRootEdge = add(box(507, -507, 10, 10));
    EXPECT_TRUE(tree.insert(onRootEdge));

    // Update follows a moving body, drops it once it leaves the square and
    // takes it back when it returns.
    Body* mover = add(box(-400, 400, 10, 10, 1));
    ASSERT_TRUE(tree.insert(mover));
    QuadTree* first = mover->quadTreeNode;
    moveTo(*mover, Vector(400, -400));
    ASSERT_TRUE(tree.update(mover));
    EXPECT_NE(mover->quadTreeNode, first);
    EXPECT_EQ(std::count(first->getBodies().begin(), first->getBodies().end(), mover), 0);
    moveTo(*mover, Vector(4000, 0));
    EXPECT_FALSE(tree.update(mover));
    EXPECT_EQ(mover->quadTreeNode, nullptr);
    EXPECT_EQ(tree.countAllBodies(), 3);
    moveTo(*mover, Vector(-300, -300));
    ASSERT_TRUE(tree.update(mover));
    EXPECT_TRUE(mover->quadTreeNode->contains(*mover));
    EXPECT_TRUE(mover->quadTreeNode->getChildren().empty());
}

TEST_F(QuadTreeTest, TheTwentySecondBodySplitsALeafUnlessEntityOrForbidden)
{
    QuadTree leaf;
    ASSERT_TRUE(leaf.build(Vector(0, 0), 64, 0));
    for (int i = 0; i < 21; ++i)
        ASSERT_TRUE(leaf.insert(add(box(-20, -20, 4, 4))));
    EXPECT_TRUE(leaf.getChildren().empty());

    Body* entity = add(box(20, 20, 4, 4));
    entity->entity = true;
    ASSERT_TRUE(leaf.insert(entity));
    EXPECT_TRUE(leaf.getChildren().empty());
    EXPECT_EQ(leaf.getBodyCount(), 22);

    leaf.setSplitAllowed(false);
    ASSERT_TRUE(leaf.insert(add(box(20, -20, 4, 4))));
    EXPECT_TRUE(leaf.getChildren().empty());

    leaf.setSplitAllowed(true);
    Body* straddler = add(box(0, 0, 4, 4));
    ASSERT_TRUE(leaf.insert(straddler));
    ASSERT_EQ(leaf.getChildren().size(), 4u);
    // Everything dropped into the quarter that holds it; the straddler stays.
    EXPECT_EQ(leaf.getBodyCount(), 1);
    EXPECT_EQ(straddler->quadTreeNode, &leaf);
    EXPECT_EQ(leaf.getChildren()[2]->getBodyCount(), 21);
    EXPECT_EQ(leaf.getChildren()[1]->getBodyCount(), 1);
    EXPECT_EQ(entity->quadTreeNode, leaf.getChildren()[1].get());
    EXPECT_EQ(leaf.countAllBodies(), 24);
    EXPECT_TRUE(leaf.getChildren()[0]->isSplitAllowed());
}

TEST_F(QuadTreeTest, DeletedBodiesLeaveTheTreeAndClearedTreesForgetBodies)
{
    auto b = box(100, 100, 4, 4);
    ASSERT_TRUE(tree.insert(b.get()));
    QuadTree* node = b->quadTreeNode;
    b.reset();
    EXPECT_EQ(node->getBodyCount(), 0);

    Body* kept = add(box(-100, -100, 4, 4));
    ASSERT_TRUE(tree.insert(kept));
    tree.clear();
    EXPECT_EQ(kept->quadTreeNode, nullptr);
    EXPECT_TRUE(tree.getChildren().empty());
}

TEST_F(QuadTreeTest, TraceFindsHitsAndSortsStably)
{
    Body* nearWall = add(box(100, 0, 10, 100));
    Body* farWall = add(box(-300, 0, 10, 100));
    Body* ghost = add(box(200, 0, 10, 100));
    ghost->solid = false;
    for (Body* b : {farWall, nearWall, ghost})
        ASSERT_TRUE(tree.insert(b));

    TraceResults results;
    tree.trace(Ray(Vector(-500, 0), Vector(500, 0)), results, false);
    ASSERT_EQ(results.size(), 2u);
    QuadTree::sortResults(results);
    EXPECT_EQ(results.first().body, farWall);
    EXPECT_NEAR(results.first().fraction, 195.0f / 1000.0f, 1e-5f);
    EXPECT_NEAR(results.first().point.x, -305.0f, 1e-3f);
    EXPECT_NEAR(results.first().distance, 195.0f * 195.0f, 0.5f);
    EXPECT_EQ(results[1].body, nearWall);

    TraceResults all;
    tree.trace(Ray(Vector(-500, 0), Vector(500, 0)), all, true);
    EXPECT_EQ(all.size(), 3u);

    TraceResults ties;
    Body* x = add(box(0, 0, 1, 1));
    Body* y = add(box(0, 0, 1, 1));
    ties.add(TraceResult(0.5f, 1, Vector(), x));
    ties.add(TraceResult(0.2f, 1, Vector(), nearWall));
    ties.add(TraceResult(0.5f, 1, Vector(), y));
    QuadTree::sortResults(ties);
    EXPECT_EQ(ties[0].body, nearWall);
    EXPECT_EQ(ties[1].body, x);
    EXPECT_EQ(ties[2].body, y);
}

TEST_F(QuadTreeTest, StaticBodiesOnASegmentThroughTheLevelPlane)
{
    Body* rock = add(box(50, 50, 20, 20));
    Body* crate = add(box(50, 50, 10, 10, 5));
    ASSERT_TRUE(tree.insert(rock));
    ASSERT_TRUE(tree.insert(crate));
    std::vector<Body*> out;
    // From a camera in front of the level to a point behind it.
    tree.staticBodiesOnSegment(Ray(Vector(50, 50, 100), Vector(50, 50, -100)), out);
    EXPECT_EQ(out, std::vector<Body*>{rock});
    out.clear();
    tree.staticBodiesOnSegment(Ray(Vector(50, 50, 100), Vector(50, 50, 10)), out);
    EXPECT_TRUE(out.empty());
}

TEST_F(QuadTreeTest, CollectVisibleCullsNodesAndCounts)
{
    Body* left = add(box(-300, 100, 10, 10));
    Body* right = add(box(300, 100, 10, 10));
    ASSERT_TRUE(tree.insert(left));
    ASSERT_TRUE(tree.insert(right));
    // One plane: only x >= 1 is in view.
    Plane p;
    p.normal = Vector(1, 0, 0);
    p.distance = 1;
    std::vector<Body*> out;
    tree.resetCounters();
    tree.collectVisible({p}, out, true, false);
    EXPECT_EQ(out, std::vector<Body*>{right});
    EXPECT_TRUE(right->inView);
    EXPECT_EQ(tree.getVisibleBodyCount(), 1);
    EXPECT_EQ(tree.getVisibleNodeCount(), 1 + 2 + 8);

    out.clear();
    tree.resetCounters();
    tree.collectVisible({p}, out, false, true);
    EXPECT_EQ(out, std::vector<Body*>{right});
    EXPECT_FALSE(left->inView);
    EXPECT_EQ(tree.getVisibleNodeCount(), 21);
    EXPECT_EQ(tree.getTotalBodyCount(), 2);

    int lines = 0;
    tree.debugDraw(150, [&](const Vector&, const Vector&, const RGBAColour&) { ++lines; });
    EXPECT_EQ(lines, 21 * 7);
}

namespace {
// The slow reference for traces: every edge of every body, one at a time.
bool referenceHit(const Ray& ray, const std::vector<Vector>& polygon, float& fraction)
{
    bool hit = false;
    for (size_t i = 0; i < polygon.size(); ++i) {
        float t = 0.0f;
        if (segmentsIntersect(ray.start, ray.end, polygon[i], polygon[(i + 1) % polygon.size()], t) &&
            (!hit || t < fraction)) {
            fraction = t;
            hit = true;
        }
    }
    return hit;
}

// The trace's rules spelt out plainly: a node is entered when the ray
// crosses its square or starts inside it.
void referenceTrace(const QuadTree& node, const Ray& ray, std::vector<std::pair<float, Body*>>& out)
{
    float unused = 0.0f;
    const std::vector<Vector>& square = node.getNodeBody()->worldVertices;
    if (!referenceHit(ray, square, unused) && !pointInConvexPolygon(ray.start, square))
        return;
    for (Body* b : node.getBodies()) {
        float f = 0.0f;
        if (referenceHit(ray, b->worldVertices, f))
            out.emplace_back(f, b);
    }
    for (const auto& c : node.getChildren())
        referenceTrace(*c, ray, out);
}

// The candidates spelt out plainly, in the order the pair tests run them
// (the simulation's result depends on it): depth first, children in order,
// each node's bodies in list order, live boxes, no two immovable bodies.
void referenceCandidates(const QuadTree& node, const Body& probe, std::vector<Body*>& want)
{
    if (node.overlaps(probe))
        for (Body* b : node.getBodies())
            if (probe.boundsOverlap(*b) && (probe.isMovable() || b->isMovable()))
                want.push_back(b);
    for (const auto& c : node.getChildren())
        referenceCandidates(*c, probe, want);
}
}

// The tree skips nodes it can rule out from boxes alone and tests each
// polygon with shared side tests; neither may lose, add or move a hit. Rays
// run along node edges, through corners and centre lines and from inside
// nodes as well as at random.
TEST_F(QuadTreeTest, TraceFindsExactlyWhatThePlainTestsFind)
{
    std::mt19937 rng(5);
    std::uniform_real_distribution<float> coord(-500.0f, 500.0f), size(2.0f, 60.0f), turn(0.0f, 6.2831853f);
    for (int i = 0; i < 400; ++i) {
        Body* b = add(std::make_unique<Body>());
        b->setPosition(Vector(coord(rng), coord(rng)));
        b->makeCircle(size(rng), 3 + i % 6);
        b->rotation = turn(rng);
        b->transform();
        b->setMass(0.0f);
        b->updateBounds();
        tree.insert(b);
    }
    std::vector<Ray> rays = {Ray(Vector(-512, 0), Vector(512, 0)),     Ray(Vector(0, -512), Vector(0, 512)),
                             Ray(Vector(-256, -600), Vector(-256, 600)), Ray(Vector(-512, 256), Vector(0, 256)),
                             Ray(Vector(1, 1), Vector(2, 2)),           Ray(Vector(-512, -512), Vector(512, 512)),
                             Ray(Vector(600, 600), Vector(700, 700)),   Ray(Vector(30, 30), Vector(30, 30))};
    for (int i = 0; i < 300; ++i) {
        const Vector from(coord(rng), coord(rng));
        rays.emplace_back(from, from + Vector(coord(rng), coord(rng)) * 0.6f);
    }
    size_t total = 0;
    for (const Ray& ray : rays) {
        TraceResults fromTree;
        tree.trace(ray, fromTree, true);
        std::vector<std::pair<float, Body*>> got, want;
        for (const TraceResult& r : fromTree.results)
            got.emplace_back(r.fraction, r.body);
        referenceTrace(tree, ray, want);
        total += want.size();
        // Bit for bit and in the same order: the same fractions, not merely
        // close ones.
        ASSERT_EQ(got, want) << "ray " << ray.start.x << "," << ray.start.y << " -> " << ray.end.x << ","
                             << ray.end.y;
    }
    EXPECT_GT(total, 500u);
}

// Containment is decided from the vertices' box; the vertex rules still
// hold: no vertices fits anywhere, a NaN or infinite vertex fits nowhere.
TEST_F(QuadTreeTest, ContainmentOfOddPolygonsAndTrees)
{
    QuadTree bad;
    EXPECT_FALSE(bad.build(Vector(), 10, -1));

    Body* none = add(std::make_unique<Body>());
    EXPECT_TRUE(tree.contains(*none));
    ASSERT_TRUE(tree.insert(none));
    EXPECT_EQ(none->quadTreeNode, tree.getChildren()[0]->getChildren()[0].get());

    Body* nan = add(box(10, 10, 4, 4));
    nan->worldVertices[2].y = std::nanf("");
    EXPECT_FALSE(tree.contains(*nan));
    EXPECT_FALSE(tree.insert(nan));
    EXPECT_EQ(nan->quadTreeNode, nullptr);

    Body* inf = add(box(10, 10, 4, 4));
    inf->worldVertices[1].x = std::numeric_limits<float>::infinity();
    EXPECT_FALSE(tree.insert(inf));
}

TEST_F(QuadTreeTest, ATreeGoneFirstLeavesItsBodiesBoxesAlone)
{
    Body* survivor = add(box(10, 10, 4, 4, 1));
    {
        QuadTree shortLived;
        ASSERT_TRUE(shortLived.build(Vector(0, 0), 256, 1));
        ASSERT_TRUE(shortLived.insert(survivor));
        shortLived.remove(survivor);
        ASSERT_TRUE(shortLived.insert(survivor));
    }
    EXPECT_EQ(survivor->quadTreeNode, nullptr);
    moveTo(*survivor, Vector(20, 20));
    EXPECT_FLOAT_EQ(survivor->bounds->minX, 18.0f);
}

// The candidate scan tests copies of the boxes, several at a time. Whatever
// the node sizes, however the boxes changed since the last query (or not):
// moved without a re-index, others taken out before them, lists grown, a
// body listed twice; edges that only touch and boxes gone NaN, it must answer
// exactly what the plain test answers over the live boxes, in the same order.
TEST_F(QuadTreeTest, CandidatesMatchThePlainOverlapTestThroughChanges)
{
    tree.setSplitAllowed(false);
    std::mt19937 rng(17);
    std::uniform_real_distribution<float> coord(-400.0f, 400.0f), size(1.0f, 90.0f), speed(-900.0f, 900.0f);
    std::vector<Body*> all;
    for (int i = 0; i < 150; ++i) {
        Body* b = add(box(coord(rng), coord(rng), size(rng), size(rng), i % 4 == 0 ? 0.0f : 1.0f));
        ASSERT_TRUE(tree.insert(b));
        all.push_back(b);
    }
    // Probes, immovable ones among them, around the centre where every node
    // meets, and exactly edge to edge with a crate (strictly apart).
    std::vector<Body*> probes = {add(box(0, 0, 40, 40, 1)), add(box(0, 0, 300, 20, 0)), add(box(100, 100, 10, 10, 1)),
                                 add(box(110, 100, 10, 10, 1))};
    for (int i = 0; i < 30; ++i)
        probes.push_back(add(box(coord(rng), coord(rng), size(rng) * 2.0f, size(rng) * 2.0f, i % 3 ? 1.0f : 0.0f)));
    for (Body* p : probes)
        ASSERT_TRUE(tree.insert(p));

    const auto check = [&](const char* stage) {
        for (Body* probe : probes) {
            std::vector<Body*> got, want;
            tree.candidates(*probe, got, 0.025f);
            referenceCandidates(tree, *probe, want);
            ASSERT_EQ(got, want)
                << stage << ", probe at " << probe->pos.x << "," << probe->pos.y;
        }
    };
    check("fresh");
    check("asked again");

    // Swept boxes: some bodies move this step, one box goes NaN.
    for (size_t i = 0; i < all.size(); i += 3) {
        all[i]->vel = Vector(speed(rng), speed(rng));
        all[i]->updateSweep(0.025f);
    }
    all[5]->vel = Vector(std::nanf(""), 0.0f);
    all[5]->updateSweep(0.025f);
    check("swept");

    // Moved without a re-index, then some re-indexed (to the end of a list)
    // and some taken out.
    for (size_t i = 1; i < all.size(); i += 4) {
        moveTo(*all[i], Vector(coord(rng), coord(rng)));
    }
    check("moved");
    for (size_t i = 2; i < all.size(); i += 5)
        ASSERT_TRUE(tree.update(all[i]));
    for (size_t i = 7; i < all.size(); i += 11)
        all[i]->quadTreeNode->remove(all[i]);
    check("re-indexed");

    // Listed twice by mistake: both entries follow the body, and taking one
    // out leaves the other.
    Body* twice = all[3];
    ASSERT_TRUE(tree.insert(twice));
    moveTo(*twice, probes[0]->pos);
    check("listed twice");
    twice->quadTreeNode->remove(twice);
    check("one entry taken out");
}
