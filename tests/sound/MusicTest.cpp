#include <gtest/gtest.h>

#include "world/level/LevelFixture.h"
#include "sound/Music.h"

namespace {

class MusicTest : public LevelFixture {
protected:
    static std::string skyinfo(const std::string& track)
    {
        return body("skyinfo", "sky", "solid=\"false\"",
                    rect(0, -40, 8, -32) + "<attributes><a name=\"music\" value=\"" + track + "\"/></attributes>");
    }
    static std::string floor() { return body("default", "floor", "solid=\"true\"", rect(-100, -20, 100, 0)); }

    Music& music() { return *game.getMusic(); }
};

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
