// The level files that ship with the game and the fuzzing seeds: the test
// level must load cleanly and settle, and every seed must load (or be
// refused) without harm, so the corpus is exercised in every test run.
#include "TestPaths.h"
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "world/logic/Spawner.h"
#include "world/level/LevelFixture.h"

using worldtest::readFile;

namespace {
bool finite(const Vector& v) { return std::isfinite(v.x) && std::isfinite(v.y); }
}

class LevelFilesTest : public LevelFixture {
protected:
    LevelFilesTest() { game.setGravityOverride(-80.0f); }
    void step(int count)
    {
        for (int i = 0; i < count; ++i) {
            game.applyGravity(Game::stepSeconds);
            game.freezeVelocities();
            game.collideBodies(Game::stepSeconds);
            game.moveBodies(Game::stepSeconds);
        }
    }
};

TEST_F(LevelFilesTest, TestLevelLoadsCleanlyAndSettles)
{
    const std::string text = readFile(testSourceDir() + "/maps/test.xml");
    ASSERT_FALSE(text.empty());
    dir.write("maps/test.xml", text);
    std::string out = captured([&] { game.loadLevel("test.xml", ""); });
    ASSERT_TRUE(game.isLevelLoaded()) << out;
    EXPECT_EQ(out.find("Defaulting to Body"), std::string::npos) << out;
    EXPECT_EQ(out.find("insertion failed"), std::string::npos) << out;
    EXPECT_EQ(out.find("Skipping body"), std::string::npos) << out;

    size_t declared = 0;
    for (size_t at = text.find("<P "); at != std::string::npos; at = text.find("<P ", at + 1))
        ++declared;
    EXPECT_EQ(game.getBodies().size(), declared);
    EXPECT_EQ(game.getQuadTree().countAllBodies(), static_cast<int>(declared));

    // Ten seconds of play: the boxes fall a little, land and come to rest
    // inside the level; the stacked pair stays stacked.
    std::vector<Body*> movers;
    for (Body* b : game.getActiveBodies())
        if (b->isMovable())
            movers.push_back(b);
    ASSERT_GE(movers.size(), 5u);
    const float startA = find("box_a")->pos.y;
    step(400);
    for (Body* b : movers) {
        ASSERT_TRUE(finite(b->pos)) << b->id;
        EXPECT_GT(b->pos.x, -480.0f) << b->id;
        EXPECT_LT(b->pos.x, 1760.0f) << b->id;
        EXPECT_GT(b->pos.y, -48.0f) << b->id;
        EXPECT_LT(b->vel.length2D(), 20.0f) << b->id << " still moving";
        EXPECT_NE(b->quadTreeNode, nullptr) << b->id << " left the index";
    }
    EXPECT_NEAR(find("box_a")->pos.y, startA, 4.0f);
    EXPECT_GT(find("box_b")->pos.y, find("box_a")->pos.y + 20.0f);
}

TEST_F(LevelFilesTest, EveryFuzzSeedLoadsOrIsRefusedSafely)
{
    const std::string corpus = testSourceDir() + "/fuzz/corpus/level_loader";
    const std::vector<std::string> seeds = worldtest::filesIn(corpus);
    ASSERT_GE(seeds.size(), 5u) << corpus;

    for (const std::string& seed : seeds) {
        SCOPED_TRACE(seed);
        dir.write("maps/fuzz.xml", readFile(corpus + "/" + seed));
        captured([&] {
            game.loadLevel("fuzz", "");
            step(4);
        });
        for (Body* b : game.getBodies()) {
            EXPECT_TRUE(finite(b->pos)) << b->id;
            EXPECT_GE(b->worldVertices.size(), 3u) << b->id;
        }
        game.unloadLevel();
        EXPECT_TRUE(game.getBodies().empty());
    }
}

// Untextured bodies draw as plain white boxes: every visible body of the
// logic level, and every body its spawners make, has its image.
TEST_F(LevelFilesTest, LogicLevelDrawsNoPlainWhiteBoxes)
{
    dir.write("maps/logic.xml", readFile(testSourceDir() + "/maps/logic.xml"));
    captured([&] { game.loadLevel("logic.xml", ""); });
    ASSERT_TRUE(game.isLevelLoaded());
    std::vector<Body*> spawned;
    for (Body* b : std::vector<Body*>(game.getBodies().begin(), game.getBodies().end()))
        if (auto* spawner = dynamic_cast<Spawner*>(b))
            if (Body* made = spawner->spawn())
                spawned.push_back(made);
    EXPECT_FALSE(spawned.empty());
    for (Body* b : game.getBodies()) {
        if (!b->visible || b->type == "textbody")
            continue;
        EXPECT_TRUE(b->textured && !b->texture.empty()) << b->type << " " << b->id;
    }
}
