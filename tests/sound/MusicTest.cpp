#include <gtest/gtest.h>

#include "world/level/LevelFixture.h"
#include "sound/Music.h"

namespace {

class MusicTest : public LevelFixture {
protected:
    void SetUp() override
    {
        LevelFixture::SetUp();
        dir.write("data/music/quay.ogg", "OggS quay");
        dir.write("data/music/menu.ogg", "OggS menu");
    }

    static std::string skyinfo(const std::string& track)
    {
        return body("skyinfo", "sky", "solid=\"false\"",
                    rect(0, -40, 8, -32) + "<attributes><a name=\"music\" value=\"" + track + "\"/></attributes>");
    }
    static std::string floor() { return body("default", "floor", "solid=\"true\"", rect(-100, -20, 100, 0)); }

    Music& music() { return *game.getMusic(); }
};

TEST_F(MusicTest, EachLevelPlaysItsOwnTrackAndOneWithoutPlaysSilence)
{
    writeLevel("harbour", floor() + skyinfo("quay"));
    writeLevel("plain", floor());
    game.updateMusic();
    EXPECT_EQ(music().getTrack(), "menu");
    EXPECT_TRUE(music().isPlaying());

    game.loadLevel("harbour", "");
    ASSERT_TRUE(game.isLevelLoaded());
    game.updateMusic();
    EXPECT_EQ(music().getTrack(), "quay");
    EXPECT_TRUE(music().isPlaying());
    EXPECT_EQ(music().wantedTrack(true, true), Music::cutsceneTrack) << "a scene shown over a level";

    game.loadLevel("plain", "");
    game.updateMusic();
    EXPECT_EQ(music().getTrack(), "") << "the last level's track does not carry over";
    EXPECT_FALSE(music().isPlaying());
}

TEST_F(MusicTest, AMissingTrackIsReportedOnceAndPlaysSilence)
{
    writeLevel("lost", floor() + skyinfo("shanty"));
    writeLevel("escape", floor() + skyinfo("../maps/lost"));
    game.loadLevel("lost", "");
    const std::string out = captured([&] {
        for (int frame = 0; frame < 5; ++frame)
            game.updateMusic();
    });
    const std::string line = "Music: no track \"shanty\" (data/music/shanty.ogg); playing silence\n";
    const size_t at = out.find(line);
    EXPECT_NE(at, std::string::npos) << out;
    EXPECT_EQ(out.find(line, at + 1), std::string::npos) << "told once, not every frame";
    EXPECT_EQ(music().getTrack(), "shanty");
    EXPECT_FALSE(music().isPlaying());

    game.loadLevel("escape", "");
    game.updateMusic();
    EXPECT_FALSE(music().isPlaying()) << "a name never reaches outside data/music";
}

}
