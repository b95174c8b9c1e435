#include <gtest/gtest.h>

#include <tinyxml.h>

#include <string>

#include "resources/ResourceManager.h"
#include "resources/TempDir.h"

// Archives here are made at test time by the archivers players and modders
// use: Info-ZIP's zip and Python's zipfile.
class ResourceManagerTest : public ::testing::Test {
protected:
    ResourceManagerTest()
    {
        for (int i = 0; i < 300; ++i)
            text += "line " + std::to_string(i * 7919 % 1000) + " of the test script; set x " +
                    std::to_string(i) + "\n";
    }

    static std::string bytesOf(ResourceManager& rm, const std::string& path, bool& error)
    {
        std::size_t size = 0;
        std::unique_ptr<char[]> bytes = rm.getBytes(path, size, error);
        if (!bytes)
            return "<null>";
        for (std::size_t i = 0; i < ZipFile::zeroPadding; ++i)
            EXPECT_EQ(bytes[size + i], '\0') << "too few zeros after " << path;
        return std::string(bytes.get(), size);
    }

    TempDir dir;
    ResourceManager rm{false};
    std::string text;
};

TEST_F(ResourceManagerTest, StoredAndDeflatedMembersGiveTheSameBytes)
{
    dir.write("data/a.txt", text);
    dir.write("data/empty.txt", "");
    ASSERT_TRUE(TempDir::run("zip -q -0 stored.zip data/a.txt data/empty.txt"));
    ASSERT_TRUE(TempDir::run("zip -q -9 deflated.zip data/a.txt data/empty.txt"));
    // Written to a pipe, zipfile leaves the local sizes at zero and appends
    // data descriptors; the directory's sizes must carry the read, and the
    // end record is found behind a comment.
    ASSERT_TRUE(TempDir::run(
        "python3 -c \"import sys, zipfile\n"
        "with zipfile.ZipFile(sys.stdout.buffer, 'w', zipfile.ZIP_DEFLATED) as z:\n"
        "    z.comment = b'made by python'\n"
        "    z.write('data/a.txt')\n"
        "    z.writestr('data/empty.txt', '')\n\" | cat > py-streamed.zip"));
    ASSERT_TRUE(TempDir::run("rm -r data"));

    for (const char* archive : {"stored.zip", "deflated.zip", "py-streamed.zip"}) {
        SCOPED_TRACE(archive);
        ResourceManager one(false);
        ASSERT_TRUE(one.addArchive(archive));
        bool error = true;
        EXPECT_EQ(bytesOf(one, "data/a.txt", error), text);
        EXPECT_FALSE(error);
        EXPECT_EQ(bytesOf(one, "data/empty.txt", error), "");
        EXPECT_FALSE(error);
        EXPECT_EQ(one.readText("data/a.txt"), text);
    }
}

TEST_F(ResourceManagerTest, DiskComesFirstThenArchivesInOrderByExactName)
{
    dir.write("data/a.txt", "first");
    dir.write("data/Sub/File.txt", "x");
    ASSERT_TRUE(TempDir::run("zip -q -r one.zip data"));
    dir.write("data/a.txt", "second");
    dir.write("data/b.txt", "b");
    ASSERT_TRUE(TempDir::run("zip -q two.zip data/a.txt data/b.txt && rm -r data"));
    dir.write("data/b.txt", "from disk");
    ASSERT_TRUE(rm.addArchive("one.zip"));
    ASSERT_TRUE(rm.addArchive("two.zip"));

    std::string got;
    EXPECT_EQ(stdoutOf([&] { got = rm.readText("data/b.txt"); }), "Found on disk: data/b.txt\n");
    EXPECT_EQ(got, "from disk");
    EXPECT_EQ(stdoutOf([&] { got = rm.readText("data/a.txt"); }), "NOT Found on disk: data/a.txt\n");
    EXPECT_EQ(got, "first");

    EXPECT_NE(rm.findInArchives("data/Sub/File.txt"), nullptr);
    for (const char* near : {"data/sub/file.txt", "data\\Sub\\File.txt", "./data/Sub/File.txt"})
        EXPECT_EQ(rm.findInArchives(near), nullptr) << near;
    bool error = false;
    EXPECT_EQ(stdoutOf([&] { got = bytesOf(rm, "data/sub/file.txt", error); }),
              "NOT Found on disk: data/sub/file.txt\nNot in any archive: data/sub/file.txt\n");
    EXPECT_EQ(got, "<null>");
    EXPECT_TRUE(error);

    rm.clearArchives();
    EXPECT_EQ(rm.readText("data/a.txt"), "");
}

TEST_F(ResourceManagerTest, ArchivesThatCannotBeUsedAreReported)
{
    dir.write("notzip.zip", "just some text, not an archive");
    dir.write("data/a.txt", "a");
    ASSERT_TRUE(TempDir::run("zip -q real.zip data/a.txt && (printf 'junk'; cat real.zip) > prefixed.zip"));
    dir.write("headonly.zip", std::string("PK\x03\x04", 4) + "nothing else here");
    dir.write("tiny.zip", "PK");

    const std::pair<std::string, std::string> refused[] = {
        {"missing.zip", "couldn't open file"}, {"notzip.zip", "file is not a valid zip"},
        {"prefixed.zip", "file is not a valid zip"}, {"tiny.zip", "file is not a valid zip"},
        {"headonly.zip", "couldn't find central directory"},
    };
    for (const auto& [name, why] : refused)
        EXPECT_EQ(stdoutOf([&, name = name] { EXPECT_FALSE(rm.addArchive(name)); }),
                  why + ", exiting\nFailed to load " + name + "\n");
    EXPECT_FALSE(rm.addArchive("data"));  // a directory is no archive
    EXPECT_TRUE(rm.getArchives().empty());

    // No data.zip is a data tree on disk, not a failure; a damaged one is.
    EXPECT_EQ(stdoutOf([] { EXPECT_TRUE(ResourceManager(true).getArchives().empty()); }), "");
    dir.write("data.zip", "PK");
    EXPECT_EQ(stdoutOf([] { EXPECT_TRUE(ResourceManager(true).getArchives().empty()); }),
              "file is not a valid zip, exiting\nFailed to load data.zip\n");

    // A good archive is one line, not a listing of every member.
    EXPECT_EQ(stdoutOf([&] { EXPECT_TRUE(rm.addArchive("real.zip")); }), "Opened real.zip: 1 files\n");
}

TEST_F(ResourceManagerTest, FilesAndDocumentsReadOrSayWhyNot)
{
    dir.write("data/sub/x.txt", "x");
    bool error = false;
    EXPECT_EQ(bytesOf(rm, "data/sub", error), "<null>");
    EXPECT_TRUE(error);
    // Text stops at the first zero byte; the buffer keeps everything.
    dir.write("data/z.bin", std::string("ab\0cd", 5));
    EXPECT_EQ(rm.readText("data/z.bin"), "ab");
    EXPECT_EQ(bytesOf(rm, "data/z.bin", error), std::string("ab\0cd", 5));

    dir.write("data/bad.xml", "<root><item></root>");
    dir.write("data/empty.xml", "");

    TiXmlDocument bad("data/bad.xml");
    const std::string badLog = stdoutOf([&] { EXPECT_FALSE(rm.loadDocument(bad, "data/bad.xml")); });
    EXPECT_NE(badLog.find("Failed to parse: data/bad.xml Error: "), std::string::npos) << badLog;

    TiXmlDocument missing;
    EXPECT_EQ(stdoutOf([&] { EXPECT_FALSE(rm.loadDocument(missing, "data/none.xml")); }),
              "NOT Found on disk: data/none.xml\nNot in any archive: data/none.xml\n"
              "Error reading bytes for: data/none.xml\nReason:  Error NULL filedata numBytes==0\n");

    TiXmlDocument empty;
    EXPECT_EQ(stdoutOf([&] { EXPECT_FALSE(rm.loadDocument(empty, "data/empty.xml")); }),
              "Found on disk: data/empty.xml\nError reading bytes for: data/empty.xml\n"
              "Reason:  numBytes==0\n");

    // A file ending inside a UTF-8 character: the parser steps over the
    // whole character, past the end of the text, into the zeros after it.
    dir.write("data/utf8end.xml", "<root a=\"25\xea\xea\xea\xea\n");
    TiXmlDocument cut("data/utf8end.xml");
    stdoutOf([&] { EXPECT_FALSE(rm.loadDocument(cut, "data/utf8end.xml")); });
}

TEST_F(ResourceManagerTest, NestingLimitCountsOpenElements)
{
    const auto nest = [](int depth, const std::string& inside) {
        std::string text;
        for (int i = 0; i < depth; ++i)
            text += "<a>";
        text += inside;
        for (int i = 0; i < depth; ++i)
            text += "</a>";
        return text;
    };
    // Inside a root element: one level is already taken.
    const int room = ResourceManager::maxXmlDepth - 1;
    const struct {
        std::string body;
        bool loads;
    } cases[] = {
        {nest(room, ""), true},
        {nest(room - 1, "<b/><b/><b />"), true},
        {nest(room, "<b/>"), false},
        {nest(room, "<?pi?><!-- c -->x/y"), true},
        {nest(room / 2, "") + nest(room, ""), true},
        {nest(room + 1, ""), false},
    };
    for (const auto& c : cases) {
        dir.write("data/nest.xml", "<r>" + c.body + "</r>");
        TiXmlDocument document;
        EXPECT_EQ(rm.loadDocument(document, "data/nest.xml"), c.loads) << c.body.substr(0, 40);
    }
}
