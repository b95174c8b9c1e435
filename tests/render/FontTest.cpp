#include "TestPaths.h"
#include <gtest/gtest.h>

#include <tinyxml.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "render/ImageFontRenderer.h"
#include "render/NullRenderer.h"

namespace {
// left, bottom, right, top, then the texture's s, t, s2, t2.
using Glyph = std::array<float, 8>;

class RecordingFontRenderer : public ImageFontRenderer {
public:
    std::vector<Glyph> glyphs;

protected:
    void emitGlyph(float left, float bottom, float right, float top, float, float s, float t,
                   float s2, float t2) override
    {
        glyphs.push_back({left, bottom, right, top, s, t, s2, t2});
    }
};

// "A" is 10 wide with advance 8 (its width wins), "b" 6 wide with advance 7.
const char* const testFontXml = R"(<font name="vera" size="14">
  <descriptors>
    <char charcode="65" image="p.png" width="10" height="12" top="10" xadvance="8"
          s="0.25" t="1" s2="0.5" t2="0.75" />
    <char charcode="98" image="p.png" width="6" height="11" top="11" xadvance="7.0" />
    <char charcode="300" image="p.png" width="6" />
    <char charcode="-1" image="p.png" width="6" />
    <glyph charcode="32" xadvance="4" px="nonsense" />
  </descriptors>
  <imageindex><image filename="p.png" /><image filename="p.png" /></imageindex>
</font>)";

std::unique_ptr<Font> parseFont(const char* xml)
{
    TiXmlDocument doc;
    doc.Parse(xml);
    auto font = std::make_unique<Font>();
    EXPECT_TRUE(font->loadDocument(doc));
    return font;
}
}

TEST(FontTest, ParsesDescriptorsAndPagesIgnoringOutOfRangeCodesAndBadFiles)
{
    auto font = parseFont(testFontXml);
    EXPECT_EQ(font->name, "vera");
    EXPECT_EQ(font->size, 14);
    const CharacterDescriptor* a = font->getDescriptor('A');
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->width, 10);
    EXPECT_EQ(a->top, 10);
    EXPECT_FLOAT_EQ(a->s2, 0.5f);
    EXPECT_EQ(a->imageName, "p.png");
    // Any element name counts; a non-number reads as 0.
    ASSERT_NE(font->getDescriptor(' '), nullptr);
    EXPECT_EQ(font->getDescriptor(' ')->px, 0);
    EXPECT_EQ(font->getDescriptor('c'), nullptr);
    EXPECT_EQ(font->getDescriptor(300), nullptr);
    EXPECT_EQ(font->getDescriptor(-1), nullptr);
    EXPECT_FLOAT_EQ(font->getAdvance('A'), 10.0f);
    EXPECT_FLOAT_EQ(font->getAdvance('b'), 7.0f);
    EXPECT_EQ(font->getImageNames(), std::vector<std::string>{"p.png"});

    // A missing or malformed file leaves the font empty.
    Font missing;
    EXPECT_FALSE(missing.load("no_such_font.xml"));
    EXPECT_EQ(missing.getDescriptor('A'), nullptr);
    TiXmlDocument doc;
    doc.Parse("<font name=\"x\"");
    Font broken;
    EXPECT_FALSE(broken.loadDocument(doc));
}

class ImageFontRendererTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        fonts.setRenderer(&renderer);
        fonts.addFont(parseFont(testFontXml));
    }
    NullRenderer renderer;
    RecordingFontRenderer fonts;
};

TEST_F(ImageFontRendererTest, SelectionByNameAndSizeThenWidthsSkippingMissingCharactersAndCentring)
{
    EXPECT_EQ(fonts.textWidth(""), 16.0f);  // nothing selected yet
    EXPECT_EQ(fonts.textHeight("x"), 16.0f);
    fonts.drawText(0.0f, 0.0f, "A");
    EXPECT_TRUE(fonts.glyphs.empty());
    ASSERT_TRUE(fonts.selectFont("vera", 14));
    EXPECT_FALSE(fonts.selectFont("vera", 16));
    EXPECT_EQ(fonts.getCurrentFont()->size, 14);
    EXPECT_EQ(fonts.textWidth(""), 0.0f);
    EXPECT_EQ(fonts.textHeight("x"), 14.0f);
    // Each character counts its advance or its width, whichever is more, plus spacing.
    EXPECT_FLOAT_EQ(fonts.textWidth("A"), 11.0f);
    EXPECT_FLOAT_EQ(fonts.textWidth("Ab"), 11.0f + 8.0f);
    EXPECT_FLOAT_EQ(fonts.textWidth("AcZb"), 19.0f);
    fonts.setScale(2.0f);
    EXPECT_FLOAT_EQ(fonts.textWidth("Ab"), 19.0f);  // measured unscaled

    // Centring on a font whose advance is zero: the width decides.
    fonts.setScale(1.0f);
    fonts.addFont(parseFont(R"(<font name="w" size="10"><descriptors>
        <c charcode="87" width="39" xadvance="0" /></descriptors></font>)"));
    ASSERT_TRUE(fonts.selectFont("w", 10));
    EXPECT_FLOAT_EQ(fonts.textWidth("W"), 40.0f);
    EXPECT_FLOAT_EQ(fonts.centredX(0.0f, 100.0f, "W"), 30.0f);
    EXPECT_FLOAT_EQ(fonts.centredY(100.0f, 40.0f, "W"), 100.0f - 20.0f - 5.0f);

    FontRenderer fallback;
    EXPECT_FLOAT_EQ(fallback.textWidth("abc"), 48.0f);
    EXPECT_FLOAT_EQ(fallback.centredX(0.0f, 100.0f, "abc"), 26.0f);
    EXPECT_FLOAT_EQ(fallback.centredY(100.0f, 40.0f, "abc"), 88.0f);
}

TEST_F(ImageFontRendererTest, GlyphsSitOnTheBaselineThePenSnapsToPixelsAndScaleEnlargesBoth)
{
    fonts.selectFont("vera", 14);
    fonts.drawText(10.4f, 100.0f, "AcbA");
    // 'c' is skipped; "A" has two pixels of descent below the baseline.
    const std::vector<Glyph> expected = {Glyph{10, 98, 20, 110, 0.25f, 1, 0.5f, 0.75f},
                                         Glyph{21, 100, 27, 111, 0, 0, 0, 0},
                                         Glyph{29, 98, 39, 110, 0.25f, 1, 0.5f, 0.75f}};
    EXPECT_EQ(fonts.glyphs, expected);

    // Twice the size: the glyphs and the advance, plus one pixel of spacing.
    fonts.glyphs.clear();
    fonts.setScale(2.0f);
    fonts.drawText(0.0f, 50.0f, "Ab");
    ASSERT_EQ(fonts.glyphs.size(), 2u);
    EXPECT_EQ(fonts.glyphs[0], (Glyph{0, 46, 20, 70, 0.25f, 1, 0.5f, 0.75f}));
    EXPECT_FLOAT_EQ(fonts.glyphs[1][0], 21.0f);

    // Without a renderer nothing is drawn.
    fonts.glyphs.clear();
    fonts.setRenderer(nullptr);
    fonts.drawText(0.0f, 0.0f, "A");
    EXPECT_TRUE(fonts.glyphs.empty());
}

// The fonts the build bakes from Bitstream Vera.
TEST(BakedFontTest, EveryFontCoversPrintableLatin1OnPowerOfTwoPages)
{
    const std::string gameDir = testGameDir();
    ASSERT_TRUE(std::filesystem::exists(gameDir + "/data/fonts/vera_12.xml")) << "baked fonts not found in " << gameDir;
    struct Expected {
        const char* file;
        int size;
    };
    for (const Expected& e : {Expected{"vera_12.xml", 12}, Expected{"verabd_14.xml", 14},
                              Expected{"verabd_18.xml", 18}, Expected{"verabd_24.xml", 24}}) {
        TiXmlDocument doc;
        ASSERT_TRUE(doc.LoadFile((std::string(gameDir) + "/data/fonts/" + e.file).c_str())) << e.file;
        Font font;
        ASSERT_TRUE(font.loadDocument(doc));
        EXPECT_EQ(font.name, "vera");
        EXPECT_EQ(font.size, e.size);
        ASSERT_EQ(font.getImageNames().size(), 1u);
        EXPECT_TRUE(std::filesystem::exists(std::string(gameDir) + "/data/fonts/" +
                                            font.getImageNames()[0]));
        for (int code = 0; code < 256; ++code) {
            const CharacterDescriptor* d = font.getDescriptor(code);
            ASSERT_NE(d, nullptr) << e.file << " lacks " << code;
            const bool printable = (code >= 33 && code < 127) || code >= 161;
            if (printable && code != 173) {  // the soft hyphen may be blank
                EXPECT_GT(d->width, 0) << e.file << " " << code;
                EXPECT_GT(d->height, 0) << e.file << " " << code;
            }
            EXPECT_LE(d->height, e.size * 2) << e.file << " " << code;
            // Inside the page, with t above t2.
            EXPECT_TRUE(d->s >= 0.0f && d->s2 <= 1.0f && d->t <= 1.0f && d->t2 >= 0.0f && d->t >= d->t2)
                << e.file << " " << code;
        }
        // Digits share one advance so counters do not jitter.
        EXPECT_EQ(font.getAdvance('0'), font.getAdvance('8'));
        EXPECT_GT(font.getAdvance('W'), font.getAdvance('i'));
    }
}
