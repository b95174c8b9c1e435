#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "world/body/Body.h"
#include "world/quadtree/QuadTree.h"

namespace {
std::unique_ptr<Body> box(float x, float y, float w, float h, float mass = 0.0f)
{
    auto b = std::make_unique<Body>();
    b->setPosition(Vector(x, y));
    b->makeRectangle(w, h);
    b->setMass(mass);
    b->updateBounds();
    return b;
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

TEST_F(QuadTreeTest, BuildMakesTwentyOneNodesAndNegativeDepthFails)
{
    int nodes = 1;
    for (const auto& c : tree.getChildren()) {
        ++nodes;
        nodes += static_cast<int>(c->getChildren().size());
        for (const auto& g : c->getChildren())
            EXPECT_TRUE(g->getChildren().empty());
    }
    EXPECT_EQ(nodes, 21);
    // Children in order: top left, top right, bottom left, bottom right.
    EXPECT_FLOAT_EQ(tree.getChildren()[0]->getCentre().x, -256.0f);
    EXPECT_FLOAT_EQ(tree.getChildren()[0]->getCentre().y, 256.0f);
    EXPECT_FLOAT_EQ(tree.getChildren()[3]->getCentre().x, 256.0f);
    EXPECT_FLOAT_EQ(tree.getChildren()[3]->getCentre().y, -256.0f);
    EXPECT_EQ(tree.getNodeBody()->type, "quadtree");
    QuadTree bad;
    EXPECT_FALSE(bad.build(Vector(), 10, -1));
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

    // Update follows a moving body and drops it once it leaves the square.
    Body* mover = add(box(-400, 400, 10, 10, 1));
    ASSERT_TRUE(tree.insert(mover));
    QuadTree* first = mover->quadTreeNode;
    mover->setPosition(Vector(400, -400));
    mover->transform();
    ASSERT_TRUE(tree.update(mover));
    EXPECT_NE(mover->quadTreeNode, first);
    EXPECT_EQ(std::count(first->getBodies().begin(), first->getBodies().end(), mover), 0);
    mover->setPosition(Vector(4000, 0));
    mover->transform();
    EXPECT_FALSE(tree.update(mover));
    EXPECT_EQ(mover->quadTreeNode, nullptr);
    EXPECT_EQ(tree.countAllBodies(), 3);
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

TEST_F(QuadTreeTest, CandidatesSkipImmovablePairsAndDistantBodies)
{
    Body* floor = add(box(0, -100, 400, 20));
    Body* wall = add(box(-190, 0, 20, 200));
    Body* crate = add(box(0, -86, 10, 10, 10));
    Body* far = add(box(300, 300, 10, 10, 10));
    for (Body* b : {floor, wall, crate, far})
        ASSERT_TRUE(tree.insert(b));

    std::vector<Body*> out;
    tree.candidates(*crate, out, 0.025f);
    EXPECT_NE(std::find(out.begin(), out.end(), floor), out.end());
    EXPECT_NE(std::find(out.begin(), out.end(), crate), out.end());
    EXPECT_EQ(std::find(out.begin(), out.end(), far), out.end());

    out.clear();
    tree.candidates(*floor, out, 0.025f);
    EXPECT_EQ(std::find(out.begin(), out.end(), wall), out.end());
    EXPECT_NE(std::find(out.begin(), out.end(), crate), out.end());
}

TEST_F(QuadTreeTest, WithinRadiusUsesTheSweptRadius)
{
    Body* a = add(box(100, 0, 10, 10));
    Body* b = add(box(-300, -300, 10, 10));
    ASSERT_TRUE(tree.insert(a));
    ASSERT_TRUE(tree.insert(b));
    const float r = a->sweptRadius;
    std::vector<Body*> out;
    tree.withinRadius(Vector(0, 0), 100.5f - r, out);
    EXPECT_EQ(out, std::vector<Body*>{a});
    out.clear();
    tree.withinRadius(Vector(0, 0), 99 - r, out);
    EXPECT_TRUE(out.empty());
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

    // A ray that starts inside a body and crosses no edge misses it.
    TraceResults inside;
    tree.trace(Ray(Vector(100, 0), Vector(101, 1)), inside, true);
    EXPECT_TRUE(inside.empty());

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
