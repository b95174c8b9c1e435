#include <gtest/gtest.h>

#include "world/geometry/ColourCycler.h"
#include "world/geometry/Dimension.h"
#include "world/geometry/Quad.h"
#include "world/geometry/RGBAColour.h"
#include "world/geometry/TexCoord.h"
#include "world/geometry/Vector.h"

TEST(VectorText, TokenCountDecidesWhatIsSet)
{
    Vector v(1, 2, 7);
    v.fromString("5");
    EXPECT_TRUE(v.equals(Vector(1, 2, 7)));
    v.fromString("3,4");
    EXPECT_TRUE(v.equals(Vector(3, 4, 7)));
    v.fromString("3,4,5,6");
    EXPECT_TRUE(v.equals(Vector(3, 4, 5)));
    v.fromString(",,8,,9,");
    EXPECT_FLOAT_EQ(v.x, 8);
    EXPECT_FLOAT_EQ(v.y, 9);
    v.fromString("abc,2");
    EXPECT_FLOAT_EQ(v.x, 0);
}

TEST(VectorText, WritesThreeComponentsWithSixDigits)
{
    Vector v(1, 2, 3, 4);
    EXPECT_EQ(v.toString(), "1,2,3");
    Vector p(0.1f, 1234567.0f, -2.5f);
    EXPECT_EQ(p.toString(), "0.1,1.23457e+06,-2.5");
}

// The text is a cache of the owner's own numbers: copies never share or
// carry it, and it follows every change.
TEST(VectorText, CopiesWriteTheirOwnNumbers)
{
    Vector a(1, 2, 3);
    EXPECT_EQ(a.toString(), "1,2,3");
    Vector b(a);
    b.x = 7;
    EXPECT_EQ(b.toString(), "7,2,3");
    EXPECT_EQ(a.toString(), "1,2,3");
    a = Vector(4, 5, 6);
    EXPECT_EQ(a.toString(), "4,5,6");
    const std::string& kept = b.toString();
    b.y = 8;
    b.toString();
    EXPECT_EQ(kept, "7,8,3");
}

TEST(VectorMath, AssignKeepsWAndNormaliseOfZeroStaysFinite)
{
    Vector a(0, 0, 0, 9);
    a.assign(Vector(1, 2, 3, 4));
    EXPECT_FLOAT_EQ(a.w, 9);
    Vector zero;
    zero.normalise();
    EXPECT_TRUE(zero.isZero());
    Vector v(3, 4);
    v.normalise();
    EXPECT_FLOAT_EQ(v.x, 0.6f);
    EXPECT_FLOAT_EQ(Vector(0, 0).distance2D(Vector(3, 4, 100)), 5.0f);
}

TEST(ColourText, NeedsExactlyFourTokens)
{
    RGBAColour c(1, 2, 3, 4);
    c.fromString("10,20,30");
    EXPECT_EQ(c.toString(), "1,2,3,4");
    c.fromString("10,20,30,40,50");
    EXPECT_EQ(c.toString(), "1,2,3,4");
    c.fromString("255,80,5,255");
    EXPECT_EQ(c.toString(), "255,80,5,255");
    c.fromString("300,-5,0,0");
    EXPECT_FLOAT_EQ(c.r, 300);  // no clamping
}

TEST(DimensionText, BothForms)
{
    Dimension d;
    d.fromStringWxH("640 x 480");
    EXPECT_FLOAT_EQ(d.width, 640);
    EXPECT_FLOAT_EQ(d.height, 480);
    d.fromStringWxH("800x600");
    EXPECT_FLOAT_EQ(d.width, 800);
    EXPECT_FLOAT_EQ(d.height, 600);
    EXPECT_EQ(d.toStringWxH(), "800 x 600");
    d.fromString("1");
    EXPECT_FLOAT_EQ(d.width, 800);
    d.fromString("1,2,3");
    EXPECT_EQ(d.toString(), "1,2,3");
}

TEST(TexCoordText, NeedsExactlyTwoTokens)
{
    TexCoord t(0.5f, 0.25f);
    t.fromString("1");
    t.fromString("1,2,3");
    EXPECT_EQ(t.toString(), "0.5,0.25");
    t.fromString("1,2");
    EXPECT_EQ(t.toString(), "1,2");
}

TEST(ColourCyclerTest, TurnsOnlyWhenOvershooting)
{
    ColourCycler c;
    c.setMin(0);
    c.setMax(1);
    c.setSpeed(2);
    c.setCurrent(0.9f);
    c.setRising(true);
    c.update(0.1f);
    EXPECT_FLOAT_EQ(c.getCurrent(), 1.0f);
    EXPECT_FALSE(c.rising);
    c.setCurrent(0.5f);
    c.update(0.25f);  // lands exactly on the bound: keeps falling
    EXPECT_FLOAT_EQ(c.getCurrent(), 0.0f);
    EXPECT_FALSE(c.rising);
    c.update(0.1f);
    EXPECT_FLOAT_EQ(c.getCurrent(), 0.0f);
    EXPECT_TRUE(c.rising);
}

TEST(QuadTest, HoldsAtMostFourCorners)
{
    Quad q;
    for (int i = 0; i < 6; ++i)
        q.addCorner(i, 0, 0, 1, 1, 1, 1, 0, 0);
    ASSERT_EQ(q.corners.size(), 4u);
    q.setCorner(7, 0, 0, 0, 0, 0, 0, 0);  // out of range is ignored
    q.setCorner(1, 5, 6, 7, 1, 2, 3, 4);
    EXPECT_FLOAT_EQ(q.corners[1]->y, 6);
    EXPECT_FLOAT_EQ(q.corners[1]->a, 4);
}
