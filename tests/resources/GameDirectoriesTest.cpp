#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "resources/GameDirectories.h"
#include "resources/ResourceManager.h"
#include "resources/TempDir.h"

namespace {
class GameDirectoriesTest : public ::testing::Test {
protected:
    std::string at(const std::string& rel) const { return dir.path + "/" + rel; }
    GameDirectories resolveFor(const std::string& exeRel, const std::string& cwdRel = "elsewhere",
                               bool writable = true)
    {
        TempDir::run("mkdir -p '" + at(exeRel) + "' '" + at(cwdRel) + "'");
        bool (*noWrites)(const std::string&) = [](const std::string&) { return false; };
        return GameDirectories::resolve(at(exeRel), at(cwdRel), at("xdg").c_str(), at("home").c_str(),
                                        writable ? GameDirectories::canWrite : noWrites);
    }

    TempDir dir;
};
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

TEST_F(GameDirectoriesTest, DataAndUserFilesGoWhereTheLayoutSays)
{
    const struct {
        const char* file;  // what marks the layout's data
        const char* exe;
        const char* cwd;
        bool writable;
        const char* data;
        const char* write;
    } layouts[] = {
        {"game/data/gamevars.xml", "game", "elsewhere", true, "game", "game"},
        // A data.zip alone makes a game directory too.
        {"zipgame/data.zip", "zipgame", "elsewhere", true, "zipgame", "zipgame"},
        {"prefix/share/brindlequay/data/gamevars.xml", "prefix/bin", "elsewhere", true, "prefix/share/brindlequay",
         "xdg/brindlequay"},
        // The file system's answer stands in: root may write anywhere.
        {"readonly/data/gamevars.xml", "readonly", "elsewhere", false, "readonly", "xdg/brindlequay"},
        // Without data beside the binary the working directory serves.
        {"", "bin", "work", true, "work", "work"},
    };
    for (const auto& l : layouts) {
        SCOPED_TRACE(l.exe);
        if (*l.file)
            dir.write(l.file, "PK");
        const GameDirectories dirs = resolveFor(l.exe, l.cwd, l.writable);
        EXPECT_EQ(dirs.getDataDir(), at(l.data));
        EXPECT_EQ(dirs.getWriteDir(), at(l.write));
        EXPECT_EQ(dirs.isSeparate(), std::string(l.data) != l.write);
    }
    EXPECT_NE(resolveFor("prefix/bin").describe().find("User files go to " + at("xdg/brindlequay")),
              std::string::npos);
}

TEST_F(GameDirectoriesTest, EnteringCreatesTheUserDirectoryAndPlayerFilesComeFirst)
{
    dir.write("prefix/share/brindlequay/data/default.cfg", "installed");
    dir.write("prefix/share/brindlequay/maps/test.xml", "<level/>");
    dir.write("prefix/share/brindlequay/data/gamevars.xml", "<vars/>");
    const GameDirectories dirs = resolveFor("prefix/bin");
    ASSERT_TRUE(dirs.enter());
    EXPECT_TRUE(std::filesystem::is_directory(at("xdg/brindlequay/data")));
    EXPECT_EQ(std::filesystem::current_path().string(), at("xdg/brindlequay"));

    ResourceManager resources(false);
    dirs.addDataSearch(resources);
    dir.write("xdg/brindlequay/data/default.cfg", "mine");
    std::string installed;
    std::string mine;
    const std::string log = stdoutOf([&] {
        mine = resources.readText("data/default.cfg");
        installed = resources.readText("maps/test.xml");
    });
    EXPECT_EQ(mine, "mine");
    EXPECT_EQ(installed, "<level/>");
    EXPECT_NE(log.find("Found on disk: " + at("prefix/share/brindlequay") + "/maps/test.xml"), std::string::npos)
        << log;
    EXPECT_EQ(resources.readText("/nonexistent/maps/test.xml"), "");
}
