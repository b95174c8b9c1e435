#include <gtest/gtest.h>

#include <unistd.h>

#include <set>

#include "resources/FileOps.h"
#include "resources/ResourceManager.h"
#include "resources/TempDir.h"

static std::vector<std::string> names(const std::vector<std::unique_ptr<FileSystemNode>>& list)
{
    std::vector<std::string> out;
    for (const auto& node : list) {
        EXPECT_FALSE(node->isDirectory);
        out.push_back(node->name);
    }
    return out;
}

TEST(FileOpsTest, SearchPatternAddsASlashOnlyWhenThereIsNone)
{
    EXPECT_EQ(FileOps::searchPattern("saves", "*.xml"), "saves/*.xml");
    EXPECT_EQ(FileOps::searchPattern("data/adventures/", "*.xml"), "data/adventures/*.xml");
    EXPECT_EQ(FileOps::searchPattern("data/adventures", "*.xml"), "data/adventures*.xml");
}

TEST(FileOpsTest, ListsMatchingPlainFilesInNameOrderAndReportsAMissingDirectory)
{
    TempDir dir;
    dir.write("saves/quick.xml", "");
    dir.write("saves/a save.xml", "");
    dir.write("saves/notes.txt", "");
    dir.write("saves/quick.png", "");
    dir.write("saves/folder.xml/inside.xml", "");
    std::vector<std::unique_ptr<FileSystemNode>> list;
    EXPECT_TRUE(FileOps::getDirContents("saves", "*.xml", list));
    EXPECT_EQ(names(list), (std::vector<std::string>{"a save.xml", "quick.xml"}));

    // The list is appended to; "?" and "[...]" are wildcards as well.
    EXPECT_TRUE(FileOps::getDirContents("saves/", "quic?.[px]*", list));
    EXPECT_EQ(names(list), (std::vector<std::string>{"a save.xml", "quick.xml", "quick.png", "quick.xml"}));

    ResourceManager::instance();  // its own start-up report is not ours
    list.clear();
    EXPECT_EQ(stdoutOf([&] { EXPECT_FALSE(FileOps::getDirContents("nowhere", "*.xml", list)); }),
              "getDirContents error\n");
    EXPECT_TRUE(list.empty());
}

TEST(FileOpsTest, ListsTheInstalledDataAndTheArchiveWithThePlayersFiles)
{
    TempDir dir;
    dir.write("user/data/adventures/mine.xml", "");
    dir.write("user/data/adventures/main.xml", "");
    dir.write("installed/data/adventures/main.xml", "");
    dir.write("installed/data/adventures/bonus.xml", "");
    dir.write("zip/data/adventures/zipped.xml", "");
    dir.write("zip/data/adventures/deeper/no.xml", "");
    dir.write("zip/data/adventuresque.xml", "");
    ASSERT_TRUE(TempDir::run("cd zip && zip -q -r ../data.zip data"));
    ResourceManager resources(false);
    ASSERT_TRUE(resources.addArchive(dir.path + "/data.zip"));
    resources.addSearchDirectory(dir.path + "/installed");

    std::set<std::string> found;
    ASSERT_EQ(chdir((dir.path + "/user").c_str()), 0);
    EXPECT_TRUE(FileOps::listFolder("data/adventures", "*.xml", found));
    EXPECT_TRUE(resources.listFiles("data/adventures", "*.xml", found));
    EXPECT_EQ(found, (std::set<std::string>{"bonus.xml", "main.xml", "mine.xml", "zipped.xml"}));

    found.clear();
    EXPECT_FALSE(resources.listFiles("data/nowhere", "*", found));
    EXPECT_TRUE(resources.listFiles("data/adventures/deeper", "*.xml", found));
    EXPECT_EQ(found, (std::set<std::string>{"no.xml"}));
}
