// The save list's view of real save games written by the Game: order,
// level titles, dates, play time and the quick and checkpoint marks.
#include <gtest/gtest.h>
#include <tinyxml.h>
#include <utime.h>

#include <cstdlib>
#include <ctime>
#include <fstream>

#include "core/SaveInfo.h"
#include "gameplay/GameplayFixture.h"
#include "gui/GUIManager.h"

namespace {
// Moves a save's recorded writing time, keeping the rest of the file.
void setSavedAt(const std::string& name, long long when)
{
    TiXmlDocument doc;
    ASSERT_TRUE(doc.LoadFile(Game::savePath(name)));
    doc.RootElement()->SetAttribute("savedat", std::to_string(when));
    ASSERT_TRUE(doc.SaveFile(Game::savePath(name)));
}

std::vector<std::string> names(const std::vector<SaveInfo>& saves)
{
    std::vector<std::string> out;
    for (const SaveInfo& s : saves)
        out.push_back(s.name);
    return out;
}
}

class SaveInfoTest : public GameplayFixture {
protected:
    void SetUp() override
    {
        GameplayFixture::SetUp();
        game->getGUIManager()->setVisible(false);
    }
    void save(const std::string& name)
    {
        game->setPendingSaveName(name);
        game->requestSave();
        frame();
    }
};

TEST_F(SaveInfoTest, RealSavesListNewestFirstWithTitleDatePlayTimeAndKind)
{
    loadLevel();
    // The level names its title; saves take it with them.
    std::string level = TempDir::read("maps/gameplaytest.xml");
    level.replace(0, 7, "<level title=\"Crane &amp; Yard &gt; North\">");
    std::ofstream("maps/gameplaytest.xml") << level;
    frames(65 * 40);  // 65 s of play
    const long long before = std::time(nullptr);
    save("first run");
    game->requestCheckpointSave();
    frame();
    save(SaveInfo::quickSaveName);
    save("older one");
    // A file from an older build: no title, date or play time of its own.
    std::ofstream("saves/plain.xml") << "<?xml version=\"1.0\" ?>\n<save version=\"1\" currentlevel=\"quay\">"
                                     << std::string(10000, ' ') << "<Objects/></save>";
    std::ofstream("saves/broken.xml") << "<sav";
    std::ofstream("saves/.hidden.xml") << "<save currentlevel=\"quay\"/>";

    setSavedAt("older one", 1000000000);
    setSavedAt("first run", before + 100);
    setSavedAt(SaveInfo::quickSaveName, before + 200);
    const utimbuf old{1500000000, 1500000000};
    ASSERT_EQ(::utime("saves/plain.xml", &old), 0);
    ASSERT_EQ(::utime("saves/broken.xml", &old), 0);

    const std::vector<SaveInfo> saves = SaveInfo::listAll();
    // Newest first; the two from one moment by name; names no save command
    // could make are left out.
    ASSERT_EQ(names(saves), (std::vector<std::string>{"quicksave", "first run", "broken", "plain", "older one"}));

    const SaveInfo& quick = saves[0];
    EXPECT_EQ(quick.kind, SaveInfo::Kind::quick);
    EXPECT_EQ(quick.level, "gameplaytest");
    EXPECT_EQ(quick.title, "Crane & Yard > North");
    EXPECT_EQ(quick.written, before + 200);
    EXPECT_EQ(saves[1].kind, SaveInfo::Kind::checkpoint);
    EXPECT_TRUE(saves[1].readable);
    // 65 s of steps, give or take the frames around the saves.
    EXPECT_GE(saves[1].playSeconds, 64);
    EXPECT_LE(saves[1].playSeconds, 66);
    EXPECT_FALSE(saves[2].readable);
    EXPECT_EQ(saves[3].title, "Quay");
    EXPECT_EQ(saves[3].written, 1500000000);
    EXPECT_EQ(saves[3].playSeconds, 0);
    EXPECT_EQ(saves[4].kind, SaveInfo::Kind::player);

    // The run's play time comes back with the save and counts on from there.
    game->loadGame("first run");
    EXPECT_NEAR(game->getPlaySeconds(), 65.0, 1.5);
    frames(40);
    EXPECT_NEAR(game->getPlaySeconds(), 66.0, 1.5);
}

TEST(SaveInfoText, DatesAndPlayTimesReadAsPlayersExpect)
{
    const char* oldTz = std::getenv("TZ");
    const std::string saved = oldTz ? oldTz : "";
    ::setenv("TZ", "UTC", 1);
    ::tzset();
    EXPECT_EQ(SaveInfo::formatWritten(1764090240), "25 Nov 2025 17:04");
    oldTz ? ::setenv("TZ", saved.c_str(), 1) : ::unsetenv("TZ");
    ::tzset();

    const std::pair<long, const char*> times[] = {
        {0, "0:00"}, {59, "0:59"}, {65, "1:05"}, {3599, "59:59"}, {3600, "1:00:00"}, {36061, "10:01:01"}, {-5, "0:00"}};
    for (const auto& [seconds, text] : times)
        EXPECT_EQ(SaveInfo::formatPlayTime(seconds), text) << seconds;
}
