#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "world/body/Body.h"
#include "world/physics/Collision.h"

namespace {
constexpr float dt = 0.025f;

struct Recorder : Body {
    int touches = 0;
    TouchInfo last;
    void onTouch(TouchInfo& info) override
    {
        ++touches;
        last = info;
    }
};

void shape(Body& b, float x, float y, float w, float h, float mass)
{
    b.setPosition(Vector(x, y));
    b.makeRectangle(w, h);
    b.setMass(mass);
    b.updateBounds();
}

// A 100 x 20 immovable floor whose top is at y = 10.
void makeFloor(Body& floor) { shape(floor, 0, 0, 100, 20, 0); }
}

TEST(CollisionTest, TouchingWindowSinkingLessThanAQuantumIsNoContact)
{
    Collision c;
    Recorder floor, crate;
    makeFloor(floor);
    shape(crate, 0, 15.0f - 0.05f, 10, 10, 10);
    c.collide(crate, floor, dt);
    EXPECT_EQ(crate.touches, 0);
    EXPECT_EQ(floor.touches, 0);
    EXPECT_FALSE(crate.onGround);
    EXPECT_FLOAT_EQ(crate.pos.y, 14.95f);

    // Exactly touching, and a time of entry inside the first quantum.
    shape(crate, 0, 15.0f, 10, 10, 10);
    c.collide(crate, floor, dt);
    crate.vel = Vector(0, -40);  // 1 unit this step: entry at 0.1
    crate.setPosition(Vector(0, 15.1f));
    c.collide(crate, floor, dt);
    EXPECT_EQ(crate.touches, 0);
}

TEST(CollisionTest, SinkingTwoTenthsIsPushedOutByOneQuantum)
{
    Collision c;
    Recorder floor, crate;
    makeFloor(floor);
    shape(crate, 3, 15.0f - 0.2f, 10, 10, 10);
    c.collide(crate, floor, dt);
    ASSERT_EQ(crate.touches, 1);
    ASSERT_EQ(floor.touches, 1);
    EXPECT_NEAR(crate.pos.y, 14.8f + 0.125f, 1e-5f);
    EXPECT_FLOAT_EQ(crate.pos.x, 3.0f);
    EXPECT_FLOAT_EQ(floor.pos.y, 0.0f);
    EXPECT_TRUE(crate.onGround);
    EXPECT_FLOAT_EQ(crate.last.time, -0.125f);
    EXPECT_FLOAT_EQ(crate.last.normal.x, 0.0f);
    EXPECT_FLOAT_EQ(crate.last.normal.y, 1.0f);
    EXPECT_EQ(crate.last.other, &floor);
    EXPECT_EQ(floor.last.other, &crate);
    // Both get the same normal, pointing from the other body to the processed one.
    EXPECT_FLOAT_EQ(floor.last.normal.y, 1.0f);
}

TEST(CollisionTest, ABoxLandingOnAFloorBouncesFaintlyAndSlides)
{
    Collision c;
    Recorder floor, crate;
    makeFloor(floor);
    // 1 unit above the floor, falling 2.5 units this step: entry at 0.4.
    shape(crate, 0, 16, 10, 10, 10);
    crate.vel = Vector(3, -100);
    c.collide(crate, floor, dt);
    ASSERT_EQ(crate.touches, 1);
    EXPECT_FLOAT_EQ(crate.last.time, 0.375f);
    EXPECT_NEAR(crate.last.point.y, 16.0f - 2.5f * 0.375f, 1e-5f);
    EXPECT_TRUE(crate.onGround);
    EXPECT_NEAR(crate.vel.y, 5.0f, 1e-4f);   // 0.05 of the approach speed, upwards
    EXPECT_NEAR(crate.vel.x, 2.97f, 1e-5f);  // 1% of the slide removed
    EXPECT_FLOAT_EQ(crate.pos.y, 16.0f);     // swept contacts only change velocity
    EXPECT_TRUE(floor.vel.isZero());

    // Below the static friction speed the slide stops completely.
    shape(crate, 0, 16, 10, 10, 10);
    crate.vel = Vector(0.05f, -100);
    c.collide(crate, floor, dt);
    EXPECT_FLOAT_EQ(crate.vel.x, 0.0f);
    EXPECT_NEAR(crate.vel.y, 5.0f, 1e-4f);

    // Already separating: no bounce is added, only friction.
    shape(crate, 0, 14.5f, 10, 10, 10);
    crate.vel = Vector(10, 20);
    c.collide(crate, floor, dt);
    EXPECT_FLOAT_EQ(crate.vel.y, 20.0f);
    EXPECT_NEAR(crate.vel.x, 9.9f, 1e-5f);
}

TEST(CollisionTest, WallsAndCeilingsDoNotCountAsGround)
{
    Collision c;
    Recorder wall, crate;
    shape(wall, 0, 0, 20, 100, 0);
    shape(crate, 14.7f, 0, 10, 10, 10);  // 0.3 into the wall's right side
    c.collide(crate, wall, dt);
    ASSERT_EQ(crate.touches, 1);
    EXPECT_FALSE(crate.onGround);
    EXPECT_NEAR(crate.pos.x, 14.7f + 0.25f, 1e-5f);
    EXPECT_FLOAT_EQ(crate.last.normal.x, 1.0f);

    Recorder ceiling;
    shape(ceiling, 0, 100, 100, 20, 0);
    shape(crate, 0, 85.5f, 10, 10, 10);
    c.collide(crate, ceiling, dt);
    EXPECT_FALSE(crate.onGround);
    EXPECT_FLOAT_EQ(crate.last.normal.y, -1.0f);
}

TEST(CollisionTest, NonSolidBodiesAreToldButNeverPushed)
{
    Collision c;
    Recorder trigger, crate;
    shape(trigger, 0, 0, 50, 50, 0);
    trigger.solid = false;
    shape(crate, 0, 20, 10, 10, 10);
    crate.vel = Vector(5, -50);
    c.collide(crate, trigger, dt);
    EXPECT_EQ(crate.touches, 1);
    EXPECT_EQ(trigger.touches, 1);
    EXPECT_FLOAT_EQ(crate.pos.y, 20.0f);
    EXPECT_FLOAT_EQ(crate.vel.y, -50.0f);
    EXPECT_FALSE(crate.onGround);

    // A refusal from either side has the same effect.
    struct Refuser : Recorder {
        bool collidesWith(Body*) override { return false; }
    };
    Refuser ghost;
    shape(ghost, 0, 20, 10, 10, 10);
    Recorder floor;
    shape(floor, 0, 0, 50, 50, 0);
    c.collide(ghost, floor, dt);
    EXPECT_EQ(ghost.touches, 1);
    EXPECT_FLOAT_EQ(ghost.pos.y, 20.0f);
}

TEST(CollisionTest, ImmovablePairsAndSelfAreSkipped)
{
    Collision c;
    Recorder a, b;
    shape(a, 0, 0, 10, 10, 0);
    shape(b, 2, 2, 10, 10, 0);
    c.collide(a, b, dt);
    c.collide(a, a, dt);
    EXPECT_EQ(a.touches, 0);
    EXPECT_EQ(b.touches, 0);
}

TEST(CollisionTest, TwoMovableBodiesShareTheSeparationAndImpulse)
{
    Collision c;
    Recorder left, right;
    shape(left, 0, 0, 10, 10, 10);
    shape(right, 9.5f, 0, 10, 10, 10);
    left.vel = Vector(20, 0);
    c.collide(left, right, dt);
    ASSERT_EQ(left.touches, 1);
    // 0.5 overlap: each moves half of it out.
    EXPECT_NEAR(left.pos.x, -0.25f, 1e-5f);
    EXPECT_NEAR(right.pos.x, 9.75f, 1e-5f);
    // Equal masses share the impulse: momentum is kept.
    EXPECT_NEAR(left.vel.x + right.vel.x, 20.0f, 1e-4f);
    EXPECT_NEAR(right.vel.x - left.vel.x, 20.0f * 0.05f, 1e-4f);

    // A heavy body barely notices a light one.
    Recorder light, heavy;
    shape(light, 0, 0, 10, 10, 1);
    shape(heavy, 9.5f, 0, 10, 10, 1000);
    light.vel = Vector(100, 0);
    c.collide(light, heavy, dt);
    EXPECT_LT(heavy.vel.x, 0.2f);
    EXPECT_LT(light.vel.x, 0.0f);
}

TEST(CollisionTest, FastBodiesDoNotTunnelThroughThinWalls)
{
    Collision c;
    Recorder wall, bullet;
    shape(wall, 0, 0, 2, 100, 0);
    shape(bullet, -20, 0, 4, 4, 1);
    bullet.vel = Vector(950, 0);  // 23.75 units this step
    c.collide(bullet, wall, dt);
    ASSERT_EQ(bullet.touches, 1);
    EXPECT_FLOAT_EQ(bullet.last.normal.x, -1.0f);
    EXPECT_LT(bullet.vel.x, 0.0f);
}

TEST(CollisionTest, SweptTestHandlesManySidedAndDegeneratePolygons)
{
    Collision c;
    Body big, small;
    big.makeCircle(50, 64);
    small.makeCircle(5, 40);
    Collision::Hit hit;
    EXPECT_TRUE(c.sweptTest(small.localVertices, Vector(0, 54), Vector(), big.localVertices, Vector(), Vector(),
                            hit));
    EXPECT_GT(hit.normal.y, 0.9f);
    EXPECT_LT(hit.time, 0.0f);

    // A polygon squashed to a point has no edges to test: no contact, no NaN.
    const std::vector<Vector> point(4, Vector(1, 1));
    EXPECT_FALSE(c.sweptTest(point, Vector(), Vector(1, 0), big.localVertices, Vector(), Vector(), hit));
    const std::vector<Vector> two = {Vector(0, 0), Vector(1, 0)};
    EXPECT_FALSE(c.sweptTest(two, Vector(), Vector(), big.localVertices, Vector(), Vector(), hit));
    EXPECT_FALSE(c.sweptTest(small.localVertices, Vector(std::nanf(""), 0), Vector(), big.localVertices, Vector(),
                             Vector(), hit));

    // Same position: the axis is flipped, and the result is still a unit normal.
    EXPECT_TRUE(c.sweptTest(small.localVertices, Vector(), Vector(), small.localVertices, Vector(), Vector(), hit));
    EXPECT_NEAR(hit.normal.x * hit.normal.x + hit.normal.y * hit.normal.y, 1.0f, 1e-5f);
}

TEST(CollisionTest, IntegrationWithLiquidsAndConstantVelocity)
{
    Body b;
    shape(b, 0, 0, 10, 10, 10);
    b.vel = Vector(40, 0);
    Collision::freezeVelocity(b);
    b.vel = Vector(-1000, 0);  // changes after the freeze do not move it this step
    b.constantvelocity = Vector(0, 80);
    Collision::integrate(b, dt);
    EXPECT_FLOAT_EQ(b.pos.x, 1.0f);
    EXPECT_FLOAT_EQ(b.pos.y, 2.0f);
    EXPECT_FLOAT_EQ(b.oldpos.x, 0.0f);
    EXPECT_FALSE(b.inliquidlastframe);

    b.inliquid = true;
    b.liquidfriction = 0.0f;
    Collision::integrate(b, dt);
    EXPECT_FLOAT_EQ(b.pos.x, 1.0f);
    EXPECT_FLOAT_EQ(b.pos.y, 2.0f);
    EXPECT_TRUE(b.inliquidlastframe);
    EXPECT_FALSE(b.inliquid);

    b.inliquid = true;
    b.liquidfriction = 0.5f;
    Collision::integrate(b, dt);
    EXPECT_FLOAT_EQ(b.pos.x, 1.5f);
    EXPECT_FLOAT_EQ(b.pos.y, 3.0f);

    Body wall;
    shape(wall, 0, 0, 10, 10, 0);
    wall.vel = Vector(5, 5);
    wall.frozenvel = Vector(5, 5);
    Collision::integrate(wall, dt);
    EXPECT_TRUE(wall.vel.isZero());
    EXPECT_TRUE(wall.pos.isZero());

    Body platform;
    shape(platform, 0, 0, 10, 10, 0);
    platform.nonmassmover = true;
    platform.constantvelocity = Vector(40, 0);
    Collision::integrate(platform, dt);
    EXPECT_FLOAT_EQ(platform.pos.x, 1.0f);

    Body gravityless;
    shape(gravityless, 0, 0, 10, 10, 10);
    gravityless.gravitymultiplier = 0.0f;
    Collision::applyGravity(gravityless, -500, dt);
    EXPECT_TRUE(gravityless.vel.isZero());
    b.vel = Vector();
    Collision::applyGravity(b, -500, dt);
    EXPECT_NEAR(b.vel.y, -12.5f, 1e-4f);
}

// Turned bodies are tested with their turned polygon, unturned ones with
// their own vertex list: a 10 x 40 post turned a quarter acts as a 40 x 10 bar.
TEST(CollisionTest, TurnedBodiesCollideWithTheirTurnedShape)
{
    Collision c;
    Recorder floor, post, bar, offset;
    makeFloor(floor);
    // Feet 3 above the floor, falling 5 this step: contact at 0.6, kept as 0.5.
    shape(post, 0, 33, 10, 40, 1);
    shape(bar, 0, 18, 10, 40, 1);
    // Only a 40-wide bar reaches the floor's end at x = 50 from here.
    shape(offset, 65, 18, 10, 40, 1);
    for (Recorder* r : {&bar, &offset}) {
        r->rotation = 1.5707964f;
        r->transform();
    }
    for (Recorder* r : {&post, &bar, &offset}) {
        r->vel = Vector(0, -200);
        c.collide(*r, floor, dt);
        ASSERT_EQ(r->touches, 1);
        EXPECT_FLOAT_EQ(r->last.time, 0.5f);
        EXPECT_NEAR(r->last.normal.y, 1.0f, 1e-6f);
    }
}
