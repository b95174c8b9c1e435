#include <gtest/gtest.h>

#include <tinyxml.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "world/gamebody/GameBody.h"
#include "world/geometry/RGBAColour.h"
#include "world/geometry/TexCoord.h"
#include "world/level/LevelFixture.h"
#include "world/quadtree/QuadTree.h"

class LevelLoaderTest : public LevelFixture {
protected:
    LevelLoaderTest()
    {
        entities.addPrototype(std::make_unique<GameBody>());
        entities.setFallbackFactory(game.getBodyFactory());
    }
    // The one body `p` describes, read the way a level file's are.
    static std::unique_ptr<Body> loadOne(LevelLoader& with, const std::string& p)
    {
        TiXmlDocument doc;
        doc.Parse(level(p).c_str());
        return with.loadBody(doc.RootElement()->FirstChildElement("Objects")->FirstChildElement("P"), false);
    }
    // Knows the plain game body besides the game's own types.
    BodyFactory entities;
    LevelLoader entityLoader{game, entities};
};

TEST_F(LevelLoaderTest, PathRuleAndUnreadableLevels)
{
    EXPECT_EQ(LevelLoader::levelPath("test"), "maps/test.xml");
    EXPECT_EQ(LevelLoader::levelPath("test.xml"), "maps/test.xml");
    EXPECT_EQ(LevelLoader::levelPath("episode1/start"), "maps/episode1\\start.xml");
    EXPECT_EQ(LevelLoader::levelPath("a/b/c.xml"), "maps/a\\b\\c.xml");
    EXPECT_EQ(LevelLoader::levelPath("old.xml.bak"), "maps/old.xml.bak") << ".xml anywhere: no second suffix";
    EXPECT_EQ(LevelLoader::levelPath(""), "maps/.xml");
    EXPECT_EQ(LevelLoader::resourcePath("maps/episode1\\start.xml"), "maps/episode1/start.xml");
    std::string out = captured([&] { EXPECT_FALSE(loader.loadLevelFile("missing", game.getQuadTree())); });
    EXPECT_NE(out.find("Could not load level file: maps/missing.xml"), std::string::npos);
    dir.write("maps/garbage.xml", "<level><Objects><P type=");
    out = captured([&] { EXPECT_FALSE(loader.loadLevelFile("garbage", game.getQuadTree())); });
    EXPECT_NE(out.find("Could not load level file: maps/garbage.xml"), std::string::npos);
    dir.write("maps/empty.xml", "");
    EXPECT_FALSE(loader.loadLevelFile("empty", game.getQuadTree()));
    EXPECT_TRUE(game.getBodies().empty());

    // A root without "Objects" is an empty level, not an error.
    dir.write("maps/bare.xml", "<level/>");
    EXPECT_TRUE(loader.loadLevelFile("bare", game.getQuadTree()));

    // Levels in sub-folders load through both.
    dir.write("maps/episode1/start.xml", level(body("default", "floor", "mass=\"0\"", rect(0, 0, 64, 16))));
    EXPECT_TRUE(loader.loadLevelFile("episode1/start", game.getQuadTree()));
    EXPECT_NE(find("floor"), nullptr);
}

TEST_F(LevelLoaderTest, ParamsAreReadAndMissingOnesKeepDefaults)
{
    // Every parameter a level sets, in one line so a swapped pair shows.
    const auto params = [](const Body& b) {
        std::ostringstream s;
        s << b.id << " targets=" << b.targets << " solid=" << b.solid << " entity=" << b.entity
          << " outlined=" << b.outlined << " outline=" << b.outlineColour.toString() << "/" << b.outlinewidth
          << " texture=" << b.texture << "/" << b.textured << " tex=" << b.texhscale << "," << b.texhshift << ","
          << b.texvscale << "," << b.texvshift << "," << b.texrotate << " visible=" << b.visible
          << " z-shift=" << b.zShift << " mass=" << b.mass << "/" << b.invMass;
        return s.str();
    };
    const struct {
        std::string xml;
        const char* want;
    } cases[] = {
        // The reverse of the written order, with a name the loader does not know.
        {body("default", "slab",
              "mass=\"4\" z-shift=\"0.3\" visible=\"false\" textured=\"true\" texture=\"data/images/x.png\" "
              "odd=\"1\" texrotate=\"45\" texvshift=\"0.25\" texvscale=\"3\" texhshift=\"0.5\" texhscale=\"2\" "
              "outlinewidth=\"3\" outlinecolour=\"1,2,3,4\" outlined=\"false\" entity=\"true\" solid=\"false\" "
              "targets=\"a,b\"",
              rect(0, 0, 10, 10)),
         "slab targets=a,b solid=0 entity=1 outlined=0 outline=1,2,3,4/3 texture=data/images/x.png/1 "
         "tex=2,0.5,3,0.25,45 visible=0 z-shift=0.3 mass=4/0.25"},
        // Present but empty values read as numbers 0, flags false and empty text.
        {body("default", "",
              "solid=\"\" visible=\"\" mass=\"\" outlinewidth=\"\" texhscale=\"\" outlinecolour=\"9,9\"",
              rect(0, 0, 10, 10)),
         " targets= solid=0 entity=0 outlined=1 outline=0,0,0,0/0 texture=/0 tex=0,0,1,0,0 visible=0 z-shift=0 "
         "mass=0/0"},
        // Missing attributes keep the defaults; only "true" makes an entity.
        {"<P type=\"default\"><params/>" + rect(0, 0, 10, 10) + "</P>",
         "generic targets= solid=1 entity=0 outlined=1 outline=0,0,0,0/1 texture=/0 tex=1,0,1,0,0 visible=1 "
         "z-shift=0 mass=100/0.01"},
    };
    for (const auto& c : cases) {
        auto b = loadOne(loader, c.xml);
        ASSERT_NE(b, nullptr) << c.want;
        EXPECT_EQ(params(*b), c.want);
        // Centred on its vertices.
        EXPECT_TRUE(b->loaded);
        EXPECT_FLOAT_EQ(b->pos.x, 5.0f);
        EXPECT_FLOAT_EQ(b->pos.y, 5.0f);
        EXPECT_TRUE(b->renderpos.equals(b->pos));
        EXPECT_FLOAT_EQ(b->localVertices[0].x, -5.0f);
        EXPECT_FLOAT_EQ(b->bounds->maxX, 10.0f);
    }
}

TEST_F(LevelLoaderTest, MassThresholdsTheActiveListAndEntityNumbers)
{
    writeLevel("masses", body("default", "zero", "mass=\"0\"", rect(0, 0, 8, 8)) +
                             body("spawnpoint", "first", "entity=\"true\" mass=\"0\"", rect(10, 0, 18, 8)) +
                             body("default", "tiny", "mass=\"0.00000005\"", rect(20, 0, 28, 8)) +
                             body("default", "light", "mass=\"0.5\"", rect(30, 0, 38, 8)) +
                             body("default", "negative", "mass=\"-5\"", rect(40, 0, 48, 8)) +
                             body("spawnpoint", "second", "entity=\"true\"", rect(50, 0, 58, 8)));
    ASSERT_TRUE(loader.loadLevelFile("masses", game.getQuadTree()));
    const auto& active = game.getActiveBodies();
    const auto isActive = [&](const Body* b) { return std::count(active.begin(), active.end(), b) == 1; };
    for (const char* id : {"zero", "tiny", "negative"}) {
        Body* b = find(id);
        ASSERT_NE(b, nullptr) << id;
        EXPECT_EQ(b->mass, 0.0f) << id;
        EXPECT_EQ(b->invMass, 0.0f) << id;
        EXPECT_FALSE(isActive(b)) << id;
    }
    EXPECT_FLOAT_EQ(find("light")->invMass, 2.0f);
    EXPECT_TRUE(isActive(find("light")));
    EXPECT_TRUE(isActive(find("first"))) << "entities are active whatever their mass";
    // Only entities are numbered, in list order.
    EXPECT_EQ(find("light")->autoid, 0);
    EXPECT_EQ(find("first")->autoid, 2);
    EXPECT_EQ(find("second")->autoid, 3);
    EXPECT_EQ(game.getNextBodyId(), 4);
}

TEST_F(LevelLoaderTest, VerticesAndTextureCoordinates)
{
    auto b = loadOne(loader, body("default", "tri", "",
                                  "<verts><v origin=\"0,0\" texcoords=\"2,3\"/><v origin=\"8,0\"/></verts>"
                                  "<verts><v origin=\"8,8\" texcoords=\"4,5\"/></verts>"));
    ASSERT_NE(b, nullptr);
    ASSERT_EQ(b->worldVertices.size(), 3u) << "several verts elements are read in order";
    ASSERT_EQ(b->texCoords.size(), 3u) << "texture coordinates stay parallel to the vertices";
    EXPECT_FLOAT_EQ(b->texCoords[0].u, 2.0f);
    EXPECT_FLOAT_EQ(b->texCoords[1].u, 0.0f);
    EXPECT_FLOAT_EQ(b->texCoords[2].v, 5.0f);

    // Entity classes shift the coordinates so the smallest u and v are 0.
    auto g = loadOne(entityLoader, body("gamebody", "tri2", "",
                                        "<verts><v origin=\"0,0\" texcoords=\"2,3\"/><v origin=\"8,0\" "
                                        "texcoords=\"3,7\"/><v origin=\"8,8\" texcoords=\"4,5\"/></verts>"));
    ASSERT_NE(g, nullptr);
    EXPECT_FLOAT_EQ(g->texCoords[0].u, 0.0f);
    EXPECT_FLOAT_EQ(g->texCoords[0].v, 0.0f);
    EXPECT_FLOAT_EQ(g->texCoords[1].v, 4.0f);
    EXPECT_FLOAT_EQ(g->texCoords[2].u, 2.0f);
}

// An origin reads its first three items, comma-separated with empty ones
// skipped, each as atof would and a non-finite one as 0; fewer than two leave
// it at 0,0. Colours and texture coordinates come out, to the bit, as their
// fromString makes them.
TEST_F(LevelLoaderTest, ListTextReadsAsTheValueReadersDo)
{
    const struct {
        const char* text;
        float x, y, z;
    } cases[] = {
        {"10,20,30,40", 10, 20, 30},       {" 1, 2 ,3 ,4 ", 1, 2, 3},  {",,5,,6,7,8,", 5, 6, 7},
        {"1,2,3", 1, 2, 3},                {"1,2,3,4,5", 1, 2, 3},     {"7,8", 7, 8, 0},
        {"-0,9", 0, 9, 0},                 {"3", 0, 0, 0},             {"", 0, 0, 0},
        {",,,", 0, 0, 0},                  {"x,1,2,3", 0, 1, 2},       {"2e1x,3.5e", 20, 3.5f, 0},
        {"-1.5e1,-0,0x10,.5", -15, 0, 16}, {"inf,1,2,3", 0, 1, 2},     {"1;2;3;4", 0, 0, 0},
    };
    const auto same = [](float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0; };
    const auto sameColour = [&](const RGBAColour& a, const RGBAColour& b) {
        return same(a.r, b.r) && same(a.g, b.g) && same(a.b, b.b) && same(a.a, b.a);
    };
    const RGBAColour defaultOutline = game.getBodyFactory()->create("default")->outlineColour;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const std::string text = c.text;
        const std::string verts = "<verts><v origin=\"" + text + "\" colour=\"" + text + "\" texcoords=\"" + text +
                                  "\"/><v origin=\"200,200\"/><v origin=\"-200,200\"/></verts>";
        auto b = loadOne(loader, body("default", "b", "outlinecolour=\"" + text + "\"", verts));
        ASSERT_NE(b, nullptr);
        EXPECT_FLOAT_EQ(b->worldVertices[0].x, c.x);
        EXPECT_FLOAT_EQ(b->worldVertices[0].y, c.y);
        EXPECT_FLOAT_EQ(b->worldVertices[0].z, c.z);

        RGBAColour colour(255.0f, 255.0f, 255.0f, 255.0f), outline = defaultOutline;
        colour.fromString(text);
        outline.fromString(text);
        TexCoord coord;
        coord.fromString(text);
        EXPECT_TRUE(sameColour(b->colours[0], colour)) << "colour";
        EXPECT_TRUE(sameColour(b->outlineColour, outline)) << "outline";
        ASSERT_EQ(b->texCoords.size(), 3u);
        EXPECT_TRUE(same(b->texCoords[0].u, coord.u) && same(b->texCoords[0].v, coord.v)) << "texcoords";
    }
}

TEST_F(LevelLoaderTest, BrokenBodiesAreReportedAndSkipped)
{
    std::string many = "<verts>";
    for (int i = 0; i < 5000; ++i)
        many += "<v origin=\"" + std::to_string(std::cos(i * 0.001) * 100) + "," +
                std::to_string(std::sin(i * 0.001) * 100) + "\" colour=\"1,1,1,1\"/>";
    many += "</verts>";
    writeLevel("broken",
               body("default", "two", "", "<verts><v origin=\"0,0\"/><v origin=\"5,5\"/></verts>") +
                   body("default", "line", "", "<verts><v origin=\"0,0\"/><v origin=\"5,5\"/><v origin=\"10,10\"/></verts>") +
                   body("default", "far", "", rect(0, 0, 1e30f, 10)) +
                   body("default", "nan", "", "<verts><v origin=\"nan,0\"/><v origin=\"5,5\"/><v origin=\"0,9\"/></verts>") +
                   body("default", "many", "", many) + body("default", "none", "", "") +
                   "<Unknown><P type=\"default\"/></Unknown>\n" + body("default", "good", "", rect(0, 0, 8, 8)));
    bool ok = false;
    const std::string out = captured([&] { ok = loader.loadLevelFile("broken", game.getQuadTree()); });
    ASSERT_TRUE(ok);
    std::vector<std::string> ids;
    for (Body* b : game.getBodies())
        ids.push_back(b->id);
    EXPECT_EQ(ids, (std::vector<std::string>{"nan", "good"})) << out;
    EXPECT_EQ(find("nan")->worldVertices[0].x, 0.0f) << "a non-number reads as 0";
    for (const char* id : {"two", "line", "far", "many", "none"})
        EXPECT_NE(out.find(std::string("Skipping body ") + id), std::string::npos) << id << "\n" << out;
}

TEST_F(LevelLoaderTest, QuadtreeSquareIncludesTheOrigin)
{
    writeLevel("faraway", body("default", "a", "", rect(1000, 2000, 1100, 2100)) +
                              body("default", "b", "", rect(1500, 2050, 1600, 2400)));
    ASSERT_TRUE(loader.loadLevelFile("faraway", game.getQuadTree()));
    const QuadTree& tree = game.getQuadTree();
    // min = (0, 0), max = (1600, 2400): size 2400 + 16 around (800, 1200).
    EXPECT_FLOAT_EQ(tree.getCentre().x, 800.0f);
    EXPECT_FLOAT_EQ(tree.getCentre().y, 1200.0f);
    EXPECT_FLOAT_EQ(tree.getSize(), 2416.0f);
    EXPECT_EQ(tree.getChildren().size(), 4u);
    EXPECT_EQ(tree.countAllBodies(), 2);
}

namespace {
// Records the assembly hooks, and what its targets were at each.
class HookBody : public GameBody {
public:
    explicit HookBody(std::vector<std::string>* journal = nullptr) : log(journal) { type = "hook"; }
    std::unique_ptr<Body> clone() const override { return std::make_unique<HookBody>(log); }
    void beforeTargets() override { note("before"); }
    void afterTargets() override { note("after"); }
    void restored() override { note("restored"); }
    void levelStart() override { note("start"); }
    void afterAssembly() override { note("assembled"); }

private:
    void note(const std::string& hook)
    {
        if (log)
            log->push_back(id + ":" + hook + ":" + std::to_string(targetList.size()));
    }
    std::vector<std::string>* log;
};
}

TEST_F(LevelLoaderTest, SharedIdsAllBecomeTargetsAndHooksRunInOrder)
{
    std::vector<std::string> journal;
    BodyFactory factory;
    factory.addPrototype(std::make_unique<HookBody>(&journal));
    factory.setFallbackFactory(game.getBodyFactory());
    LevelLoader hookLoader(game, factory);
    writeLevel("doors", body("door", "gate", "entity=\"true\"", rect(0, 0, 8, 32)) +
                            body("hook", "switch", "entity=\"true\" targets=\",gate,,nobody,switch\"",
                                 rect(20, 0, 28, 8)) +
                            body("door", "gate", "entity=\"true\"", rect(40, 0, 48, 32)));
    ASSERT_TRUE(hookLoader.loadLevelFile("doors", game.getQuadTree()));
    Body* sw = find("switch");
    ASSERT_NE(sw, nullptr);
    ASSERT_EQ(sw->targetList.size(), 3u);
    EXPECT_EQ(sw->targetList[0]->id, "gate");
    EXPECT_EQ(sw->targetList[1]->id, "gate");
    EXPECT_NE(sw->targetList[0], sw->targetList[1]);
    EXPECT_EQ(sw->targetList[2], sw) << "a body may target its own id";
    EXPECT_EQ(journal, (std::vector<std::string>{"switch:before:0", "switch:after:3", "switch:start:3",
                                                 "switch:assembled:3"}));
}

TEST_F(LevelLoaderTest, LevelDebugDumpsTheWorldBetweenTwoRules)
{
    const std::string rule = "=====================\n";
    writeLevel("dump", body("default", "a", "", rect(0, 0, 8, 8)) + body("default", "b", "", rect(9, 0, 17, 8)));
    EXPECT_EQ(captured([&] { loader.loadLevelFile("dump", game.getQuadTree()); }).find(rule), std::string::npos);

    game.unloadLevel();
    createVar("load_leveldebug", "1", "");
    const std::string out = captured([&] { loader.loadLevelFile("dump", game.getQuadTree()); });
    const size_t first = out.find(rule), last = out.rfind(rule);
    ASSERT_LT(first, last) << out;
    for (const char* id : {" id: a", " id: b"})
        EXPECT_TRUE(out.find(id) > first && out.find(id) < last) << id;
}

TEST_F(LevelLoaderTest, AttributesAndWrittenObjectsRestoreEntitiesWithoutTheLevelCopies)
{
    writeLevel("saved", body("default", "floor", "mass=\"0\"", rect(-100, -16, 100, 0)) +
                            body("gamebody", "keeper", "entity=\"true\" mass=\"10\" outlinewidth=\"2\"",
                                 rect(0, 0, 16, 16) +
                                     "<attributes><a name=\"health\" value=\"10\"/><a name=\"lives\" value=\"2\"/>"
                                     "</attributes><attributes><a name=\"health\" value=\"50\"/>"
                                     "<a name=\"note\" value=\"x\"/><a/></attributes>") +
                            body("gamebody", "victim", "entity=\"true\"", rect(20, 0, 36, 16)) +
                            body("gamebody", "minion", "entity=\"true\"", rect(40, 0, 56, 16)));
    ASSERT_TRUE(entityLoader.loadLevelFile("saved", game.getQuadTree()));
    auto* keeper = dynamic_cast<GameBody*>(find("keeper"));
    ASSERT_NE(keeper, nullptr);
    // Attributes from every group, a later pair replacing an earlier one, read by the body.
    EXPECT_EQ(keeper->attributes.at("health"), "50");
    EXPECT_EQ(keeper->health, 50);
    EXPECT_EQ(keeper->maxhealth, 50);
    EXPECT_EQ(keeper->initialhealth, 50);
    EXPECT_EQ(keeper->numlives, 2);
    keeper->adopt(dynamic_cast<GameBody*>(find("minion")));
    find("victim")->cancleanup = true;
    game.moveBodies(0.0f);

    // Saved state and ids are the save round trip's; here, what the loader itself writes and links.
    TiXmlElement save("save");
    LevelLoader::writeObjects(&save, game.getBodies());
    const TiXmlElement* objects = save.FirstChildElement("Objects");
    ASSERT_NE(objects, nullptr);
    const TiXmlElement* params = objects->FirstChildElement("P")->FirstChildElement("params");
    EXPECT_STREQ(params->Attribute("outlinewidth"), "2");
    EXPECT_STREQ(params->Attribute("mass"), "10.000000");
    EXPECT_STREQ(params->Attribute("entity"), "true");

    game.unloadLevel();
    ASSERT_TRUE(entityLoader.loadSavedLevel("saved", objects, game.getQuadTree()));
    EXPECT_EQ(game.getBodies().size(), 3u) << "floor, keeper and minion; the victim stays dead";
    auto* restored = dynamic_cast<GameBody*>(find("keeper"));
    auto* restoredMinion = dynamic_cast<GameBody*>(find("minion"));
    ASSERT_TRUE(restored && restoredMinion);
    EXPECT_EQ(restored->attributes.at("note"), "x");
    EXPECT_EQ(restoredMinion->getOwner(), restored);
    EXPECT_FLOAT_EQ(restored->invMass, 0.1f);
}
