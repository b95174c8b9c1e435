#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "core/Clock.h"
#include "core/ManualClock.h"
#include "render/Renderer.h"
#include "resources/TempDir.h"

// The renderer is exercised here without a window: only its own bookkeeping
// is checked (GL calls without a context do nothing).

TEST(RendererLogicTest, BeamQuadIsTheRectangleAroundTheSegment)
{
    Renderer r;
    float c[8];
    r.computeBeamQuad(c, Vector(0.0f, 0.0f), Vector(10.0f, 0.0f), 2.0f);
    // Normal of a beam along +x is +y, scaled by the half-width.
    const float expected[8] = {0.0f, -2.0f, 0.0f, 2.0f, 10.0f, 2.0f, 10.0f, -2.0f};
    for (int i = 0; i < 8; ++i)
        EXPECT_NEAR(c[i], expected[i], 1e-5f) << i;

    r.computeBeamQuad(c, Vector(1.0f, 1.0f), Vector(4.0f, 5.0f), 5.0f);
    // Direction (3, 4) / 5, normal (-4, 3) / 5 scaled by 5.
    EXPECT_NEAR(c[0], 1.0f + 4.0f, 1e-5f);
    EXPECT_NEAR(c[1], 1.0f - 3.0f, 1e-5f);
    EXPECT_NEAR(c[4], 4.0f - 4.0f, 1e-5f);
    EXPECT_NEAR(c[5], 5.0f + 3.0f, 1e-5f);

    // A zero-length beam degenerates to a point rather than dividing by zero.
    r.computeBeamQuad(c, Vector(3.0f, 3.0f), Vector(3.0f, 3.0f), 1.0f);
    for (int i = 0; i < 8; ++i)
        EXPECT_TRUE(std::isfinite(c[i]));
}

TEST(RendererLogicTest, TiledBeamIsCutIntoWholeTilesAndAShortLastOne)
{
    auto segments = Renderer::tiledBeamSegments(Vector(0.0f, 0.0f, 5.0f), Vector(150.0f, 0.0f), 64.0f);
    ASSERT_EQ(segments.size(), 3u);
    EXPECT_FLOAT_EQ(segments[0].second.x, 64.0f);
    EXPECT_FLOAT_EQ(segments[1].first.x, 64.0f);
    EXPECT_FLOAT_EQ(segments[1].second.x, 128.0f);
    EXPECT_FLOAT_EQ(segments[2].second.x, 150.0f);
    for (const auto& s : segments) {
        EXPECT_EQ(s.first.z, 0.0f);
        EXPECT_EQ(s.second.z, 0.0f);
    }

    // Exactly two tiles long: the second tile ends on `to`; one more step would overshoot.
    segments = Renderer::tiledBeamSegments(Vector(0.0f, 0.0f), Vector(0.0f, 128.0f), 64.0f);
    ASSERT_EQ(segments.size(), 3u);
    EXPECT_FLOAT_EQ(segments.back().first.y, 128.0f);
    EXPECT_FLOAT_EQ(segments.back().second.y, 128.0f);

    EXPECT_TRUE(Renderer::tiledBeamSegments(Vector(1.0f, 1.0f), Vector(1.0f, 1.0f), 64.0f).empty());
    EXPECT_TRUE(Renderer::tiledBeamSegments(Vector(0.0f, 0.0f), Vector(10.0f, 0.0f), 0.0f).empty());
    // Absurdly short tiles are capped instead of producing millions of quads.
    EXPECT_LE(Renderer::tiledBeamSegments(Vector(0.0f, 0.0f), Vector(1e6f, 0.0f), 1e-3f).size(), 4097u);
}

TEST(RendererLogicTest, Begin2DNestsOnceAndEnd2DOutsideDoesNothing)
{
    Renderer r;
    EXPECT_FALSE(r.isIn2D());
    r.end2D();
    EXPECT_FALSE(r.isIn2D());
    r.begin2D();
    r.begin2D();
    EXPECT_TRUE(r.isIn2D());
    r.end2D();
    EXPECT_FALSE(r.isIn2D());
}

TEST(RendererLogicTest, FpsRollsOverOncePerSecond)
{
    ManualClock clock(1000);
    Clock::install(&clock);
    {
        Renderer r;
        r.resetFpsCounter();
        for (int i = 0; i < 30; ++i) {
            clock.advance(20);
            r.beginFrame();
            r.endFrame();
        }
        EXPECT_EQ(r.getFps(), 0);  // 600 ms: no full second yet
        for (int i = 0; i < 25; ++i) {
            clock.advance(20);
            r.beginFrame();
            r.endFrame();
        }
        // The roll-over at 1000 ms counts the 49 frames ended before it.
        EXPECT_EQ(r.getFps(), 49);
    }
    Clock::install(nullptr);
}

TEST(RendererLogicTest, MovieFramesAreDueEightTimesASecondAndScreenshotNamesSkipFilesThatExist)
{
    Renderer r;
    EXPECT_TRUE(r.isMovieFrameDue(0.0f));
    EXPECT_FALSE(r.isMovieFrameDue(124.0f));
    EXPECT_TRUE(r.isMovieFrameDue(125.0f));
    EXPECT_FALSE(r.isMovieFrameDue(200.0f));

    EXPECT_EQ(Renderer::captureName(false, 5), "screenshots/screenshot0005.png");
    EXPECT_EQ(Renderer::captureName(true, 123), "screenshots/movie0123.png");

    TempDir dir;
    std::filesystem::create_directories("screenshots");
    for (int i = 0; i < 5; ++i)
        std::ofstream(Renderer::captureName(false, i)) << "x";
    EXPECT_EQ(Renderer::nextFreeScreenshot(0), 5);
    EXPECT_EQ(Renderer::nextFreeScreenshot(7), 7);
    EXPECT_EQ(Renderer::nextFreeScreenshot(20000), 9999);
    // A gap is filled first; the search then carries on past the next taken number.
    std::ofstream(Renderer::captureName(false, 6)) << "x";
    EXPECT_EQ(Renderer::nextFreeScreenshot(0), 5);
    std::ofstream(Renderer::captureName(false, 5)) << "x";
    EXPECT_EQ(Renderer::nextFreeScreenshot(5), 7);
}

TEST(RendererLogicTest, KeptBackdropBandsCoverTheWindowOnceInTurn)
{
    for (int height : {720, 601, 5, 1}) {
        std::vector<int> drawn(static_cast<size_t>(height), 0);
        // Two rounds: every row is refreshed exactly twice, with no gap or overlap.
        for (int frame = 0; frame < 16; ++frame) {
            const auto [first, end] = Renderer::backdropBandRows(frame, height);
            ASSERT_LE(0, first);
            ASSERT_LE(first, end);
            ASSERT_LE(end, height);
            for (int y = first; y < end; ++y)
                ++drawn[static_cast<size_t>(y)];
        }
        for (int y = 0; y < height; ++y)
            EXPECT_EQ(drawn[static_cast<size_t>(y)], 2) << height << " row " << y;
    }
    const auto empty = Renderer::backdropBandRows(3, 0);
    EXPECT_EQ(empty.first, empty.second);
}

TEST(RendererLogicTest, GlowGoesOnlyWhereTheSumIsLitAndOneTexelAround)
{
    const int size = 64;
    const int tile = 16;
    std::vector<unsigned char> sum(size * size * 4, 0);
    auto set = [&](int x, int y, unsigned char r, unsigned char a) {
        sum[static_cast<size_t>((y * size + x) * 4)] = r;
        sum[static_cast<size_t>((y * size + x) * 4 + 3)] = a;
    };
    auto litTiles = [&] {
        std::vector<int> on;
        const auto tiles = Renderer::litGlowTiles(sum.data(), size, size, tile);
        EXPECT_EQ(tiles.size(), 16u);
        for (size_t i = 0; i < tiles.size(); ++i)
            if (tiles[i])
                on.push_back(static_cast<int>(i));
        return on;
    };
    EXPECT_TRUE(litTiles().empty()) << "a black sum adds nothing anywhere";

    set(20, 40, 0, 255);
    EXPECT_TRUE(litTiles().empty()) << "alpha without colour adds nothing";

    set(20, 40, 9, 255);
    EXPECT_EQ(litTiles(), std::vector<int>({2 * 4 + 1})) << "inside one tile";

    // On a tile's edge, filtering reaches into the neighbour.
    set(20, 40, 0, 0);
    set(31, 40, 9, 255);
    EXPECT_EQ(litTiles(), std::vector<int>({2 * 4 + 1, 2 * 4 + 2}));

    // The texture repeats: a corner texel reaches the three far corners too.
    set(31, 40, 0, 0);
    set(0, 0, 1, 1);
    EXPECT_EQ(litTiles(), std::vector<int>({0, 3, 12, 15}));
}
