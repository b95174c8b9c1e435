#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "resources/GameDirectories.h"
#include "resources/ResourceManager.h"
#include "resources/TempDir.h"

namespace {
class GameDirectoriesTest : public ::testing::Test {
protected:
    std::string at(const std::string& rel) const { return dir.path + "/" + rel; }
    GameDirectories resolveFor(const std::string& exeRel, const std::string& cwdRel = "elsewhere")
    {
        TempDir::run("mkdir -p '" + at(exeRel) + "' '" + at(cwdRel) + "'");
        const std::string xdg = at("xdg");
        return GameDirectories::resolve(at(exeRel), at(cwdRel), xdg.c_str(), at("home").c_str());
    }

    TempDir dir;
};

template <class F>
std::string logOf(F body)
{
    std::fflush(stdout);
    ::testing::internal::CaptureStdout();
    body();
    std::fflush(stdout);
    return ::testing::internal::GetCapturedStdout();
}
}

TEST(UserDirectory, FollowsXdgDataHomeThenHome)
{
    EXPECT_EQ(GameDirectories::userDirectory("/x/data", "/home/p"), "/x/data/brindlequay");
    // A relative or empty XDG_DATA_HOME is invalid and ignored.
    EXPECT_EQ(GameDirectories::userDirectory("rel/data", "/home/p"), "/home/p/.local/share/brindlequay");
    EXPECT_EQ(GameDirectories::userDirectory("", "/home/p"), "/home/p/.local/share/brindlequay");
    EXPECT_EQ(GameDirectories::userDirectory(nullptr, "/home/p"), "/home/p/.local/share/brindlequay");
    EXPECT_EQ(GameDirectories::userDirectory(nullptr, nullptr), "");
}

TEST_F(GameDirectoriesTest, GameDirectoryBesideTheBinaryKeepsItsFiles)
{
    dir.write("game/data/gamevars.xml", "<vars/>");
    const GameDirectories dirs = resolveFor("game");
    EXPECT_EQ(dirs.getDataDir(), at("game"));
    EXPECT_EQ(dirs.getWriteDir(), at("game"));
    EXPECT_FALSE(dirs.isSeparate());

    // A data.zip alone makes a game directory too.
    dir.write("zipgame/data.zip", "PK");
    EXPECT_EQ(resolveFor("zipgame").getWriteDir(), at("zipgame"));
}

TEST_F(GameDirectoriesTest, InstalledGameWritesUnderTheUserDirectory)
{
    dir.write("prefix/share/brindlequay/data/gamevars.xml", "<vars/>");
    const GameDirectories dirs = resolveFor("prefix/bin");
    EXPECT_EQ(dirs.getDataDir(), at("prefix/share/brindlequay"));
    EXPECT_EQ(dirs.getWriteDir(), at("xdg/brindlequay"));
    EXPECT_NE(dirs.describe().find("User files go to " + at("xdg/brindlequay")), std::string::npos);
}

TEST_F(GameDirectoriesTest, ReadOnlyGameDirectoryWritesUnderTheUserDirectory)
{
    dir.write("game/data/gamevars.xml", "<vars/>");
    TempDir::run("mkdir -p '" + at("elsewhere") + "'");
    // The file system's answer stands in: root may write anywhere.
    const GameDirectories dirs = GameDirectories::resolve(at("game"), at("elsewhere"), at("xdg").c_str(),
                                                          at("home").c_str(),
                                                          [](const std::string&) { return false; });
    EXPECT_EQ(dirs.getDataDir(), at("game"));
    EXPECT_EQ(dirs.getWriteDir(), at("xdg/brindlequay"));
}

TEST_F(GameDirectoriesTest, WithoutDataBesideTheBinaryTheWorkingDirectoryServes)
{
    const GameDirectories dirs = resolveFor("bin", "work");
    EXPECT_EQ(dirs.getDataDir(), at("work"));
    EXPECT_EQ(dirs.getWriteDir(), at("work"));
}

TEST_F(GameDirectoriesTest, EnteringCreatesTheUserDirectoryAndPlayerFilesComeFirst)
{
    dir.write("prefix/share/brindlequay/data/default.cfg", "installed");
    dir.write("prefix/share/brindlequay/maps/test.xml", "<level/>");
    dir.write("prefix/share/brindlequay/data/gamevars.xml", "<vars/>");
    const GameDirectories dirs = resolveFor("prefix/bin");
    ASSERT_TRUE(dirs.enter());
    struct stat info {};
    EXPECT_EQ(stat(at("xdg/brindlequay/data").c_str(), &info), 0);
    char* cwd = getcwd(nullptr, 0);
    EXPECT_EQ(std::string(cwd ? cwd : ""), at("xdg/brindlequay"));
    std::free(cwd);

    ResourceManager resources(false);
    dirs.addDataSearch(resources);
    dir.write("xdg/brindlequay/data/default.cfg", "mine");
    std::string installed;
    std::string mine;
    const std::string log = logOf([&] {
        mine = resources.readText("data/default.cfg");
        installed = resources.readText("maps/test.xml");
    });
    EXPECT_EQ(mine, "mine");
    EXPECT_EQ(installed, "<level/>");
    EXPECT_NE(log.find("Found on disk: " + at("prefix/share/brindlequay") + "/maps/test.xml"), std::string::npos)
        << log;
    EXPECT_EQ(resources.readText("/nonexistent/maps/test.xml"), "");
}
