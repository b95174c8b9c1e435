// The loader reads colours, texture coordinates and params where they stand
// in the parsed file; whatever the text, it must come out as the string
// readers (fromString) make of it.
#include <gtest/gtest.h>

#include <tinyxml.h>

#include <cstring>
#include <string>

#include "world/geometry/RGBAColour.h"
#include "world/geometry/TexCoord.h"
#include "world/level/LevelFixture.h"

namespace {
bool sameBits(float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0; }

const TiXmlElement* firstBody(const TiXmlDocument& doc)
{
    return doc.RootElement()->FirstChildElement("Objects")->FirstChildElement("P");
}
}

class LevelLoaderTextTest : public LevelFixture {};

TEST_F(LevelLoaderTextTest, ColoursAndTexCoordsReadAsFromStringDoes)
{
    const std::string texts[] = {"10,20,30,40", " 1, 2 ,3 ,4 ", ",,5,,6,7,8,", "1,2,3",   "1,2,3,4,5", "",
                                 ",,,",         "x,1,2,3",      "1e2,-0,0x10,.5", "7,8", "-0,9", "inf,1,2,3",
                                 "1;2;3;4",     "12abc,3.5e"};
    const RGBAColour defaultOutline = game.getBodyFactory()->create("default")->outlineColour;
    for (const std::string& text : texts) {
        const std::string verts = "<verts><v origin=\"0,0\" colour=\"" + text + "\" texcoords=\"" + text +
                                  "\"/><v origin=\"8,0\"/><v origin=\"8,8\"/></verts>";
        TiXmlDocument doc;
        doc.Parse(level(body("default", "b", "outlinecolour=\"" + text + "\"", verts)).c_str());
        auto b = loader.loadBody(firstBody(doc), false);
        ASSERT_NE(b, nullptr) << text;

        RGBAColour colour(255.0f, 255.0f, 255.0f, 255.0f);
        colour.fromString(text);
        RGBAColour outline = defaultOutline;
        outline.fromString(text);
        TexCoord coord;
        coord.fromString(text);
        const RGBAColour& c = b->colours[0];
        const RGBAColour& o = b->outlineColour;
        EXPECT_TRUE(sameBits(c.r, colour.r) && sameBits(c.g, colour.g) && sameBits(c.b, colour.b) &&
                    sameBits(c.a, colour.a))
            << "colour \"" << text << "\"";
        EXPECT_TRUE(sameBits(o.r, outline.r) && sameBits(o.g, outline.g) && sameBits(o.b, outline.b) &&
                    sameBits(o.a, outline.a))
            << "outline \"" << text << "\"";
        ASSERT_EQ(b->texCoords.size(), 3u) << text;
        EXPECT_TRUE(sameBits(b->texCoords[0].u, coord.u) && sameBits(b->texCoords[0].v, coord.v))
            << "texcoords \"" << text << "\"";
    }
}

TEST_F(LevelLoaderTextTest, ParamsAreFoundInAnyOrder)
{
    // The reverse of the written order, with a name the loader does not know.
    TiXmlDocument doc;
    doc.Parse(level(body("default", "p",
                         "mass=\"4\" z-shift=\"0.5\" visible=\"false\" textured=\"true\" texture=\"t.png\" odd=\"1\" "
                         "texrotate=\"9\" texvshift=\"8\" texvscale=\"7\" texhshift=\"6\" texhscale=\"5\" "
                         "outlinewidth=\"3\" outlinecolour=\"1,2,3,4\" outlined=\"true\" entity=\"true\" "
                         "solid=\"false\" targets=\"x\"",
                         rect(0, 0, 4, 4)))
                  .c_str());
    auto b = loader.loadBody(firstBody(doc), false);
    ASSERT_NE(b, nullptr);
    EXPECT_FLOAT_EQ(b->mass, 4.0f);
    EXPECT_FLOAT_EQ(b->zShift, 0.5f);
    EXPECT_FALSE(b->visible);
    EXPECT_TRUE(b->textured);
    EXPECT_EQ(b->texture, "t.png");
    EXPECT_FLOAT_EQ(b->texrotate, 9.0f);
    EXPECT_FLOAT_EQ(b->texvshift, 8.0f);
    EXPECT_FLOAT_EQ(b->texvscale, 7.0f);
    EXPECT_FLOAT_EQ(b->texhshift, 6.0f);
    EXPECT_FLOAT_EQ(b->texhscale, 5.0f);
    EXPECT_EQ(b->outlinewidth, 3);
    EXPECT_EQ(b->outlineColour, RGBAColour(1, 2, 3, 4));
    EXPECT_TRUE(b->outlined);
    EXPECT_TRUE(b->entity);
    EXPECT_FALSE(b->solid);
    EXPECT_EQ(b->targets, "x");
}
