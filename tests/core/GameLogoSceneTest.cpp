#include <gtest/gtest.h>

#include <deque>

#include "core/Clock.h"
#include "core/Game.h"
#include "core/GameLogoScene.h"
#include "core/ManualClock.h"
#include "render/FontRenderer.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"

namespace {
// The card with events fed by the test instead of SDL.
class ScriptedLogo : public GameLogoScene {
public:
    std::deque<SDL_Event> events;
    void push(Uint8 type)
    {
        SDL_Event e{};
        e.type = type;
        events.push_back(e);
    }

protected:
    bool pollEvent(SDL_Event& event) override
    {
        if (events.empty())
            return false;
        event = events.front();
        events.pop_front();
        return true;
    }
};

// Remembers where each line of text was drawn.
class TextRecorder : public FontRenderer {
public:
    struct Line {
        float x, y;
        std::string text;
    };
    std::vector<Line>* lines = nullptr;
    bool selectFont(const std::string&, int) override { return true; }
    void drawText(float x, float y, float, const std::string& text) override { lines->push_back({x, y, text}); }
};

class GameLogoSceneTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        Clock::install(&clock);
        game.getTimer().start();
        logo.running = true;
        logo.sceneTimer.start();
    }
    void TearDown() override { Clock::install(nullptr); }
    bool frameAfter(uint32_t ms)
    {
        clock.advance(ms);
        return logo.frame(game);
    }

    ManualClock clock{1000};
    Game game{std::make_unique<NullRenderer>(), std::make_unique<NullSound>()};
    ScriptedLogo logo;
};
}

TEST_F(GameLogoSceneTest, FadesInThenOutAndEndsWithItsLinesAtFixedOffsetsFromTheCentre)
{
    std::vector<TextRecorder::Line> lines;
    auto* fonts = new TextRecorder;
    fonts->lines = &lines;
    game.getRenderer()->setFontRenderer(fonts);
    int frames = 0;
    float peak = 0.0f;
    while (frameAfter(100) && frames < 1000) {
        peak = std::max(peak, logo.alpha);
        ++frames;
    }
    EXPECT_FALSE(logo.running);
    EXPECT_GE(peak, 255.0f);
    // 255 / 80 seconds up and as long down, in frames of 0.1 s.
    EXPECT_NEAR(frames, 64, 3);
    EXPECT_EQ(game.getFrameCount(), static_cast<uint32_t>(frames + 1));
    const float w = static_cast<float>(game.getRenderer()->getWidth());
    const float h = static_cast<float>(game.getRenderer()->getHeight());
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[0].text, "Quillmar Software Presents");
    EXPECT_FLOAT_EQ(lines[0].x, w / 2 - 200);
    EXPECT_FLOAT_EQ(lines[0].y, h / 2 + 20);
    EXPECT_EQ(lines[1].text, "Brindlequay");
    EXPECT_FLOAT_EQ(lines[1].x, w / 2 - 100);
    EXPECT_FLOAT_EQ(lines[1].y, h / 2 - 20);

    // A four-second frame overshoots; the fade turns at the next frame.
    ScriptedLogo slow;
    slow.running = true;
    slow.updateFade(4.0f);
    EXPECT_FLOAT_EQ(slow.alpha, 320.0f);
    EXPECT_FALSE(slow.fadingOut);
    slow.updateFade(0.1f);
    EXPECT_TRUE(slow.fadingOut);
    EXPECT_FLOAT_EQ(slow.alpha, 255.0f - 8.0f);
    EXPECT_TRUE(slow.running);
}

TEST_F(GameLogoSceneTest, InputSkipsOnlyAfterTheFirstMomentAndOnlyWhenSkippable)
{
    logo.push(SDL_KEYDOWN);
    EXPECT_TRUE(frameAfter(200));  // 0.2 s: too early
    logo.push(SDL_MOUSEMOTION);
    EXPECT_TRUE(frameAfter(200));  // motion never skips
    logo.skippable = false;
    logo.push(SDL_QUIT);
    logo.push(SDL_KEYDOWN);
    EXPECT_TRUE(frameAfter(500));
    EXPECT_FALSE(game.isQuitting());
    logo.skippable = true;
    logo.push(SDL_MOUSEBUTTONUP);
    EXPECT_FALSE(frameAfter(50));
    EXPECT_FALSE(game.isQuitting());

    // Closing the window ends a card at once, and the game with it.
    ScriptedLogo closed;
    closed.running = true;
    closed.push(SDL_QUIT);
    clock.advance(10);
    EXPECT_FALSE(closed.frame(game));
    EXPECT_TRUE(game.isQuitting());
}
