// Drawing state that callers must not depend on: text sets up its own
// texturing, each body's extras are drawn once, with the body, where the body
// is drawn, and sprites tint and clamp as their art needs.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "core/Game.h"
#include "gameplay/player/Player.h"
#include "render/FixedWidthFonts.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"
#include "world/body/Body.h"
#include "world/geometry/RGBAColour.h"

namespace {
// Tracks the texturing switch and what was drawn, and hands every body back
// for its extras as the real renderer does.
class StateRenderer : public NullRenderer {
public:
    struct Sprite {
        float x, y, z;
        RGBAColour colour;
    };
    bool texturing = false;
    int bodiesDrawn = 0;
    std::vector<Sprite> sprites;

    void setTexturing(bool on) override { texturing = on; }
    void drawBody(Body& body) override
    {
        ++bodiesDrawn;
        body.drawExtras(*this);
    }
    void drawTintedSprite(float cx, float cy, float z, float, float, const std::string&,
                          const RGBAColour& colour) override
    {
        sprites.push_back({cx, cy, z, colour});
    }
};

class ExtrasCounter : public Body {
public:
    int extras = 0;
    void drawExtras(IRenderer&) override { ++extras; }
};
}

TEST(DrawStateTest, TextTurnsTexturingOnWhateverDrewBefore)
{
    StateRenderer renderer;
    FixedWidthFonts fonts;
    fonts.setRenderer(&renderer);
    // As after the glow pass or an untextured body.
    renderer.setTexturing(false);
    fonts.drawText(10, 10, "AAA");
    EXPECT_EQ(fonts.glyphs.size(), 3u);
    EXPECT_TRUE(renderer.texturing);
}

TEST(DrawStateTest, EachBodysExtrasAreDrawnOncePerFrameWithTheBody)
{
    auto* renderer = new StateRenderer;
    Game game{std::unique_ptr<IRenderer>(renderer), std::make_unique<NullSound>()};
    ExtrasCounter a, b;
    game.addBody(&a, true);
    game.addBody(&b, true);
    game.drawBodies();
    EXPECT_EQ(renderer->bodiesDrawn, 2);
    EXPECT_EQ(a.extras, 1);
    EXPECT_EQ(b.extras, 1);
    game.removeBody(&a);
    game.removeBody(&b);
}

TEST(DrawStateTest, PowerUpGlowsKeepTheirColoursAtTheDrawnPosition)
{
    StateRenderer renderer;
    Player player;
    player.pos = Vector(100.0f, 50.0f);
    player.renderpos = Vector(96.0f, 48.0f);
    player.hasinvinc = true;
    player.hasquad = true;
    player.drawExtras(renderer);
    ASSERT_EQ(renderer.sprites.size(), 2u);
    EXPECT_EQ(renderer.sprites[0].colour, RGBAColour(255, 0, 0, 200));
    EXPECT_EQ(renderer.sprites[1].colour, RGBAColour(0, 255, 0, 200));
    for (const auto& s : renderer.sprites) {
        EXPECT_FLOAT_EQ(s.x, 96.0f);
        EXPECT_FLOAT_EQ(s.y, 48.0f);
        EXPECT_FLOAT_EQ(s.z, 0.2f);
    }
}

TEST(DrawStateTest, ArtLaidOnOnceIsClampedAndTilingArtRepeats)
{
    Body sprite;
    sprite.makeRectangle(16.0f, 16.0f);
    EXPECT_TRUE(sprite.drawsTextureOnce());

    Body wall;
    wall.makeRectangle(256.0f, 64.0f);
    for (TexCoord& c : wall.texCoords)
        c.u *= 4.0f;
    EXPECT_FALSE(wall.drawsTextureOnce());

    Body noCoords;
    EXPECT_FALSE(noCoords.drawsTextureOnce());
}

TEST(DrawStateTest, PlayerIsOnThePlayersSideAndNoEnemy)
{
    Player player;
    EXPECT_TRUE(player.isPlayerSide());
    EXPECT_FALSE(player.isEnemy());
    // The bit other bodies read: value 4 of the second flag set.
    EXPECT_EQ(player.flags2.bits, 4u);
    player.setEnemy(true);
    EXPECT_EQ(player.flags2.bits, 6u);
    player.setPlayerSide(false);
    EXPECT_TRUE(player.isEnemy());
    EXPECT_FALSE(player.isPlayerSide());
}
