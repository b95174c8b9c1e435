#include <gtest/gtest.h>

#include <cmath>

#include "world/geometry/Geometry.h"

namespace {
std::vector<Vector> square(float half, bool clockwise = false)
{
    std::vector<Vector> p{{-half, -half}, {half, -half}, {half, half}, {-half, half}};
    if (clockwise)
        std::reverse(p.begin(), p.end());
    return p;
}
}

TEST(Geometry, PointInConvexPolygonEitherWindingAndCircleTouches)
{
    for (bool cw : {false, true}) {
        const auto poly = square(1.0f, cw);
        EXPECT_TRUE(pointInConvexPolygon({0, 0}, poly));
        EXPECT_TRUE(pointInConvexPolygon({0.99f, -0.99f}, poly));
        EXPECT_FALSE(pointInConvexPolygon({1.5f, 0}, poly));
        EXPECT_FALSE(pointInConvexPolygon({0, -1.5f}, poly));
        EXPECT_FALSE(pointInConvexPolygon({-3, 3}, poly));
    }
    std::vector<Vector> hexagon;
    for (int i = 0; i < 6; ++i)
        hexagon.emplace_back(std::cos(i * 1.0471976f), std::sin(i * 1.0471976f));
    EXPECT_TRUE(pointInConvexPolygon({0.8f, 0.1f}, hexagon));
    EXPECT_FALSE(pointInConvexPolygon({0.95f, 0.5f}, hexagon));
    EXPECT_FALSE(pointInConvexPolygon({0, 0}, {{0, 0}, {1, 1}}));

    const auto poly = square(1.0f);
    EXPECT_TRUE(circleTouchesPolygon({0, 0}, 0.1f, poly));
    EXPECT_TRUE(circleTouchesPolygon({2, 0}, 1.0f, poly));
    EXPECT_FALSE(circleTouchesPolygon({2.1f, 0}, 1.0f, poly));
    EXPECT_FALSE(circleTouchesPolygon({2, 2}, 1.4f, poly));  // corner at distance sqrt(2)
    EXPECT_TRUE(circleTouchesPolygon({2, 2}, 1.42f, poly));
}

// Points along and nearest a segment clamp to its ends; a zero-length
// segment yields its point, not NaN.
TEST(Geometry, SegmentAndRayQueries)
{
    Vector out;
    EXPECT_TRUE(pointAlongSegment({0, 0}, {10, 0}, 0.5f, out));
    EXPECT_FLOAT_EQ(out.x, 5);
    EXPECT_FALSE(pointAlongSegment({0, 0}, {10, 0}, -1.0f, out));
    EXPECT_FLOAT_EQ(out.x, 0);
    EXPECT_FALSE(pointAlongSegment({0, 0}, {10, 0}, 2.0f, out));
    EXPECT_FLOAT_EQ(out.x, 10);

    EXPECT_FLOAT_EQ(closestPointOnSegment({0, 0}, {10, 0}, {-5, 3}).x, 0);
    EXPECT_FLOAT_EQ(closestPointOnSegment({0, 0}, {10, 0}, {15, 3}).x, 10);
    EXPECT_FLOAT_EQ(closestPointOnSegment({0, 0}, {10, 0}, {4, 3}).x, 4);
    EXPECT_FLOAT_EQ(closestPointOnSegment({2, 2}, {2, 2}, {5, 5}).x, 2);

    float t = -1;
    EXPECT_TRUE(segmentsIntersect({0, 0}, {10, 0}, {2.5f, -1}, {2.5f, 1}, t));
    EXPECT_NEAR(t, 0.25f, 1e-6f);
    EXPECT_FALSE(segmentsIntersect({0, 0}, {10, 0}, {11, -1}, {11, 1}, t));
    EXPECT_FALSE(segmentsIntersect({0, 0}, {10, 0}, {0, 1}, {10, 1}, t));  // parallel

    Plane p;
    p.normal = Vector(0, 1);
    p.distance = 5;
    EXPECT_TRUE(rayPlaneIntersection({0, 0}, {0, 2}, p, t));
    EXPECT_FLOAT_EQ(t, 2.5f);
    EXPECT_FALSE(rayPlaneIntersection({0, 0}, {1, 0}, p, t));
    EXPECT_TRUE(p.inFront(Vector(0, 5)));
    EXPECT_FALSE(p.inFront(Vector(0, 4.9f)));
}
