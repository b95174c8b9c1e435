// The level checker: one small broken level per rule, each of which must be
// reported once, on the right line, naming the body; a clean level and the
// schema the rules rest on.
#include "TestPaths.h"
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "world/level/GameBodyFactory.h"
#include "world/level/LevelChecker.h"
#include "world/level/LevelFixture.h"
#include "world/level/LevelSchema.h"
#include "world/level/TiledProject.h"

namespace {
std::string square(float x, float y, float size = 16.0f)
{
    auto v = [](float vx, float vy) {
        return "<v origin=\"" + std::to_string(vx) + "," + std::to_string(vy) + "\" colour=\"255,255,255,255\"/>";
    };
    return "<verts>" + v(x, y) + v(x + size, y) + v(x + size, y + size) + v(x, y + size) + "</verts>";
}

std::string object(const std::string& type, const std::string& id, const std::string& inner,
                   const std::string& params = "entity=\"true\"")
{
    return "<P type=\"" + type + "\" idname=\"" + id + "\">\n<params " + params + "/>\n" + inner + "\n</P>\n";
}

std::string attribute(const std::string& name, const std::string& value)
{
    return "<attributes><a name=\"" + name + "\" value=\"" + value + "\"/></attributes>";
}

// Line 1 is the root; bodies follow, each starting on its own line.
std::string levelOf(const std::string& bodies)
{
    return "<level><Objects>\n" +
           object("default", "floor", square(-100, -100, 400), "solid=\"true\" entity=\"false\"") +
           object("spawnpoint", "start", square(0, 0)) +
           object("levelchange", "exit", square(200, 0) + attribute("leveltarget", "next")) + bodies +
           "</Objects></level>\n";
}
// The line of the first body after the three of every test level.
const int firstExtraLine = 2 + 3 * 4;
}

class LevelCheckerTest : public LevelFixture {
protected:
    void SetUp() override
    {
        LevelFixture::SetUp();
        dir.write("maps/next.xml", "<level><Objects><P type=\"spawnpoint\" idname=\"door\"/></Objects></level>");
        dir.write("data/images/ok.png", "png");
        dir.write("data/sky/day.xml", "<sky/>");
        dir.write("data/music/harbour.ogg", "OggS");
        dir.write("data/sounds/sounds.xml", "<sounds><sound id=\"0\" path=\"data/sounds/hum.wav\"/></sounds>");
        dir.write("data/particles/particles.xml", "<particles><particle id=\"steam\"/></particles>");
    }

    std::vector<LevelChecker::Problem> check(const std::string& text)
    {
        LevelChecker checker(schema);
        bool readable = true;
        auto problems = checker.checkText(text, readable);
        EXPECT_TRUE(readable);
        return problems;
    }

    LevelSchema schema{*game.getBodyFactory()};
};

TEST_F(LevelCheckerTest, EachRuleReportsItsProblemOnceOnItsLine)
{
    // Lines below the body's first: its params are on the next, its vertices and attributes after.
    const int params = 1, inner = 2;
    const auto with = [](const std::string& type, const std::string& id, const std::string& name,
                         const std::string& value) { return object(type, id, square(40, 0) + attribute(name, value)); };
    const auto withParams = [](const std::string& type, const std::string& id, const std::string& extra) {
        return object(type, id, square(40, 0), "entity=\"true\" " + extra);
    };
    const auto polygon = [](const std::string& id, std::initializer_list<const char*> origins) {
        std::string verts;
        for (const char* origin : origins)
            verts += "<v origin=\"" + std::string(origin) + "\"/>";
        return object("default", id, "<verts>" + verts + "</verts>", "entity=\"false\"");
    };
    struct Case {
        const char* rule;
        std::string bodies;
        int line;
        const char* expected;
    };
    const Case cases[] = {
        {"unknown type", object("Shotgun", "gun", square(40, 0)), 0,
         "body \"gun\" (Shotgun): unknown type \"Shotgun\" (did you mean \"shotgun\"?)"},
        {"misspelt attribute", with("door", "gate", "opnoffset", "0,64"), inner,
         "body \"gate\" (door): unknown attribute \"opnoffset\" (did you mean \"openoffset\"?)"},
        {"attribute of another type", with("door", "gate", "leveltarget", "next"), inner,
         "unknown attribute \"leveltarget\""},
        {"unknown parameter", withParams("door", "gate", "soild=\"true\""), params,
         "unknown parameter \"soild\" (did you mean \"solid\"?)"},
        {"bool value", with("alphadoor", "gate", "startopen", "yes"), inner,
         "attribute \"startopen\" should be bool, not \"yes\""},
        {"int value", with("health", "h", "amount", "lots"), inner,
         "attribute \"amount\" should be int, not \"lots\""},
        {"vector value", with("door", "gate", "openoffset", "64"), inner,
         "attribute \"openoffset\" should be vector, not \"64\""},
        {"param value", withParams("door", "gate", "mass=\"heavy\""), params,
         "parameter \"mass\" should be float, not \"heavy\""},
        {"target names nothing", withParams("switch", "lever", "targets=\"gaet\""), params,
         "body \"lever\" (switch): target \"gaet\" names no body"},
        {"id attribute names nothing", with("blockboss", "boss", "adds1", "nobody"), inner,
         "\"adds1\" names no body: \"nobody\""},
        {"spawned type", with("spawner", "sp", "spawnedtype", "rocketgrunts"), inner,
         "names unknown type \"rocketgrunts\" (did you mean \"rocketgrunt\"?)"},
        {"missing texture", withParams("door", "gate", "texture=\"data/images/no.png\""), params,
         "missing texture \"data/images/no.png\""},
        {"missing switch image", with("switch", "s", "triggeredimage", "x.png"), inner,
         "missing texture \"x.png\""},
        {"missing sound", with("soundbody", "s", "sound", "data/sounds/no.wav"), inner,
         "missing sound \"data/sounds/no.wav\""},
        {"unknown particle effect", with("particlesystembody", "p", "systemid", "stem"), inner,
         "unknown particle effect \"stem\""},
        {"missing sky", with("skyinfo", "s", "skies", "day,nite"), inner, "missing sky \"nite\""},
        {"missing music", with("skyinfo", "s", "music", "sea"), inner, "missing music track \"sea\""},
        {"music outside its folder", with("skyinfo", "s", "music", "../harbour"), inner,
         "missing music track \"../harbour\""},
        {"level change to no level", with("levelchange", "l", "leveltarget", "nxt"), inner,
         "\"leveltarget\" names no level: \"nxt\""},
        {"entry spawn point of the next level",
         object("levelchange", "l",
                square(40, 0) + attribute("leveltarget", "next") + attribute("targetspawn", "dor")),
         inner, "\"targetspawn\" names no spawn point of level \"next\": \"dor\""},
        {"too few vertices", polygon("bit", {"0,0", "1,0"}), 0, "body \"bit\" (default): polygon has 2 vertices"},
        {"degenerate polygon", polygon("line", {"0,0", "5,0", "9,0"}), 0, "polygon is degenerate"},
        {"non-convex polygon", polygon("dent", {"0,0", "10,0", "5,2", "10,10", "0,10"}), 0, "polygon is not convex"},
        {"clockwise polygon", polygon("cw", {"0,0", "0,10", "10,10"}), 0, "polygon winds clockwise"},
        {"bad vertex", polygon("v", {"0,0", "10,0", "10,10", "zero"}), inner,
         "vertex origin \"zero\" is not x,y or x,y,z"},
        {"infinite vertex", polygon("inf", {"0,0", "10,0", "10,10", "1e999,0"}), inner,
         "vertex origin \"1e999,0\" is not a finite number"},
        {"overlapping spawn points", object("spawnpoint", "start2", square(8, 8)), 0,
         "body \"start2\" (spawnpoint): overlaps spawn point \"start\""},
        {"outside the level", object("health", "far", square(900, 0)), 0,
         "body \"far\" (health): lies outside the level"},
        {"beyond loadable coordinates", object("default", "huge", square(2e6f, 0), "entity=\"false\""), 0,
         "lies beyond the coordinates the game can load"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rule);
        const auto problems = check(levelOf(c.bodies));
        ASSERT_EQ(problems.size(), 1u) << (problems.empty() ? "" : problems[0].message);
        EXPECT_NE(problems[0].message.find(c.expected), std::string::npos) << problems[0].message;
        EXPECT_EQ(problems[0].line, firstExtraLine + c.line) << problems[0].message;
    }
}

TEST_F(LevelCheckerTest, LevelWideRules)
{
    const std::string floor = "<level><Objects>\n" + object("default", "floor", square(0, 0, 100), "entity=\"false\"");
    auto problems = check(floor + object("levelchange", "exit", square(10, 10) + attribute("leveltarget", "next")) +
                          "</Objects></level>");
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_NE(problems[0].message.find("no spawn point"), std::string::npos);

    const std::string noExit = floor + object("spawnpoint", "start", square(10, 10)) + "</Objects></level>";
    problems = check(noExit);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_NE(problems[0].message.find("no exit"), std::string::npos);
    // A test room can say it has no way out on purpose.
    EXPECT_TRUE(check("<level noexit=\"true\">" + noExit.substr(7)).empty());
}

TEST_F(LevelCheckerTest, CleanAndUnreadableFilesExitStatusAndFuzzSeeds)
{
    // Every kind of reference, each found.
    const std::string good =
        object("door", "gate", square(40, 0) + attribute("openoffset", "0,64")) +
        object("switch", "lever", square(80, 0) + attribute("triggeredimage", "data/images/ok.png"),
               "entity=\"true\" targets=\"gate\" texture=\"data/images/ok.png\"") +
        object("soundbody", "hum", square(120, 0) + attribute("sound", "data/sounds/hum.wav")) +
        object("particlesystembody", "fx", square(140, 0) + attribute("SYSTEMID", "steam")) +
        object("skyinfo", "skies", square(160, 0) + attribute("skies", "day") + attribute("music", "harbour")) +
        object("levelchange", "exit2", square(180, 0) + attribute("leveltarget", "next") +
                                           attribute("targetspawn", "door"));
    dir.write("clean.xml", levelOf(good));
    dir.write("bad.xml", levelOf(object("Shotgun", "gun", square(40, 0))));
    dir.write("broken.xml", "<level>");
    LevelChecker checker(schema);
    std::FILE* sink = std::tmpfile();
    ASSERT_NE(sink, nullptr);
    EXPECT_EQ(checker.run({"clean.xml"}, sink), 0);
    EXPECT_EQ(checker.run({"clean.xml", "bad.xml"}, sink), 1);
    EXPECT_EQ(checker.run({"bad.xml", "broken.xml"}, sink), 2);
    EXPECT_EQ(checker.run({"missing.xml"}, sink), 2);

    // One line per problem, FILE:LINE: message.
    std::rewind(sink);
    char line[512] = {};
    ASSERT_NE(std::fgets(line, sizeof line, sink), nullptr);
    EXPECT_EQ(std::string(line).rfind("bad.xml:" + std::to_string(firstExtraLine) + ": body \"gun\"", 0), 0u)
        << line;

    // The fuzz seeds, however broken, are checked without harm.
    const std::string corpus = testSourceDir() + "/fuzz/corpus/level_loader";
    std::vector<std::string> seeds;
    for (const std::string& seed : worldtest::filesIn(corpus))
        seeds.push_back(corpus + "/" + seed);
    ASSERT_FALSE(seeds.empty()) << corpus;
    EXPECT_GE(checker.run(seeds, sink), 0);
    std::fclose(sink);
}

TEST_F(LevelCheckerTest, SchemaAndTiledProjectCoverEveryTypeWithTheAttributesItReads)
{
    // Every name some type's code compares against has a kind and help.
    EXPECT_TRUE(schema.undocumentedNames().empty()) << schema.undocumentedNames().front();
    for (const std::string& type : GameBodyFactory::typeNames())
        EXPECT_TRUE(schema.knowsType(type)) << type;
    EXPECT_TRUE(schema.knowsType("default"));

    // Inherited attributes come along; names match without regard to case.
    ASSERT_NE(schema.findAttribute("door", "OpenOffset"), nullptr);
    EXPECT_EQ(schema.findAttribute("door", "openoffset")->kind, LevelSchema::Kind::Vector);
    EXPECT_NE(schema.findAttribute("door", "health"), nullptr);
    EXPECT_NE(schema.findAttribute("door", "glow"), nullptr);
    EXPECT_EQ(schema.findAttribute("jumppad", "speed")->kind, LevelSchema::Kind::Vector);
    EXPECT_EQ(schema.findAttribute("searchlight", "speed")->kind, LevelSchema::Kind::Float);
    EXPECT_EQ(schema.findAttribute("door", "leveltarget"), nullptr);
    // Defaults come from a fresh body where its saved state names them.
    EXPECT_EQ(schema.findAttribute("door", "timeopen")->defaultValue, "0");
    EXPECT_FALSE(schema.findAttribute("rocketgrunt", "health")->defaultValue.empty());
    // An unknown type reads what a plain body reads.
    EXPECT_NE(schema.findAttribute("Shotgun", "glow"), nullptr);
    EXPECT_EQ(schema.findAttribute("Shotgun", "ammo"), nullptr);

    // The Tiled project has every type as a class, with its attributes.
    const std::string project = TiledProject::projectJson(schema, "/ext", "/maps");
    for (const std::string& type : schema.typeNames())
        EXPECT_NE(project.find("\"name\": \"" + type + "\",\n            \"type\": \"class\""), std::string::npos)
            << type;
    EXPECT_NE(project.find("{ \"name\": \"openoffset\", \"type\": \"string\", \"value\": \"\" }"), std::string::npos);
    EXPECT_NE(project.find("{ \"name\": \"startopen\", \"type\": \"bool\", \"value\": false }"), std::string::npos);
    EXPECT_NE(project.find("\"extensionsPath\": \"/ext\""), std::string::npos);
    const std::string reference = TiledProject::referenceMarkdown(schema);
    EXPECT_NE(reference.find("| openoffset | vector | - | How far it moves when it opens, x,y |"), std::string::npos);
}
