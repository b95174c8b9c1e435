#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "world/WorldTestHelpers.h"
#include "world/body/Body.h"
#include "world/physics/Collision.h"

namespace {
constexpr float dt = 0.025f;

struct Recorder : Body {
    int touches = 0;
    TouchInfo last;
    bool refuses = false;
    void onTouch(TouchInfo& info) override
    {
        ++touches;
        last = info;
    }
    bool collidesWith(Body*) override { return !refuses; }
};

using worldtest::shapeBox;
}

// One body m against one other o in a single collide call: whether both are
// told, where m ends up, its velocity, ground flag and the contact it saw.
TEST(CollisionTest, OnePairInOneStep)
{
    struct Box {
        float x, y, w, h, mass;
        bool solid = true;
        bool refuses = false;
        float rotation = 0.0f;
    };
    const Box floor{0, 0, 100, 20, 0};
    const Box crate{0, 0, 10, 10, 10};
    const auto crateAt = [&](float x, float y) { return Box{x, y, crate.w, crate.h, crate.mass}; };
    struct Case {
        const char* name;
        Box other, self;
        Vector vel;
        int touches;
        Vector pos, wantVel;
        bool ground;
        Vector normal;  // m's, pointing from o to m; o is told the same
        float time;
        float pointY = std::nanf("");
    };
    const Case cases[] = {
        // A touching window: sinking less than a quantum is no contact.
        {"sunk 0.05", floor, crateAt(0, 14.95f), Vector(), 0, Vector(0, 14.95f), Vector(), false, Vector(), 0},
        {"exactly touching", floor, crateAt(0, 15), Vector(), 0, Vector(0, 15), Vector(), false, Vector(), 0},
        // 1 unit this step: entry at 0.1.
        {"entry inside the first quantum", floor, crateAt(0, 15.1f), Vector(0, -40), 0, Vector(0, 15.1f),
         Vector(0, -40), false, Vector(), 0},
        {"sunk 0.2 is pushed out by one quantum", floor, crateAt(3, 14.8f), Vector(), 1, Vector(3, 14.925f), Vector(),
         true, Vector(0, 1), -0.125f},
        // 1 above, falling 2.5 this step: entry at 0.4, kept as 0.375. A bounce
        // of 0.05 of the approach speed, 1% of the slide taken, and swept
        // contacts only change velocity.
        {"landing", floor, crateAt(0, 16), Vector(3, -100), 1, Vector(0, 16), Vector(2.97f, 5), true, Vector(0, 1),
         0.375f, 16.0f - 2.5f * 0.375f},
        {"below the static friction speed the slide stops", floor, crateAt(0, 16), Vector(0.05f, -100), 1,
         Vector(0, 16), Vector(0, 5), true, Vector(0, 1), 0.375f},
        // Sunk 0.5: pushed out by whole quanta, then friction but no bounce.
        {"already separating", floor, crateAt(0, 14.5f), Vector(10, 20), 1, Vector(0, 15), Vector(9.9f, 20), true,
         Vector(0, 1), -0.5f},
        {"a wall is not ground", Box{0, 0, 20, 100, 0}, crateAt(14.7f, 0), Vector(), 1, Vector(14.95f, 0), Vector(),
         false, Vector(1, 0), -0.25f},
        {"a ceiling is not ground", Box{0, 100, 100, 20, 0}, crateAt(0, 85.5f), Vector(), 1, Vector(0, 85),
         Vector(), false, Vector(0, -1), -0.5f},
        {"non-solid bodies are told but never pushed", Box{0, 0, 50, 50, 0, false}, crateAt(0, 20), Vector(5, -50),
         1, Vector(0, 20), Vector(5, -50), false, Vector(0, 1), -10},
        {"a refusal is the same", Box{0, 0, 50, 50, 0}, Box{0, 20, 10, 10, 10, true, true}, Vector(), 1,
         Vector(0, 20), Vector(), false, Vector(0, 1), -10},
        // 23.75 units this step through a wall 2 thick.
        {"fast bodies do not tunnel", Box{0, 0, 2, 100, 0}, Box{-20, 0, 4, 4, 1}, Vector(950, 0), 1, Vector(-20, 0),
         Vector(-47.5f, 0), false, Vector(-1, 0), 0.625f},
        {"two immovable bodies are skipped", Box{0, 0, 10, 10, 0}, Box{2, 2, 10, 10, 0}, Vector(), 0, Vector(2, 2),
         Vector(), false, Vector(), 0},
        // A 10 x 40 post turned a quarter acts as a 40 x 10 bar: 3 above the
        // floor, falling 5 this step, contact at 0.6 kept as 0.5. Only the bar
        // reaches the floor's end at x = 50 from x = 65.
        {"turned bodies collide with their turned shape", floor, Box{0, 18, 10, 40, 1, true, false, 1.5707964f},
         Vector(0, -200), 1, Vector(0, 18), Vector(0, 10), true, Vector(0, 1), 0.5f},
        {"turned, past the end", floor, Box{65, 18, 10, 40, 1, true, false, 1.5707964f}, Vector(0, -200), 1,
         Vector(65, 18), Vector(0, 10), true, Vector(0, 1), 0.5f},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Collision collision;
        Recorder o, m;
        shapeBox(o, c.other.x, c.other.y, c.other.w, c.other.h, c.other.mass);
        o.solid = c.other.solid;
        shapeBox(m, c.self.x, c.self.y, c.self.w, c.self.h, c.self.mass);
        m.refuses = c.self.refuses;
        m.rotation = c.self.rotation;
        m.vel = c.vel;
        collision.collide(m, o, dt);
        ASSERT_EQ(m.touches, c.touches);
        EXPECT_EQ(o.touches, c.touches);
        EXPECT_NEAR(m.pos.x, c.pos.x, 1e-5f);
        EXPECT_NEAR(m.pos.y, c.pos.y, 1e-5f);
        EXPECT_NEAR(m.vel.x, c.wantVel.x, 1e-4f);
        EXPECT_NEAR(m.vel.y, c.wantVel.y, 1e-4f);
        EXPECT_EQ(m.onGround, c.ground);
        EXPECT_TRUE(o.pos.equals(Vector(c.other.x, c.other.y)));
        EXPECT_TRUE(o.vel.isZero());
        if (c.touches == 0)
            continue;
        EXPECT_EQ(m.last.other, &o);
        EXPECT_EQ(o.last.other, &m);
        EXPECT_EQ(m.last.self, &m);
        EXPECT_EQ(o.last.self, &o);
        EXPECT_NEAR(m.last.normal.x, c.normal.x, 1e-6f);
        EXPECT_NEAR(m.last.normal.y, c.normal.y, 1e-6f);
        EXPECT_TRUE(o.last.normal.equals(m.last.normal));
        EXPECT_FLOAT_EQ(m.last.time, c.time);
        if (!std::isnan(c.pointY)) {
            EXPECT_NEAR(m.last.point.y, c.pointY, 1e-5f);
        }
    }
}

TEST(CollisionTest, TwoMovableBodiesShareTheSeparationAndImpulse)
{
    Collision c;
    Recorder left, right;
    shapeBox(left, 0, 0, 10, 10, 10);
    shapeBox(right, 9.5f, 0, 10, 10, 10);
    left.vel = Vector(20, 0);
    c.collide(left, left, dt);
    EXPECT_EQ(left.touches, 0) << "a body never meets itself";
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
    shapeBox(light, 0, 0, 10, 10, 1);
    shapeBox(heavy, 9.5f, 0, 10, 10, 1000);
    light.vel = Vector(100, 0);
    c.collide(light, heavy, dt);
    EXPECT_LT(heavy.vel.x, 0.2f);
    EXPECT_LT(light.vel.x, 0.0f);
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

// One integration step moves by the velocity frozen before the contacts plus
// the constant one, scaled in a liquid; immovable bodies stop unless they move
// themselves, and a position that would not be finite stays where it was.
TEST(CollisionTest, IntegrateOneStep)
{
    const float inf = std::numeric_limits<float>::infinity();
    struct Case {
        const char* name;
        float mass;
        Vector frozen, constant;
        bool inliquid;
        float liquidfriction;
        bool nonmassmover;
        Vector pos;
        bool stops;
    };
    const Case cases[] = {
        {"frozen plus constant", 10, Vector(40, 0), Vector(0, 80), false, 1, false, Vector(1, 2), false},
        {"still liquid", 10, Vector(40, 0), Vector(0, 80), true, 0, false, Vector(), false},
        {"half-speed liquid", 10, Vector(40, 0), Vector(0, 80), true, 0.5f, false, Vector(0.5f, 1), false},
        {"immovable", 0, Vector(5, 5), Vector(40, 0), false, 1, false, Vector(), true},
        {"moves itself", 0, Vector(), Vector(40, 0), false, 1, true, Vector(1, 0), false},
        {"not finite", 10, Vector(inf, 0), Vector(), false, 1, false, Vector(), true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Body b;
        shapeBox(b, 0, 0, 10, 10, c.mass);
        b.vel = c.frozen;
        Collision::freezeVelocity(b);
        b.vel.y -= 1000.0f;  // changes after the freeze do not move it this step
        b.constantvelocity = c.constant;
        b.inliquid = c.inliquid;
        b.liquidfriction = c.liquidfriction;
        b.nonmassmover = c.nonmassmover;
        Collision::integrate(b, dt);
        EXPECT_FLOAT_EQ(b.pos.x, c.pos.x);
        EXPECT_FLOAT_EQ(b.pos.y, c.pos.y);
        EXPECT_EQ(b.vel.isZero(), c.stops);
        if (!c.stops) {
            EXPECT_TRUE(b.oldpos.isZero());
            EXPECT_EQ(b.inliquidlastframe, c.inliquid);
            EXPECT_FALSE(b.inliquid);
        }
    }
}
