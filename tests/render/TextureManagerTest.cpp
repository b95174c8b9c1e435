#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "render/TextureManager.h"

namespace fs = std::filesystem;

namespace {
// Records what would reach OpenGL.
class RecordingTextures : public TextureManager {
public:
    int uploads = 0;
    unsigned int nextId = 100;
    unsigned int bound = 0;
    bool lastAlpha = false;
    bool lastClamp = false;
    std::vector<unsigned char> lastPixels;
    std::vector<unsigned int> deleted;

protected:
    unsigned int uploadTexture(const unsigned char* pixels, int w, int h, bool alpha,
                               bool clamp) override
    {
        ++uploads;
        lastAlpha = alpha;
        lastClamp = clamp;
        lastPixels.assign(pixels, pixels + w * h * (alpha ? 4 : 3));
        return nextId++;
    }
    void deleteTexture(unsigned int id) override { deleted.push_back(id); }
    void bindTexture(unsigned int id) override { bound = id; }
};

// An uncompressed TGA stored top row first; pixels given top row first as RGB(A).
void writeTga(const fs::path& path, int w, int h, int channels, const std::vector<unsigned char>& rgba)
{
    std::ofstream out(path, std::ios::binary);
    unsigned char header[18] = {};
    header[2] = channels == 1 ? 3 : 2;
    header[12] = static_cast<unsigned char>(w);
    header[14] = static_cast<unsigned char>(h);
    header[16] = static_cast<unsigned char>(channels * 8);
    header[17] = static_cast<unsigned char>(0x20 | (channels == 4 ? 8 : 0));
    out.write(reinterpret_cast<const char*>(header), sizeof header);
    for (size_t i = 0; i < rgba.size(); i += static_cast<size_t>(channels)) {
        if (channels == 1) {
            out.put(static_cast<char>(rgba[i]));
            continue;
        }
        out.put(static_cast<char>(rgba[i + 2]));
        out.put(static_cast<char>(rgba[i + 1]));
        out.put(static_cast<char>(rgba[i]));
        if (channels == 4)
            out.put(static_cast<char>(rgba[i + 3]));
    }
}

fs::path sourceDir() { return fs::path(__FILE__).parent_path().parent_path().parent_path(); }
}

class TextureManagerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        previous = fs::current_path();
        scratch = fs::temp_directory_path() / ("bq_textures_" + std::to_string(::getpid()));
        fs::remove_all(scratch);
        fs::create_directories(scratch / "data" / "images");
        fs::current_path(scratch);
        // 2 x 2: red, green on the top row; blue, white below.
        writeTga("rgb.tga", 2, 2, 3, {255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255, 255});
        writeTga("rgba.tga", 1, 2, 4, {10, 20, 30, 40, 50, 60, 70, 80});
        writeTga("grey.tga", 2, 1, 1, {0, 200});
        std::ofstream("broken.png") << "not an image at all";
    }
    void TearDown() override
    {
        fs::current_path(previous);
        fs::remove_all(scratch);
    }
    void installFallback()
    {
        fs::copy_file(sourceDir() / "data" / "images" / "fallback.png",
                      scratch / "data" / "images" / "fallback.png");
    }
    fs::path previous, scratch;
    RecordingTextures textures;
};

TEST_F(TextureManagerTest, DecodesOnceAndUploadsBottomRowFirst)
{
    const int id = textures.bind("rgb.tga", true);
    EXPECT_EQ(id, 100);
    EXPECT_EQ(textures.bound, 100u);
    EXPECT_EQ(textures.bind("rgb.tga", true), 100);
    EXPECT_EQ(textures.getDecodeCount(), 1);
    EXPECT_EQ(textures.uploads, 1);
    EXPECT_TRUE(textures.lastClamp);
    EXPECT_FALSE(textures.lastAlpha);
    // GL wants the bottom row first: blue, white, then red, green.
    const std::vector<unsigned char> expected = {0, 0, 255, 255, 255, 255, 255, 0, 0, 0, 255, 0};
    EXPECT_EQ(textures.lastPixels, expected);
    EXPECT_EQ(textures.getWidth("rgb.tga"), 2);
    EXPECT_EQ(textures.getHeight("rgb.tga"), 2);
    EXPECT_EQ(textures.find("rgb.tga")->bitsPerPixel, 24);
}

TEST_F(TextureManagerTest, AlphaAndGreyImagesBecomeRgbaAndRgb)
{
    textures.bind("rgba.tga", false);
    EXPECT_TRUE(textures.lastAlpha);
    EXPECT_EQ(textures.find("rgba.tga")->bitsPerPixel, 32);
    const std::vector<unsigned char> rgba = {50, 60, 70, 80, 10, 20, 30, 40};
    EXPECT_EQ(textures.lastPixels, rgba);

    textures.bind("grey.tga", false);
    EXPECT_FALSE(textures.lastAlpha);
    const std::vector<unsigned char> grey = {0, 0, 0, 200, 200, 200};
    EXPECT_EQ(textures.lastPixels, grey);
}

TEST_F(TextureManagerTest, UnknownPathsAnswerMinusOneAndLoadNothing)
{
    EXPECT_EQ(textures.getId("rgb.tga"), -1);
    EXPECT_EQ(textures.getWidth("rgb.tga"), -1);
    EXPECT_EQ(textures.getHeight("rgb.tga"), -1);
    EXPECT_EQ(textures.getDecodeCount(), 0);
    EXPECT_EQ(textures.indexOf(12345), -1);
    textures.unload("never-loaded.png");
    EXPECT_TRUE(textures.deleted.empty());
}

TEST_F(TextureManagerTest, FailedLoadBindsTheFallbackAndIsRetried)
{
    installFallback();
    const int fallback = textures.bind("missing.png", false);
    EXPECT_EQ(fallback, 100);
    EXPECT_EQ(textures.getId(TextureManager::fallbackPath), 100);
    EXPECT_EQ(textures.getId("missing.png"), -1);
    // Broken data is no better than a missing file, and the name stays uncached.
    EXPECT_EQ(textures.bind("broken.png", false), 100);
    EXPECT_EQ(textures.bind("missing.png", false), 100);
    EXPECT_EQ(textures.getDecodeCount(), 4);
    EXPECT_EQ(textures.size(), 1u);
}

TEST_F(TextureManagerTest, WithoutFallbackNothingIsBound)
{
    EXPECT_EQ(textures.bind("missing.png", false), -1);
    EXPECT_EQ(textures.bound, 0u);
    EXPECT_EQ(textures.bindFallback(), -1);
}

TEST_F(TextureManagerTest, IndexUnloadAndDumpFollowNameOrder)
{
    textures.bind("rgba.tga", false);  // id 100
    textures.bind("grey.tga", false);  // id 101
    textures.bind("rgb.tga", false);   // id 102
    EXPECT_EQ(textures.indexOf(101), 0);  // "grey.tga" sorts first
    EXPECT_EQ(textures.indexOf(100), 2);

    std::ostringstream out;
    textures.dump(out);
    EXPECT_EQ(out.str(),
              "grey.tga : w,h: 2,1 : bpp: 24 : glID: 101\n"
              "rgb.tga : w,h: 2,2 : bpp: 24 : glID: 102\n"
              "rgba.tga : w,h: 1,2 : bpp: 32 : glID: 100\n");

    textures.unload("rgb.tga");
    EXPECT_EQ(textures.deleted, std::vector<unsigned int>{102});
    EXPECT_EQ(textures.getId("rgb.tga"), -1);
    textures.unloadAll();
    EXPECT_EQ(textures.size(), 0u);
    EXPECT_EQ(textures.deleted.size(), 3u);
    // Reloaded on next use after a mode change.
    EXPECT_EQ(textures.bind("rgb.tga", false), 103);
}
