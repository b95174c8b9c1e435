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

std::vector<fs::path> filesUnder(const std::string& relative, const std::vector<std::string>& extensions)
{
    std::vector<fs::path> found;
    const fs::path root = fs::path(testGameDir()) / relative;
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

// Loads one image as the texture loader does (upper-left origin) and returns
// its pixels as RGBA, or an empty vector.
std::vector<unsigned char> loadRgba(const fs::path& file)
{
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);
    std::vector<unsigned char> pixels;
    if (ilLoadImage(file.string().c_str()) && ilConvertImage(IL_RGBA, IL_UNSIGNED_BYTE)) {
        const auto* data = ilGetData();
        pixels.assign(data, data + static_cast<std::size_t>(ilGetInteger(IL_IMAGE_WIDTH)) *
                                       ilGetInteger(IL_IMAGE_HEIGHT) * 4);
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
        ASSERT_TRUE(fs::exists(fs::path(testGameDir()) / "data/images/fallback.png"))
            << "generated media not found in " << testGameDir();
    }
};

// Formats and sizes are the Python checks' business; this is about DevIL.
TEST_F(MediaLoadTest, EveryImageDecodes)
{
    const auto images = filesUnder("data", {".png", ".tga"});
    ASSERT_GT(images.size(), 150u);
    for (const auto& file : images) {
        if (file.string().find("/fonts/") != std::string::npos)
            continue;  // baked by the font tool, checked by its own tests
        EXPECT_FALSE(loadRgba(file).empty()) << file;
    }
}

TEST_F(MediaLoadTest, TargaAndPngCopiesOfThePlayerMatchRowForRow)
{
    // Targa stores rows bottom-up; a flipped load would show the player upside down.
    const auto tga = loadRgba(fs::path(testGameDir()) / "data/images/debugsmiley.tga");
    ASSERT_FALSE(tga.empty());
    EXPECT_EQ(tga, loadRgba(fs::path(testGameDir()) / "data/images/debugsmiley.png"));
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
