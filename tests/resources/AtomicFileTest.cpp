#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "resources/AtomicFile.h"
#include "resources/TempDir.h"

namespace {
bool writeText(const std::string& path, const std::string& text)
{
    std::ofstream out(path, std::ios::binary);
    out << text;
    return static_cast<bool>(out);
}
}

TEST(AtomicFile, ReplacesTheFileOrKeepsTheOldOneAndLeavesNoTemporary)
{
    TempDir dir;
    dir.write("saves/a.xml", "old");
    dir.write("saves/a.xml.tmp", "left by a write that was killed");
    EXPECT_TRUE(AtomicFile::replace("saves/a.xml", [](const std::string& t) { return writeText(t, "new"); }));
    EXPECT_EQ(TempDir::read("saves/a.xml"), "new");
    EXPECT_FALSE(std::filesystem::exists(AtomicFile::temporaryPath("saves/a.xml")));
    // A file that did not exist yet, in the working directory.
    EXPECT_TRUE(AtomicFile::replace("b.png", [](const std::string& t) { return writeText(t, "png"); }));
    EXPECT_EQ(TempDir::read("b.png"), "png");

    // A writer that fails halfway, over a stale leftover.
    dir.write("saves/a.xml", "the old save");
    dir.write("saves/a.xml.tmp", "stale leftover");
    EXPECT_FALSE(AtomicFile::replace("saves/a.xml", [](const std::string& t) {
        writeText(t, "<save><Obj");
        return false;
    }));
    EXPECT_EQ(TempDir::read("saves/a.xml"), "the old save");
    EXPECT_FALSE(std::filesystem::exists("saves/a.xml.tmp"));
    // A folder that does not exist cannot be written into.
    EXPECT_FALSE(AtomicFile::replace("nofolder/a.xml", [](const std::string& t) { return writeText(t, "x"); }));
}
