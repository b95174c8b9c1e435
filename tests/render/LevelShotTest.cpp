#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "render/LevelShot.h"
#include "world/body/Body.h"

TEST(LevelShot, OutputPathKeepsPlainNamesInsideScreenshots)
{
    EXPECT_EQ(LevelShot::outputPath("quay.png"), "screenshots/quay.png");
    EXPECT_EQ(LevelShot::outputPath("quay"), "screenshots/quay.png");
    EXPECT_EQ(LevelShot::outputPath("act1-quay_2.png"), "screenshots/act1-quay_2.png");
    for (const char* bad : {"", "../quay.png", "/tmp/x.png", "a/b.png", ".hidden", "a b.png", "a\\b.png"})
        EXPECT_EQ(LevelShot::outputPath(bad), "") << bad;
    EXPECT_EQ(LevelShot::outputPath(std::string(500, 'a')), "");
}

TEST(LevelShot, PlanFitsTheLongSideAndKeepsTheShape)
{
    // 4000 x 1000 units of level, plus the border on each side.
    LevelShot::Plan wide = LevelShot::plan(-1000, 0, 3000, 1000);
    EXPECT_EQ(wide.width, LevelShot::longSide);
    EXPECT_NEAR(static_cast<float>(wide.height) / wide.width, (1000 + 2 * LevelShot::margin) / (4000 + 2 * LevelShot::margin),
                0.002f);
    EXPECT_FLOAT_EQ(wide.left, -1000 - LevelShot::margin);
    EXPECT_FLOAT_EQ(wide.bottom, -LevelShot::margin);

    LevelShot::Plan tall = LevelShot::plan(0, 0, 100, 5000);
    EXPECT_EQ(tall.height, LevelShot::longSide);
    EXPECT_GE(tall.width, 1);

    // A single point still gives a picture, never a zero or huge size.
    LevelShot::Plan dot = LevelShot::plan(5, 5, 5, 5);
    EXPECT_EQ(dot.width, LevelShot::longSide);
    EXPECT_EQ(dot.height, LevelShot::longSide);
}

TEST(LevelShot, ExtentCoversVisibleBodiesOnly)
{
    Body ground, hidden, broken;
    ground.worldVertices = {Vector(-50, -20), Vector(300, -20), Vector(300, 0), Vector(-50, 0)};
    hidden.worldVertices = {Vector(-5000, 0), Vector(5000, 900)};
    hidden.visible = false;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    broken.worldVertices = {Vector(nan, 0), Vector(0, std::numeric_limits<float>::infinity())};
    float minX = 0, minY = 0, maxX = 0, maxY = 0;
    ASSERT_TRUE(LevelShot::extent({&ground, &hidden, &broken, nullptr}, minX, minY, maxX, maxY));
    EXPECT_FLOAT_EQ(minX, -50);
    EXPECT_FLOAT_EQ(maxX, 300);
    EXPECT_FLOAT_EQ(minY, -20);
    EXPECT_FLOAT_EQ(maxY, 0);
    EXPECT_FALSE(LevelShot::extent({&hidden}, minX, minY, maxX, maxY));
}
