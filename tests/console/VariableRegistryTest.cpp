#include "console/RegistryFixture.h"

#include <cmath>
#include <sstream>

#include "TestPaths.h"

class VariableRegistryTest : public RegistryFixture {};

TEST_F(VariableRegistryTest, SetToggleAndLookupsIgnoreCaseKeepTheThreeFormsTogetherAndCreateOnlyWhatTheyShould)
{
    createVar("gravity", "0", "");
    run("set Gravity 9.8 ignored");
    GameVar* g = findVar("GRAVITY");
    ASSERT_NE(g, nullptr);
    EXPECT_EQ(g->stringValue, "9.8");
    EXPECT_FLOAT_EQ(g->floatValue, 9.8f);
    EXPECT_EQ(g->intValue, 9);
    EXPECT_TRUE(g->changed);
    // A variable's name alone says its value.
    EXPECT_NE(run("GRAVITY").find("gravity = 9.8"), std::string::npos);

    // set creates what it does not know, untyped.
    run("set brandnew abc");
    ASSERT_NE(findVar("brandnew"), nullptr);
    EXPECT_EQ(findVar("brandnew")->type, GameVar::TypeNone);
    EXPECT_EQ(findVar("brandnew")->intValue, 0);

    run("set onlyname");  // usage; nothing created
    EXPECT_EQ(findVar("onlyname"), nullptr);

    // The code's own lookups create what they do not know, empty, and say so.
    GameVar* v = nullptr;
    EXPECT_EQ(stdoutOf([&] { v = getVar("NotDeclared"); }),
              "NotDeclared var has no initialised value, creating a new var\n");
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->name, "notdeclared");
    EXPECT_EQ(v->stringValue, "");
    EXPECT_EQ(v->intValue, 0);
    EXPECT_FALSE(v->changed);
    EXPECT_EQ(getVar("notdeclared"), v);

    // toggle flips on the integer value, and creates nothing either.
    createVar("a", "2", "");
    run("toggle a;toggle brandnew;toggle missing;toggle");
    EXPECT_EQ(findVar("a")->stringValue, "0");
    EXPECT_EQ(findVar("brandnew")->stringValue, "1");
    EXPECT_EQ(findVar("missing"), nullptr);
}

TEST_F(VariableRegistryTest, ChangedMarksRealChangesOnChangeRunsEveryTimeAndAbsurdNumbersSaturate)
{
    GameVar* v = createVar("volume", "50", "");
    EXPECT_FALSE(v->changed);  // a fresh declaration is not a change
    int calls = 0;
    v->onChange = [&] { ++calls; };

    v->setInt(50);
    EXPECT_FALSE(v->changed);
    EXPECT_EQ(calls, 1);

    v->setString("50");
    EXPECT_FALSE(v->changed);
    EXPECT_EQ(calls, 2);

    v->setInt(-7);
    EXPECT_TRUE(v->changed);
    EXPECT_EQ(v->stringValue, "-7");
    EXPECT_FLOAT_EQ(v->floatValue, -7.0f);
    EXPECT_EQ(calls, 3);

    // "050" is other text for the same number: still a change.
    v->changed = false;
    v->setString("050");
    EXPECT_TRUE(v->changed);

    // Absurd numbers saturate.
    v->setString("99999999999999999999");
    EXPECT_EQ(v->intValue, 2147483647);
    v->setString("-1e400");
    EXPECT_EQ(v->intValue, -1);
    EXPECT_TRUE(std::isinf(v->floatValue));
    v->setString("12abc");
    EXPECT_EQ(v->intValue, 12);
    EXPECT_FLOAT_EQ(v->floatValue, 12.0f);
}

TEST_F(VariableRegistryTest, ConfigLinesFollowTheTypeAndSkipUntypedVariables)
{
    GameVar* f = createVar("big", "1000000", "");
    f->setType("float");
    EXPECT_EQ(f->configLine(), "big 1e+06");
    f->setString("0.1234567");
    EXPECT_EQ(f->configLine(), "big 0.123457");

    GameVar* i = createVar("count", "3.9", "");
    i->setType("int");
    EXPECT_EQ(i->configLine(), "count 3");

    GameVar* s = createVar("colour", "0,0,0,200", "");
    s->setType("string");
    EXPECT_EQ(s->configLine(), "colour 0,0,0,200");
    s->setType("bogus");  // unknown names keep the type
    EXPECT_EQ(s->type, GameVar::TypeString);

    createVar("untyped", "1", "");
    std::ostringstream out;
    VariableRegistry::instance().writeVariables(out);
    EXPECT_EQ(out.str(), "\n\n//variables\n\nbig 0.123457\ncolour 0,0,0,200\ncount 3\n\n\n");
}

class GameVarsFileTest : public RegistryFixture {
protected:
    std::string load(const std::string& xml)
    {
        dir.write("data/vars.xml", xml);
        return stdoutOf([] { VariableRegistry::instance().loadVariables("data/vars.xml"); });
    }
};

TEST_F(GameVarsFileTest, DeclarationsGiveValueTypeAndHelpAndABrokenFileDeclaresNothing)
{
    getVar("vidwidth");  // looked up before the file was read
    const std::string out = load(
        "<gamevars>"
        "<var name=\"VidWidth\" value=\"1024\" description=\"Window width\" type=\"int\"/>"
        "<anything name=\"gravity\" value=\"-9.8\" description=\"Pull\" type=\"float\"/>"
        "<var name=\"notype\" value=\"1\" description=\"x\"/>"
        "<var value=\"1\" type=\"int\"/>"
        "</gamevars>");
    GameVar* w = findVar("vidwidth");
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->intValue, 1024);
    EXPECT_EQ(w->type, GameVar::TypeInt);
    EXPECT_EQ(w->description, "Window width");
    EXPECT_EQ(findVar("gravity")->type, GameVar::TypeFloat);
    EXPECT_FALSE(findVar("gravity")->changed);
    EXPECT_EQ(findVar("notype")->type, GameVar::TypeNone);
    EXPECT_NE(out.find("ERROR: no type defined in gamevars.xml for gamevar: notype\n"), std::string::npos)
        << out;
    EXPECT_EQ(findVar(""), nullptr);

    // A broken or missing file says so and declares nothing.
    const std::string broken = load("<gamevars><var name=\"a\" value=\"1\" type=\"int\"></gamevars>");
    EXPECT_NE(broken.find("Could not load gamevars file: data/vars.xml\n"), std::string::npos) << broken;
    EXPECT_EQ(findVar("a"), nullptr);
    EXPECT_NE(stdoutOf([] { EXPECT_FALSE(VariableRegistry::instance().loadVariables("data/none.xml")); })
                  .find("Could not load gamevars file: data/none.xml"),
              std::string::npos);
}

TEST_F(GameVarsFileTest, DeclaredRangeHoldsOnEveryPath)
{
    load("<gamevars>"
         "<var name=\"volume\" value=\"96\" type=\"int\" min=\"0\" max=\"128\" description=\"v\"/>"
         "<var name=\"deadzone\" value=\"0.25\" type=\"float\" min=\"0\" max=\"1\" description=\"d\"/>"
         "<var name=\"backwards\" value=\"5\" type=\"int\" min=\"9\" max=\"1\" description=\"b\"/>"
         "</gamevars>");
    GameVar* volume = findVar("volume");
    ASSERT_NE(volume, nullptr);
    int hooks = 0;
    volume->onChange = [&] { ++hooks; };
    // Typed name, set, a script line, the code's own setInt: all refused.
    dir.write("data/s.txt", "volume 129\r\nset volume -1\n");
    const std::string out = run("volume 1e9;set volume nan;exec s.txt");
    volume->setInt(500);
    EXPECT_EQ(volume->stringValue, "96");
    EXPECT_EQ(volume->intValue, 96);
    EXPECT_EQ(hooks, 0);
    EXPECT_FALSE(volume->changed);
    EXPECT_NE(out.find("volume must be between 0 and 128\n"), std::string::npos) << out;
    EXPECT_EQ(volume->configLine(), "volume 96");

    // In range: the text shown is the integer in use.
    run("volume 5.7");
    EXPECT_EQ(volume->stringValue, "5");
    EXPECT_FLOAT_EQ(volume->floatValue, 5.0f);
    run("set volume 128;set deadzone 0.5;set deadzone 1.5");
    EXPECT_EQ(volume->intValue, 128);
    EXPECT_EQ(findVar("deadzone")->stringValue, "0.5");
    // A range that cannot hold anything is not a range.
    run("set backwards 20");
    EXPECT_EQ(findVar("backwards")->intValue, 20);
}

TEST_F(GameVarsFileTest, ShippedFileDeclaresEveryVariableWithTypeHelpAndTheOptionsRanges)
{
    ASSERT_TRUE(TempDir::run("mkdir -p data && cp '" + testSourceDir() + "/data/gamevars.xml' data/"));
    VariableRegistry& registry = VariableRegistry::instance();
    ASSERT_TRUE(registry.loadVariables("data/gamevars.xml"));
    const char* used[] = {
        "bloomblurpixels", "bodyinfo", "cachetextureids", "chasecam", "collideoutsidefrustum",
        "con_colour", "con_height", "con_showdebug", "con_showwarnings", "debuginfo", "drawbloom",
        "drawbodies", "drawboundingboxes", "drawboundingspheres", "drawgrid", "drawoutlines",
        "drawparticles", "drawsky", "drawspeed", "drawtimer", "firstrun", "frustumcull",
        "frustumcull2", "gravity", "load_leveldebug", "lowhealthflash", "maxgibs", "movemode",
        "movierecord", "partcileinfo", "rbodystring", "recordleveltimes", "sensitivity", "showfps",
        "soundbuffer", "soundchannels", "soundfrequency", "volume", "vidfullscreen", "vidheight",
        "vidwidth", "vsync"};
    for (const char* name : used) {
        const GameVar* v = registry.findVar(name);
        ASSERT_NE(v, nullptr) << name;
        EXPECT_NE(v->type, GameVar::TypeNone) << name;
        EXPECT_GE(v->description.size(), 10u) << name;
    }
    for (const auto& entry : registry.getVariables())
        EXPECT_NE(entry.second->type, GameVar::TypeNone) << entry.first;
    // The options screens step through these ranges; a value typed outside one is refused.
    const struct {
        const char* name;
        double low, high;
    } ranged[] = {{"difficulty", 0, 2}, {"uiscale", 1, 2},      {"firetoggle", 0, 1}, {"hooktoggle", 0, 1},
                  {"flashes", 0, 2},    {"glowstrength", 0, 2}, {"hudcontrast", 0, 1}};
    for (const auto& r : ranged) {
        const GameVar* v = registry.findVar(r.name);
        ASSERT_NE(v, nullptr) << r.name;
        EXPECT_TRUE(v->hasRange) << r.name;
        EXPECT_EQ(v->minValue, r.low) << r.name;
        EXPECT_EQ(v->maxValue, r.high) << r.name;
    }
}
