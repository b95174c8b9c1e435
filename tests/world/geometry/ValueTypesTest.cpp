#include <gtest/gtest.h>

#include "world/geometry/ColourCycler.h"
#include "world/geometry/Dimension.h"
#include "world/geometry/Quad.h"
#include "world/geometry/RGBAColour.h"
#include "world/geometry/TexCoord.h"
#include "world/geometry/Vector.h"

// Each reader keeps its value unless the text holds as many numbers as it
// needs: a vector two or three, a size two or more, a colour exactly four,
// a texture coordinate exactly two. Written back, w never shows.
TEST(ValueText, ReadersTakeOnlyTheTokensTheyNeed)
{
    struct Case {
        const char* text;
        const char *vector, *dimension, *colour, *texCoord;
    };
    const Case cases[] = {
        {"5", "1,2,7", "1,2,3", "1,2,3,4", "0.5,0.25"},
        {"3,4", "3,4,7", "3,4,3", "1,2,3,4", "3,4"},
        {"10,20,30", "10,20,30", "10,20,30", "1,2,3,4", "0.5,0.25"},
        {"3,4,5,6", "3,4,5", "3,4,5", "3,4,5,6", "0.5,0.25"},
        {"10,20,30,40,50", "10,20,30", "10,20,30", "1,2,3,4", "0.5,0.25"},
        {",,8,,9,", "8,9,7", "8,9,3", "1,2,3,4", "8,9"},
        {"abc,2", "0,2,7", "0,2,3", "1,2,3,4", "0,2"},
        {"300,-5,0,0", "300,-5,0", "300,-5,0", "300,-5,0,0", "0.5,0.25"},
        {"0.1,1234567,-2.5", "0.1,1.23457e+06,-2.5", "0.1,1.23457e+06,-2.5", "1,2,3,4", "0.5,0.25"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Vector v(1, 2, 7, 9);
        Dimension d(1, 2, 3);
        RGBAColour colour(1, 2, 3, 4);
        TexCoord t(0.5f, 0.25f);
        v.fromString(c.text);
        d.fromString(c.text);
        colour.fromString(c.text);
        t.fromString(c.text);
        EXPECT_EQ(v.toString(), c.vector);
        EXPECT_EQ(d.toString(), c.dimension);
        EXPECT_EQ(colour.toString(), c.colour);
        EXPECT_EQ(t.toString(), c.texCoord);
    }

    Dimension screen;
    screen.fromStringWxH("640 x 480");
    EXPECT_EQ(screen.toStringWxH(), "640 x 480");
    screen.fromStringWxH("800x600");
    EXPECT_EQ(screen.toStringWxH(), "800 x 600");
    screen.fromStringWxH("1024");
    EXPECT_EQ(screen.toStringWxH(), "800 x 600");
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
