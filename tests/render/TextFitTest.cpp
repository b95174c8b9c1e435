// Fitting text into boxes, measured as drawn (8-pixel glyphs plus one of spacing).
#include <gtest/gtest.h>

#include <algorithm>

#include "render/FixedWidthFonts.h"
#include "render/NullRenderer.h"
#include "render/TextFit.h"

TEST(TextFitTest, WrappedLinesFitAndKeepEveryWord)
{
    FixedWidthFonts fonts;
    struct Case {
        float scale, width;
        std::string text;
    };
    const std::vector<Case> cases{
        {1.0f, 100.0f, "Upgraded to Level 1 : Max Health +10"},
        {2.25f, 300.0f, "Upgraded to Level 1 : Max Health +10"},
        {1.0f, 40.0f, "Averyveryverylongwordwithoutblanks and more"},
        {1.0f, 500.0f, "short"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text + " at " + std::to_string(c.width));
        fonts.setScale(c.scale);
        const std::vector<std::string> lines = TextFit::wrap(fonts, c.text, c.width);
        std::string joined;
        for (const std::string& line : lines) {
            EXPECT_LE(TextFit::drawnWidth(fonts, line), c.width) << line;
            joined += line;
        }
        std::string letters = c.text;
        letters.erase(std::remove(letters.begin(), letters.end(), ' '), letters.end());
        joined.erase(std::remove(joined.begin(), joined.end(), ' '), joined.end());
        EXPECT_EQ(joined, letters);
    }
}

TEST(TextFitTest, ElidingAndShrinking)
{
    FixedWidthFonts fonts;
    EXPECT_EQ(TextFit::elide(fonts, "short", 200.0f), "short");
    const std::string cut = TextFit::elide(fonts, "joy1_axis2_minus, mwheeldown", 100.0f);
    EXPECT_LE(TextFit::drawnWidth(fonts, cut), 100.0f);
    EXPECT_EQ(cut.substr(cut.size() - 3), "...");
    EXPECT_EQ(cut.substr(0, 4), "joy1");
    // The scale is lowered just enough, never below the smallest allowed.
    const float scale = TextFit::fittingScale(fonts, "abcdefghij", 80.0f, 1.0f, 0.5f);
    EXPECT_LT(scale, 1.0f);
    fonts.setScale(scale);
    EXPECT_LE(TextFit::drawnWidth(fonts, "abcdefghij"), 80.0f);
    fonts.setScale(1.0f);
    EXPECT_FLOAT_EQ(TextFit::fittingScale(fonts, std::string(100, 'x'), 80.0f, 1.0f, 0.5f), 0.5f);
    EXPECT_FLOAT_EQ(fonts.getScale(), 1.0f);
}
