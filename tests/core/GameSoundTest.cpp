#include <gtest/gtest.h>

#include <memory>

#include "core/Clock.h"
#include "core/Game.h"
#include "core/ManualClock.h"
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

class GameSoundTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        Clock::install(&clock);
        dir.write("maps/empty.xml", "<level><Objects/></level>");
        auto s = std::make_unique<ListeningSound>();
        sound = s.get();
        sound->closes = &closes;
        game = std::make_unique<Game>(std::make_unique<NullRenderer>(), std::move(s));
        game->getTimer().start();
    }
    void TearDown() override
    {
        game.reset();
        Clock::install(nullptr);
    }
    void frame()
    {
        clock.advance(20);
        game->runFrame();
    }

    TempDir dir;
    ManualClock clock{1000};
    std::unique_ptr<Game> game;
    ListeningSound* sound = nullptr;
    int closes = 0;
};

TEST_F(GameSoundTest, TheListenerIsUpdatedEveryFrameInMenusInTheWorldAndWhilePaused)
{
    frame();
    EXPECT_EQ(sound->updates, 1) << "no level: channel counts still refresh";

    game->loadLevel("empty", "");
    Body listener;
    listener.setPosition(Vector(300, 40));
    game->setPlayer(&listener);
    const int before = sound->updates;
    frame();
    EXPECT_EQ(sound->updates, before + 1);
    EXPECT_FLOAT_EQ(sound->lastListener.x, 300.0f);
    EXPECT_FLOAT_EQ(sound->lastListener.y, 40.0f);

    game->pause();
    EXPECT_EQ(sound->lastPlayed, "data/sounds/events/Off3.wav");
    frame();
    EXPECT_EQ(sound->updates, before + 2);
    game->unpause();
    EXPECT_EQ(sound->lastPlayed, "data/sounds/events/On3.wav");
    game->setPlayer(nullptr);
}

TEST_F(GameSoundTest, ShutdownClosesAudioAndLeavesSilenceBehind)
{
    game->shutdown();
    EXPECT_EQ(closes, 1);
    ASSERT_NE(game->getSound(), nullptr);
    EXPECT_EQ(game->getSound()->play("anything.wav", 0, 100), -1);
}

}  // namespace
