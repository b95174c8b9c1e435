#include <gtest/gtest.h>

#include "render/Frustum.h"

namespace {
// Camera 256 units in front of the z = 0 plane, looking at (cx, cy, 0).
void aimCamera(Frustum& f, float cx, float cy)
{
    f.setCameraInternals(90.0f, 4.0f / 3.0f, 0.1f, 4096.0f);
    f.setCameraDefinition(Vector(cx, cy, 256.0f), Vector(cx, cy, 0.0f), Vector(0.0f, 1.0f, 0.0f));
}
}

TEST(FrustumTest, InternalsDeriveNearAndFarRectanglesAndPlanesFaceInwardAroundTheView)
{
    Frustum f;
    f.setCameraInternals(90.0f, 2.0f, 1.0f, 100.0f);
    EXPECT_NEAR(f.getNearHeight(), 1.0f, 1e-5f);  // tan(45 degrees) x near
    EXPECT_NEAR(f.getNearWidth(), 2.0f, 1e-5f);
    EXPECT_NEAR(f.getFarHeight(), 100.0f, 1e-3f);
    EXPECT_NEAR(f.getFarWidth(), 200.0f, 1e-3f);

    aimCamera(f, 100.0f, 50.0f);
    // At 256 units with a 90 degree lens the half height on z = 0 is 256.
    EXPECT_EQ(f.classifyPoint(Vector(100.0f, 50.0f, 0.0f)), Frustum::Inside);
    EXPECT_EQ(f.classifyPoint(Vector(100.0f, 50.0f + 250.0f, 0.0f)), Frustum::Inside);
    EXPECT_EQ(f.classifyPoint(Vector(100.0f, 50.0f + 262.0f, 0.0f)), Frustum::Outside);
    EXPECT_EQ(f.classifyPoint(Vector(100.0f + 335.0f, 50.0f, 0.0f)), Frustum::Inside);
    EXPECT_EQ(f.classifyPoint(Vector(100.0f + 350.0f, 50.0f, 0.0f)), Frustum::Outside);
    // Behind the eye and past the far plane.
    EXPECT_EQ(f.classifyPoint(Vector(100.0f, 50.0f, 300.0f)), Frustum::Outside);
    EXPECT_EQ(f.classifyPoint(Vector(100.0f, 50.0f, -5000.0f)), Frustum::Outside);
    for (int i = 0; i < Frustum::planeCount; ++i) {
        const Vector& n = f.getPlane(i).normal;
        EXPECT_NEAR(n.x * n.x + n.y * n.y + n.z * n.z, 1.0f, 1e-4f) << "plane " << i;
        EXPECT_EQ(n.w, 0.0f);
    }
}

TEST(FrustumTest, BoxesAreInsideIntersectingOrOutside)
{
    Frustum f;
    aimCamera(f, 0.0f, 0.0f);
    EXPECT_EQ(f.classifyBox(-10.0f, -10.0f, 10.0f, 10.0f), Frustum::Inside);
    EXPECT_EQ(f.classifyBox(-10.0f, -10.0f, 1000.0f, 10.0f), Frustum::Intersect);
    EXPECT_EQ(f.classifyBox(600.0f, -10.0f, 700.0f, 10.0f), Frustum::Outside);
    // A box larger than the view on every side still intersects: no plane has all corners behind.
    EXPECT_EQ(f.classifyBox(-5000.0f, -5000.0f, 5000.0f, 5000.0f), Frustum::Intersect);
    EXPECT_EQ(f.classifyPoints(nullptr, 0), Frustum::Outside);
}

TEST(FrustumTest, MatrixPlanesAgreeWithGeometricPlanes)
{
    // The renderer's world transform: scale 0.015, then the camera translation.
    const float k = 0.015f;
    const float mv[16] = {k, 0, 0, 0, 0, k, 0, 0, 0, 0, k, 0, -30.0f * k, -40.0f * k, -256.0f * k, 1};
    // gluPerspective(90, 4 / 3, 0.1, 4096).
    const float n = 0.1f, f = 4096.0f;
    const float pr[16] = {0.75f, 0, 0, 0, 0, 1, 0, 0, 0, 0, (f + n) / (n - f), -1, 0, 0, 2 * f * n / (n - f), 0};

    Frustum fromMatrices;
    fromMatrices.setFromMatrices(mv, pr);
    Frustum geometric;
    aimCamera(geometric, 30.0f, 40.0f);

    const float xs[] = {-400.0f, -300.0f, -100.0f, 0.0f, 200.0f, 330.0f, 360.0f, 500.0f};
    const float ys[] = {-300.0f, -250.0f, 0.0f, 250.0f, 270.0f, 400.0f};
    for (float x : xs)
        for (float y : ys) {
            const Vector p(30.0f + x, 40.0f + y, 0.0f);
            EXPECT_EQ(fromMatrices.classifyPoint(p), geometric.classifyPoint(p)) << x << "," << y;
        }
}
