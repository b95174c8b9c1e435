// Loads every generated image with DevIL and every sound with SDL_mixer, the
// libraries the game decodes them with, so a file the Python checks accept
// but the game could not read still fails the build.
#include "TestPaths.h"
#include <IL/il.h>
#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::string gameDir() { return testGameDir(); }

std::vector<fs::path> filesUnder(const std::string& relative, const std::vector<std::string>& extensions)
{
    std::vector<fs::path> found;
    const fs::path root = fs::path(gameDir()) / relative;
    if (!fs::exists(root))
        return found;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file())
            continue;
        const std::string ext = entry.path().extension().string();
        if (std::find(extensions.begin(), extensions.end(), ext) != extensions.end())
            found.push_back(entry.path());
    }
    std::sort(found.begin(), found.end());
    return found;
}

bool isPowerOfTwo(int n)
{
    return n > 0 && (n & (n - 1)) == 0;
}

// Loads one image as the texture loader does (upper-left origin) and returns
// its pixels as RGBA, or an empty vector.
std::vector<unsigned char> loadRgba(const fs::path& file, int& width, int& height, int& bpp)
{
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);
    std::vector<unsigned char> pixels;
    if (ilLoadImage(file.string().c_str())) {
        width = ilGetInteger(IL_IMAGE_WIDTH);
        height = ilGetInteger(IL_IMAGE_HEIGHT);
        bpp = ilGetInteger(IL_IMAGE_BITS_PER_PIXEL);
        if (ilConvertImage(IL_RGBA, IL_UNSIGNED_BYTE)) {
            const auto* data = ilGetData();
            pixels.assign(data, data + static_cast<std::size_t>(width) * height * 4);
        }
    }
    ilDeleteImages(1, &image);
    return pixels;
}

class MediaLoadTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        ilInit();
        ilEnable(IL_ORIGIN_SET);
        ilOriginFunc(IL_ORIGIN_UPPER_LEFT);
    }

    void SetUp() override
    {
        ASSERT_TRUE(fs::exists(fs::path(gameDir()) / "data/images/fallback.png"))
            << "generated media not found in " << gameDir();
    }
};

TEST_F(MediaLoadTest, EveryImageDecodesAsTrueColourWithUsableSize)
{
    const auto images = filesUnder("data", {".png", ".tga"});
    ASSERT_GT(images.size(), 150u);
    for (const auto& file : images) {
        if (file.string().find("/fonts/") != std::string::npos)
            continue;  // baked by the font tool, checked by its own tests
        int w = 0, h = 0, bpp = 0;
        const auto pixels = loadRgba(file, w, h, bpp);
        ASSERT_FALSE(pixels.empty()) << file;
        EXPECT_TRUE(bpp == 24 || bpp == 32) << file << " bpp " << bpp;
        const bool thumbnailSized = file.filename() == "defaultgame.png" && w == 320 && h == 240;
        EXPECT_TRUE(thumbnailSized || (isPowerOfTwo(w) && isPowerOfTwo(h))) << file << " " << w << "x" << h;
    }
}

TEST_F(MediaLoadTest, TargaAndPngCopiesOfThePlayerMatchRowForRow)
{
    // Targa stores rows bottom-up; a flipped load would show the player upside down.
    int tw = 0, th = 0, tb = 0, pw = 0, ph = 0, pb = 0;
    const auto tga = loadRgba(fs::path(gameDir()) / "data/images/debugsmiley.tga", tw, th, tb);
    const auto png = loadRgba(fs::path(gameDir()) / "data/images/debugsmiley.png", pw, ph, pb);
    ASSERT_FALSE(tga.empty());
    ASSERT_EQ(tw, pw);
    ASSERT_EQ(th, ph);
    EXPECT_EQ(tga, png);
}

TEST_F(MediaLoadTest, EverySoundDecodesWithTheMixer)
{
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_AUDIO), 0) << SDL_GetError();
    ASSERT_EQ(Mix_OpenAudio(22050, AUDIO_S16LSB, 2, 1024), 0) << Mix_GetError();
    const auto sounds = filesUnder("data/sounds", {".wav", ".ogg"});
    EXPECT_GT(sounds.size(), 45u);
    for (const auto& file : sounds) {
        Mix_Chunk* chunk = Mix_LoadWAV_RW(SDL_RWFromFile(file.string().c_str(), "rb"), 1);
        ASSERT_NE(chunk, nullptr) << file << ": " << Mix_GetError();
        EXPECT_GT(chunk->alen, 0u) << file;
        Mix_FreeChunk(chunk);
    }
    Mix_CloseAudio();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

}  // namespace
