// The level files that ship with the game and the fuzzing seeds: every seed
// must load (or be refused) without harm, so the corpus is exercised in
// every test run.
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
