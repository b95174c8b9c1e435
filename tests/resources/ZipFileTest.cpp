#include <gtest/gtest.h>

#include <string>

#include "resources/TempDir.h"
#include "resources/ZipBuilder.h"
#include "resources/ZipFile.h"

// Hostile archives: each lie is reported and the member is treated as absent,
// without reading outside the file or allocating what the file cannot back.
class ZipFileTest : public ::testing::Test {
protected:
    // Writes the image, indexes it, and reads `name`; "<null>" when absent.
    std::string read(const std::string& image, const std::string& name, bool& error)
    {
        dir.write("t.zip", image);
        ZipFile zip("t.zip");
        std::string result = "<null>";
        error = false;
        log = stdoutOf([&] {
            EXPECT_TRUE(zip.open());
            if (const ZipEntry* entry = zip.findEntry(name)) {
                std::size_t size = 0;
                if (std::unique_ptr<char[]> bytes = zip.getBytes(*entry, size, error)) {
                    EXPECT_EQ(bytes[size], '\0');
                    result.assign(bytes.get(), size);
                }
            }
        });
        return result;
    }

    TempDir dir;
    std::string log;
    const std::string text = std::string(3000, 'x') + "tail";
};

TEST_F(ZipFileTest, MembersReadOnlyWhenTheFileBacksWhatTheirHeadersClaim)
{
    auto claiming = [](ZipMember m, uint32_t size) {
        m.uncompressedSize = size;
        return m;
    };
    // Empty non-final stored blocks, over and over: a stream that never ends.
    std::string endless;
    for (int i = 0; i < 20000; ++i)
        endless += std::string("\x00\x00\x00\xFF\xFF", 5);
    std::string wrongSignature = buildZip({storedMember("a", "aaa"), storedMember("b", "bbb")});
    wrongSignature[0 + 30 + 1 + 3] = 'Q';  // the second member's local "PK"
    std::string longName = buildZip({storedMember("a", "aaa")});
    longName[26] = '\xFF';  // local name length runs past the end
    longName[27] = '\xFF';
    const std::string fakeDirectory = std::string("PK\x01\x02", 4) + std::string(60, '\0');
    std::vector<std::size_t> central;
    std::string truncated = buildZip({storedMember("first", "1"), storedMember("second", "2")}, &central);
    truncated.resize(central[1] + 30);  // the second record and the end record are cut off
    central.clear();
    std::string farOffset = buildZip({storedMember("a", "aaa"), storedMember("b", "bbb")}, &central);
    setLE32(farOffset, central[0] + 42, 0x7FFFFFF0);  // local header far past the end
    std::string lostDirectory = buildZip({storedMember("c", "ccc")});
    setLE32(lostDirectory, lostDirectory.size() - 6, 0xFFFFFF00);

    const struct {
        const char* what;
        std::string image;
        const char* name;
        std::string expected;
        bool error;
    } cases[] = {
        {"3 GB stored in a tiny file", buildZip({claiming(storedMember("m", "abc"), 3000000000u)}), "m", "<null>",
         true},
        {"stored, more than the bytes left", buildZip({claiming(storedMember("m", "abc"), 100)}), "m", "<null>",
         true},
        {"far beyond what deflate can expand to",
         buildZip({claiming(deflatedMember("m", text), 200u * 1024u * 1024u)}), "m", "<null>", true},
        {"stream ends before the claimed size",
         buildZip({claiming(deflatedMember("m", text), static_cast<uint32_t>(text.size() * 2))}), "m", "<null>",
         true},
        {"less than the stream holds: what was claimed", buildZip({claiming(deflatedMember("m", text), 10)}), "m",
         text.substr(0, 10), false},
        {"a stream that never ends", buildZip({{"m", endless, 8, 16}}), "m", "<null>", true},
        {"garbage stream", buildZip({{"m", std::string(600, '\xFF'), 8, 100}}), "m", "<null>", true},
        {"wrong local signature", wrongSignature, "b", "<null>", true},
        {"local name past the end", longName, "a", "<null>", true},
        {"unknown method: absent without error", buildZip({{"m", "BZh91AY&SY", 12, 10}}), "m", "<null>", false},
        {"directory signature in stored bytes",
         buildZip({storedMember("inner", fakeDirectory), storedMember("after", "ok")}), "after", "ok", false},
        {"truncated directory keeps the records that fit", truncated, "first", "1", false},
        {"truncated directory drops the cut record", truncated, "second", "<null>", false},
        {"local header past the end", farOffset, "a", "<null>", false},
        {"a neighbour's bad offset", farOffset, "b", "bbb", false},
        {"end record points past the end: scanned for", lostDirectory, "c", "ccc", false},
    };
    for (const auto& c : cases) {
        bool error = !c.error;
        EXPECT_EQ(read(c.image, c.name, error), c.expected) << c.what;
        EXPECT_EQ(error, c.error) << c.what;
    }
    bool error = false;
    read(truncated, "first", error);
    EXPECT_NE(log.find("truncated central directory record"), std::string::npos) << log;
}
