#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "resources/TempDir.h"
#include "resources/ZipBuilder.h"
#include "resources/ZipFile.h"

// Hostile archives: each lie is reported and the member is treated as absent,
// without reading outside the file or allocating what the file cannot back.
class ZipFileTest : public ::testing::Test {
protected:
    // Writes the image, indexes it, and reads `name`; "<null>" when absent.
    std::string read(const std::string& image, const std::string& name, bool& error,
                     bool expectIndexed = true)
    {
        dir.write("t.zip", image);
        ZipFile zip("t.zip");
        std::fflush(stdout);
        ::testing::internal::CaptureStdout();
        const bool indexed = zip.open();
        std::string result = "<null>";
        error = false;
        if (const ZipEntry* entry = zip.findEntry(name)) {
            std::size_t size = 0;
            if (std::unique_ptr<char[]> bytes = zip.getBytes(*entry, size, error)) {
                EXPECT_EQ(bytes[size], '\0');
                result.assign(bytes.get(), size);
            }
        }
        std::fflush(stdout);
        log = ::testing::internal::GetCapturedStdout();
        EXPECT_EQ(indexed, expectIndexed) << log;
        return result;
    }

    TempDir dir;
    std::string log;
    const std::string text = std::string(3000, 'x') + "tail";
};

TEST_F(ZipFileTest, WellFormedBuilderArchivesRead)
{
    bool error = true;
    const std::string image = buildZip({storedMember("s", text), deflatedMember("d", text)});
    EXPECT_EQ(read(image, "s", error), text);
    EXPECT_FALSE(error);
    EXPECT_EQ(read(image, "d", error), text);
    EXPECT_FALSE(error);
}

TEST_F(ZipFileTest, TruncatedDirectoryKeepsTheRecordsThatFit)
{
    std::vector<std::size_t> central;
    std::string image = buildZip({storedMember("first", "1"), storedMember("second", "2")}, &central);
    image.resize(central[1] + 30);  // the second record and the end record are cut off
    bool error = false;
    EXPECT_EQ(read(image, "first", error), "1");
    EXPECT_NE(log.find("truncated central directory record"), std::string::npos) << log;
    EXPECT_EQ(read(image, "second", error), "<null>");
}

TEST_F(ZipFileTest, OffsetsPastTheEndAreIgnored)
{
    std::vector<std::size_t> central;
    std::string image = buildZip({storedMember("a", "aaa"), storedMember("b", "bbb")}, &central);
    setLE32(image, central[0] + 42, 0x7FFFFFF0);  // local header far past the end
    bool error = false;
    EXPECT_EQ(read(image, "a", error), "<null>");
    EXPECT_EQ(read(image, "b", error), "bbb");

    // The end record names a directory past the end: fall back to scanning.
    std::string lost = buildZip({storedMember("c", "ccc")});
    setLE32(lost, lost.size() - 6, 0xFFFFFF00);
    EXPECT_EQ(read(lost, "c", error), "ccc");
}

TEST_F(ZipFileTest, ClaimedSizesMustBeBackedByTheFile)
{
    bool error = false;
    // A stored member claiming 3 GB in a tiny file.
    ZipMember huge = storedMember("huge", "abc");
    huge.uncompressedSize = 3000000000u;
    EXPECT_EQ(read(buildZip({huge}), "huge", error), "<null>");
    EXPECT_TRUE(error);

    // A stored member claiming more than the bytes left after it.
    ZipMember longer = storedMember("longer", "abc");
    longer.uncompressedSize = 100;
    EXPECT_EQ(read(buildZip({longer}), "longer", error), "<null>");
    EXPECT_TRUE(error);

    // A deflated member claiming far beyond what deflate can expand to.
    ZipMember bomb = deflatedMember("bomb", text);
    bomb.uncompressedSize = 200u * 1024u * 1024u;
    EXPECT_EQ(read(buildZip({bomb}), "bomb", error), "<null>");
    EXPECT_TRUE(error);

    // A deflated member whose stream ends before the claimed size.
    ZipMember shortStream = deflatedMember("short", text);
    shortStream.uncompressedSize = static_cast<uint32_t>(text.size() * 2);
    EXPECT_EQ(read(buildZip({shortStream}), "short", error), "<null>");
    EXPECT_TRUE(error);

    // Claiming less than the stream holds hands out what was claimed.
    ZipMember less = deflatedMember("less", text);
    less.uncompressedSize = 10;
    EXPECT_EQ(read(buildZip({less}), "less", error), text.substr(0, 10));
    EXPECT_FALSE(error);
}

TEST_F(ZipFileTest, BrokenStreamsAreAbsent)
{
    bool error = false;
    // Empty non-final stored blocks, over and over: a stream that never ends.
    std::string endless;
    for (int i = 0; i < 20000; ++i)
        endless += std::string("\x00\x00\x00\xFF\xFF", 5);
    EXPECT_EQ(read(buildZip({{"endless", endless, 8, 16}}), "endless", error), "<null>");
    EXPECT_TRUE(error);

    EXPECT_EQ(read(buildZip({{"garbage", std::string(600, '\xFF'), 8, 100}}), "garbage", error), "<null>");
    EXPECT_TRUE(error);

    // A deflated member cut short by the end of the file.
    std::string cut = buildZip({deflatedMember("cut", text)});
    dir.write("t.zip", cut);
    ZipFile zip("t.zip");
    ASSERT_TRUE(zip.open());
    dir.write("t.zip", cut.substr(0, 38));  // the archive shrank after indexing
    std::size_t size = 0;
    error = false;
    EXPECT_EQ(zip.getBytes(*zip.findEntry("cut"), size, error), nullptr);
    EXPECT_TRUE(error);
}

TEST_F(ZipFileTest, BadLocalHeadersAreAbsent)
{
    bool error = false;
    std::string wrongSignature = buildZip({storedMember("a", "aaa"), storedMember("b", "bbb")});
    wrongSignature[0 + 30 + 1 + 3] = 'Q';  // the second member's local "PK"
    EXPECT_EQ(read(wrongSignature, "b", error), "<null>");
    EXPECT_TRUE(error);

    std::string longName = buildZip({storedMember("a", "aaa")});
    longName[26] = '\xFF';  // local name length runs past the end
    longName[27] = '\xFF';
    EXPECT_EQ(read(longName, "a", error), "<null>");
    EXPECT_TRUE(error);
}

TEST_F(ZipFileTest, UnknownMethodIsAbsentWithoutError)
{
    bool error = true;
    EXPECT_EQ(read(buildZip({{"bz", "BZh91AY&SY", 12, 10}}), "bz", error), "<null>");
    EXPECT_FALSE(error);
}

TEST_F(ZipFileTest, StoredBytesThatLookLikeADirectoryDoNotConfuseTheIndex)
{
    // A stored member holding a directory signature ahead of the real directory.
    const std::string fake = std::string("PK\x01\x02", 4) + std::string(60, '\0');
    bool error = false;
    EXPECT_EQ(read(buildZip({storedMember("inner", fake), storedMember("after", "ok")}), "after", error),
              "ok");
}
