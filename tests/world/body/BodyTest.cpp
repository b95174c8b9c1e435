#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cmath>
#include <limits>

#include "particles/ParticleSystem.h"
#include "world/WorldTestHelpers.h"
#include "world/body/Body.h"

TEST(BodyTest, SpeedIsCappedAndImmovableBodiesIgnorePushes)
{
    Body b;
    b.addVelocity(Vector(1000, 0));
    EXPECT_FLOAT_EQ(b.vel.x, 950.0f);
    EXPECT_FLOAT_EQ(b.vel.y, 0.0f);

    b.vel = Vector();
    b.applyForce(Vector(0, -1e9f), 0.025f);
    EXPECT_NEAR(std::sqrt(b.vel.x * b.vel.x + b.vel.y * b.vel.y), 950.0f, 0.01f);

    Body wall;
    wall.setMass(0.00000001f);
    EXPECT_EQ(wall.mass, 0.0f);
    EXPECT_EQ(wall.invMass, 0.0f);
    wall.addVelocity(Vector(5, 5));
    wall.applyForce(Vector(5, 5), 1.0f);
    EXPECT_TRUE(wall.vel.isZero());

    // Non-finite input is refused rather than poisoning the velocity.
    b.vel = Vector(1, 2);
    b.addVelocity(Vector(std::numeric_limits<float>::infinity(), 0));
    b.applyForce(Vector(std::nanf(""), 0), 0.025f);
    EXPECT_FLOAT_EQ(b.vel.x, 1.0f);
    EXPECT_FLOAT_EQ(b.vel.y, 2.0f);
}

TEST(BodyTest, RectangleAndCircleShapesTurnClockwise)
{
    Body b;
    b.setPosition(Vector(10, 20));
    b.makeRectangle(4, 2);
    ASSERT_EQ(b.localVertices.size(), 4u);
    EXPECT_FLOAT_EQ(b.localVertices[0].x, -2.0f);
    EXPECT_FLOAT_EQ(b.localVertices[0].y, -1.0f);
    EXPECT_FLOAT_EQ(b.worldVertices[2].x, 12.0f);
    EXPECT_FLOAT_EQ(b.worldVertices[2].y, 21.0f);
    EXPECT_FLOAT_EQ(b.texCoords[1].u, 1.0f);
    EXPECT_FLOAT_EQ(b.colours[3].a, 255.0f);
    // Positive angles turn clockwise.
    b.rotation = 3.1415927f / 2.0f;
    b.transform();
    EXPECT_NEAR(b.worldVertices[0].x, 9.0f, 1e-5f);
    EXPECT_NEAR(b.worldVertices[0].y, 22.0f, 1e-5f);
    EXPECT_EQ(b.spareVertices.size(), 4u);

    Body c;
    c.makeCircle(10, 7);  // 51-degree steps: 0, 51, ... 357
    ASSERT_EQ(c.localVertices.size(), 8u);
    EXPECT_NEAR(c.localVertices[0].x, 0.0f, 1e-4f);
    EXPECT_NEAR(c.localVertices[0].y, -10.0f, 1e-4f);

    Body bad;
    bad.makeCircle(10, 0);
    bad.makeCircle(std::nanf(""), 5);
    EXPECT_TRUE(bad.localVertices.empty());
}

// Level polygons give their centre in either winding, far from the origin
// without losing digits; degenerate ones are refused with the reason and
// leave the answer untouched rather than NaN.
TEST(BodyTest, CentroidOfLevelPolygons)
{
    const float inf = std::numeric_limits<float>::infinity();
    struct Case {
        std::vector<Vector> pts;
        Vector centre;
        const char* why;
    };
    const Case cases[] = {
        {{Vector(1000, 1000), Vector(1004, 1000), Vector(1004, 1002), Vector(1000, 1002)}, Vector(1002, 1001), ""},
        {{Vector(0, 0), Vector(0, 6), Vector(3, 0)}, Vector(1, 2), ""},
        {{}, Vector(7, 8), "vertices"},
        {{Vector(0, 0), Vector(1, 1)}, Vector(7, 8), "vertices"},
        {{Vector(0, 0), Vector(1, 1), Vector(2, 2)}, Vector(7, 8), "area"},
        {{Vector(3, 3), Vector(3, 3), Vector(3, 3), Vector(3, 3)}, Vector(7, 8), "area"},
        {{Vector(0, 0), Vector(inf, 0), Vector(0, 1)}, Vector(7, 8), "finite"},
        {{Vector(0, 0), Vector(std::nanf(""), 0), Vector(0, 1)}, Vector(7, 8), "finite"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.pts.size());
        Body b;
        for (const Vector& p : k.pts)
            b.addVertex(p.x, p.y, 0);
        Vector c(7, 8);
        const std::string problem = Body::polygonProblem(b.worldVertices);
        EXPECT_EQ(b.centroid(c), problem.empty());
        EXPECT_NEAR(c.x, k.centre.x, 1e-3f);
        EXPECT_NEAR(c.y, k.centre.y, 1e-3f);
        EXPECT_NE(problem.find(k.why), std::string::npos) << problem;
        EXPECT_EQ(problem.empty(), *k.why == '\0') << problem;
    }

    Body b;
    for (const Vector& p : cases[0].pts)
        b.addVertex(p.x, p.y, 0);
    b.pos = Vector(1002, 1001);
    b.makeLocalVertices();
    EXPECT_NEAR(b.localVertices[0].x, -2.0f, 1e-3f);
    EXPECT_NEAR(b.localVertices[2].y, 1.0f, 1e-3f);
    Body nowhere;
    nowhere.setPosition(Vector(std::nanf(""), 0));
    EXPECT_FLOAT_EQ(nowhere.pos.x, 0.0f);
}

TEST(BodyTest, BoundsAndSweepFollowTheMotion)
{
    Body b;
    worldtest::shapeBox(b, 100, 50, 10, 20);
    EXPECT_NEAR(b.radius, std::sqrt(125.0f), 1e-4f);
    EXPECT_FLOAT_EQ(b.bounds->minX, 95.0f);
    EXPECT_FLOAT_EQ(b.bounds->maxY, 60.0f);
    EXPECT_FLOAT_EQ(b.sweptRadius, b.radius);

    b.vel = Vector(-40, 80);
    b.updateSweep(0.5f);  // moves by (-20, 40)
    EXPECT_FLOAT_EQ(b.nextPosition.x, 80.0f);
    EXPECT_FLOAT_EQ(b.bounds->centreX, 80.0f);
    EXPECT_FLOAT_EQ(b.bounds->left, 25.0f);
    EXPECT_FLOAT_EQ(b.bounds->right, 5.0f);
    EXPECT_FLOAT_EQ(b.bounds->top, 50.0f);
    EXPECT_FLOAT_EQ(b.bounds->bottom, 10.0f);
    EXPECT_FLOAT_EQ(b.bounds->minX, 55.0f);
    EXPECT_FLOAT_EQ(b.bounds->maxY, 140.0f);
    const float d = std::sqrt(20.0f * 20.0f + 40.0f * 40.0f);
    EXPECT_NEAR(b.sweptRadius, d + 2.0f * b.radius, 1e-3f);  // moved further than its radius

    // Strict overlap: boxes that share an edge do not overlap.
    Body a, c;
    worldtest::shapeBox(a, 0, 0, 2, 2);
    worldtest::shapeBox(c, 2, 0, 2, 2);
    EXPECT_FALSE(a.boundsOverlap(c));
    worldtest::shapeBox(c, 1.9f, 0, 2, 2);
    EXPECT_TRUE(a.boundsOverlap(c));
}

// The level debug dump lists targets by id; a target listed twice is
// removed one listing at a time.
TEST(BodyTest, TargetsAreListedByIdAndRemovedOnce)
{
    Body a, other;
    EXPECT_EQ(a.debugString().find("target pointers"), std::string::npos);
    other.id = "door1";
    a.addTarget(&other);
    a.addTarget(&other);
    EXPECT_NE(a.debugString().find(" target pointers: door1, door1, "), std::string::npos);
    a.removeTarget(&other);
    EXPECT_EQ(a.targetList.size(), 1u);
}

// Hostile saved values read as defaults, never as NaN or absurd speeds.
TEST(BodyTest, HostileSavedStateReadsAsDefaults)
{
    TiXmlElement bad("body");
    bad.SetAttribute("pos", "nan,inf");
    bad.SetAttribute("vel", "1e30,0");
    bad.SetAttribute("nextthink", "nan");
    bad.SetAttribute("inliquid", "yes");
    Body c;
    c.pos = Vector(1, 1);
    c.readState(&bad);
    EXPECT_FLOAT_EQ(c.pos.x, 1.0f);
    EXPECT_FLOAT_EQ(c.vel.x, 950.0f);
    EXPECT_FLOAT_EQ(c.nextthink, 0.0f);
    EXPECT_FALSE(c.inliquid);
    EXPECT_FLOAT_EQ(c.gravitymultiplier, 0.0f);
}

TEST(BodyTest, DetachedParticleSystemNoLongerKnowsTheBody)
{
    // A pickup lets its glow fade on after detaching it, then the level is
    // unloaded: the glow ending must not reach the deleted body.
    ParticleSystem system;
    {
        Body body;
        body.attachParticleSystem(&system);
        ASSERT_EQ(system.getObservers().size(), 1u);
        body.detachParticleSystem(&system);
        EXPECT_TRUE(system.getObservers().empty());
        EXPECT_EQ(body.getAttachedParticleSystemCount(), 0);
    }
    system.notifyObservers();
}
