#include <gtest/gtest.h>

#include "core/Clock.h"
#include "core/Game.h"
#include "console/Console.h"
#include "core/ManualClock.h"
#include "gui/GUIManager.h"
#include "render/NullRenderer.h"
#include "resources/TempDir.h"
#include "sound/NullSound.h"
#include "world/body/Body.h"

namespace {
// Remembers how the game drives the sound system.
class ListeningSound : public NullSound {
public:
    void update(const Vector& listener) override
    {
        ++updates;
        lastListener = listener;
    }
    void closeAudio() override { ++*closes; }
    int play(const std::string& name, int, int) override
    {
        lastPlayed = name;
        return -1;
    }

    int updates = 0;
    int* closes = nullptr;  // outlives this sound, which shutdown deletes
    Vector lastListener;
    std::string lastPlayed;
};
}

class GameLoopTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        Clock::install(&clock);
        dir.write("maps/empty.xml", "<level><Objects/></level>");
        dir.write("maps/next.xml", "<level><Objects/></level>");
        auto listening = std::make_unique<ListeningSound>();
        sound = listening.get();
        sound->closes = &closes;
        game = std::make_unique<Game>(std::make_unique<NullRenderer>(), std::move(listening));
        game->getTimer().start();
        game->loadLevel("empty", "");
    }
    void TearDown() override
    {
        game.reset();
        Clock::install(nullptr);
    }
    void frameAfter(uint32_t ms)
    {
        clock.advance(ms);
        game->runFrame();
    }
    TempDir dir;
    ManualClock clock{5000};
    int closes = 0;
    std::unique_ptr<Game> game;
    ListeningSound* sound = nullptr;
};

TEST_F(GameLoopTest, RemainderCarriesPauseConsoleAndMenusHoldTheWorldAndALongFrameIsClamped)
{
    frameAfter(60);  // 2 steps, 0.01 left
    EXPECT_NEAR(game->getSimulationAccumulator(), 0.01f, 1e-5f);
    frameAfter(20);
    const uint64_t steps = game->getStepCount();
    EXPECT_EQ(steps, 3u);
    const float frameBefore = game->getTimer().frameTime();
    const float elapsedBefore = game->getTimer().elapsed();
    game->pause();
    for (int i = 0; i < 5; ++i)
        frameAfter(2000);
    EXPECT_EQ(game->getStepCount(), steps);
    game->unpause();
    // The paused span is gone from the frame time and from the elapsed time.
    EXPECT_FLOAT_EQ(game->getTimer().frameTime(), frameBefore);
    EXPECT_FLOAT_EQ(game->getTimer().elapsed(), elapsedBefore);

    // The console and the menus hold the world without pausing it.
    const double played = game->getPlaySeconds();
    for (auto show : {+[](Game& g, bool on) { g.getConsole()->setVisible(on); },
                      +[](Game& g, bool on) { g.getGUIManager()->setVisible(on); }}) {
        show(*game, true);
        EXPECT_TRUE(game->isWorldHeld());
        for (int i = 0; i < 5; ++i)
            frameAfter(200);
        EXPECT_EQ(game->getStepCount(), steps);
        EXPECT_FALSE(game->isPaused());
        show(*game, false);
    }
    EXPECT_DOUBLE_EQ(game->getPlaySeconds(), played);
    // Closed again: the next frame steps its own time, not the time held.
    frameAfter(50);
    EXPECT_EQ(game->getStepCount(), steps + 2);
    // Particles step at 120 Hz independently of the simulation.
    EXPECT_LT(game->getParticleAccumulator(), Game::particleStepSeconds);

    const float carried = game->getSimulationAccumulator();
    frameAfter(2000);
    // 0.25 s of float steps: ten steps, or nine with a hair under one step kept.
    const uint64_t clamped = game->getStepCount() - steps - 2;
    EXPECT_TRUE(clamped == 9u || clamped == 10u) << clamped;
    EXPECT_NEAR(clamped * Game::stepSeconds + game->getSimulationAccumulator(), 0.25f + carried, 1e-5f);
}

TEST(ClockConversion, TopBitStaysUnsigned)
{
    EXPECT_FLOAT_EQ(Clock::ticksToFloat(0x80000000u), 2147483648.0f);
    EXPECT_FLOAT_EQ(Clock::ticksToFloat(0xFFFFFFFFu), 4294967296.0f - 1.0f);
    EXPECT_FLOAT_EQ(Clock::ticksToFloat(1234u), 1234.0f);
}

TEST(ChaseCamera, SnapsToRangeClosesInAndSettles)
{
    const struct {
        Vector target;
        float seconds;
        bool settled;
        Vector after;
    } cases[] = {
        {{300, 0}, 0.016f, false, {172, 0}},  // far behind: put at exactly 128 units on the same side
        {{0, 100}, 0.1f, false, {0, 10}},     // within range: closes in by distance times frame time
        {{1, 1}, 0.1f, true, {0, 0}},         // close enough: settled, unmoved
    };
    for (const auto& c : cases) {
        Vector chase(0, 0);
        EXPECT_EQ(Game::followChasePoint(c.target, chase, c.seconds), c.settled) << c.target.x;
        EXPECT_FLOAT_EQ(chase.x, c.after.x);
        EXPECT_FLOAT_EQ(chase.y, c.after.y);
    }
    // Converges over frames without overshooting.
    Vector c(0, 0);
    for (int i = 0; i < 200; ++i)
        Game::followChasePoint(Vector(50, -20), c, 0.05f);
    EXPECT_NEAR(c.distance2D(Vector(50, -20)), 0.0f, 2.0f);
}

TEST_F(GameLoopTest, RequestForAMissingLevelIsReportedOnceAndPlayGoesOn)
{
    // A level change the player stands in asks again every step.
    const std::string out = stdoutOf([&] {
        for (int i = 0; i < 20; ++i) {
            game->requestLevel("nxet", "start");
            frameAfter(30);
        }
    });
    size_t reports = 0;
    for (size_t at = out.find("Could not load level file: maps/nxet.xml"); at != std::string::npos;
         at = out.find("Could not load level file", at + 1))
        ++reports;
    EXPECT_EQ(reports, 1u) << out;
    EXPECT_FALSE(game->isLevelPending());
    EXPECT_EQ(game->getCurrentLevel(), "empty");
    EXPECT_GT(game->getStepCount(), 0u);  // the running level goes on
    EXPECT_EQ(game->currentNotice(), "Could not load the level nxet");
    frameAfter(Game::noticeMs);
    EXPECT_EQ(game->currentNotice(), "");
    // Another level still loads, at the next frame, which the change takes whole.
    game->requestLevel("next", "start");
    EXPECT_TRUE(game->isLevelPending());
    const uint64_t steps = game->getStepCount();
    frameAfter(30);
    EXPECT_FALSE(game->isLevelPending());
    EXPECT_EQ(game->getCurrentLevel(), "next");
    EXPECT_EQ(game->getStepCount(), steps);

    // Without a level, frames count but nothing steps and a request waits.
    game->unloadLevel();
    game->requestLevel("empty", "start");
    const auto frames = game->getFrameCount();
    frameAfter(30);
    frameAfter(30);
    EXPECT_TRUE(game->isLevelPending());
    EXPECT_FALSE(game->isLevelLoaded());
    EXPECT_EQ(game->getFrameCount(), frames + 2);
    EXPECT_EQ(game->getStepCount(), steps);
}

TEST_F(GameLoopTest, TheListenerIsUpdatedEveryFrameInMenusInTheWorldAndWhilePausedUntilShutdown)
{
    game->unloadLevel();
    frameAfter(20);
    EXPECT_EQ(sound->updates, 1) << "no level: channel counts still refresh";

    game->loadLevel("empty", "");
    Body listener;
    listener.setPosition(Vector(300, 40));
    game->setPlayer(&listener);
    frameAfter(20);
    EXPECT_EQ(sound->updates, 2);
    EXPECT_FLOAT_EQ(sound->lastListener.x, 300.0f);
    EXPECT_FLOAT_EQ(sound->lastListener.y, 40.0f);

    game->pause();
    EXPECT_EQ(sound->lastPlayed, "data/sounds/events/Off3.wav");
    frameAfter(20);
    EXPECT_EQ(sound->updates, 3);
    game->unpause();
    EXPECT_EQ(sound->lastPlayed, "data/sounds/events/On3.wav");
    game->setPlayer(nullptr);

    // Shutdown closes audio and leaves silence behind.
    game->shutdown();
    EXPECT_EQ(closes, 1);
    ASSERT_NE(game->getSound(), nullptr);
    EXPECT_EQ(game->getSound()->play("anything.wav", 0, 100), -1);
}
