// Saved games lose nothing: every shipped level saved, loaded and saved again
// gives the same file, and every saved key of every body type is read back.
// New levels and body types are picked up without touching this file.
#include "TestPaths.h"
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "core/GameCommands.h"
#include "gameplay/GameplayFixture.h"
#include "world/level/BodyFactory.h"
#include "world/level/LevelLoader.h"
#include "world/level/LevelValues.h"

namespace {
std::vector<std::string> split(const std::string& text)
{
    std::vector<std::string> parts;
    std::stringstream in(text);
    for (std::string part; std::getline(in, part, ',');)
        parts.push_back(part);
    return parts;
}

bool isNumber(const std::string& text, double& value)
{
    char* end = nullptr;
    value = std::strtod(text.c_str(), &end);
    return !text.empty() && end && *end == '\0';
}

// A different value of the same kind: booleans flip, integers grow by one,
// other numbers by 1.5, every component of a list. "" for plain text.
std::string perturbed(const std::string& text)
{
    if (text == "true" || text == "false")
        return text == "true" ? "false" : "true";
    std::string result;
    for (const std::string& part : split(text)) {
        double value = 0.0;
        if (!isNumber(part, value))
            return "";
        const bool integer = part.find_first_of(".eE") == std::string::npos;
        result += (result.empty() ? "" : ",") + (integer ? std::to_string(static_cast<long>(value) + 1)
                                                         : writeFloat(static_cast<float>(value + 1.5)));
    }
    return result;
}

bool sameValue(const std::string& a, const std::string& b)
{
    const std::vector<std::string> x = split(a), y = split(b);
    if (x.size() != y.size())
        return false;
    for (size_t i = 0; i < x.size(); ++i) {
        double u = 0.0, v = 0.0;
        if (isNumber(x[i], u) && isNumber(y[i], v) ? std::fabs(u - v) > 1e-3 * std::max(1.0, std::fabs(u))
                                                   : x[i] != y[i])
            return false;
    }
    return true;
}

// Elapsed milliseconds of a clock in its saved text form.
double clockElapsed(const char* text)
{
    const std::vector<std::string> f = split(text ? text : "");
    return f.size() < 2 ? -1.0 : std::atof(f[1].c_str()) - std::atof(f[0].c_str());
}

// Where two saves first differ, as a path of elements and an attribute; ""
// when they agree. Numbers agree within float rounding: restored bodies
// rebuild their outlines around their saved positions.
std::string firstDifference(const TiXmlElement* a, const TiXmlElement* b, const std::string& path = "")
{
    if (!a || !b)
        return a || b ? path + ": element missing" : "";
    const std::string here = path + "/" + a->ValueStr() + "[" + (a->Attribute("idname") ? a->Attribute("idname") : "") + "]";
    if (a->ValueStr() != b->ValueStr())
        return here + ": element " + b->ValueStr() + " in the second";
    const TiXmlAttribute* x = a->FirstAttribute();
    const TiXmlAttribute* y = b->FirstAttribute();
    for (; x && y; x = x->Next(), y = y->Next())
        if (std::string(x->Name()) != y->Name() || !sameValue(x->ValueStr(), y->ValueStr()))
            return here + ": " + x->Name() + "=\"" + x->ValueStr() + "\" but " + y->Name() + "=\"" + y->ValueStr() + "\"";
    if (x || y)
        return here + ": attribute count differs";
    const TiXmlElement* ca = a->FirstChildElement();
    const TiXmlElement* cb = b->FirstChildElement();
    for (; ca && cb; ca = ca->NextSiblingElement(), cb = cb->NextSiblingElement()) {
        const std::string d = firstDifference(ca, cb, here);
        if (!d.empty())
            return d;
    }
    return ca || cb ? here + ": child count differs" : "";
}
}

class SaveRoundTripTest : public GameplayFixture {
protected:
    // The game's data and levels, read from the built game directory; the
    // saves land in the scratch directory.
    SaveRoundTripTest()
    {
        std::filesystem::create_directory_symlink(testGameDir() + "/data", "data");
        std::filesystem::create_directory_symlink(testGameDir() + "/maps", "maps");
    }
    void SetUp() override
    {
        GameplayFixture::SetUp();
        GameCommands::registerAll(*game);
    }

    // The level files among maps/*.xml (wave lists and the like have no Objects).
    static std::vector<std::string> shippedLevels()
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator("maps")) {
            if (entry.path().extension() != ".xml")
                continue;
            TiXmlDocument doc;
            if (doc.LoadFile(entry.path().string()) && doc.RootElement() &&
                doc.RootElement()->FirstChildElement("Objects"))
                names.insert(entry.path().stem().string());
        }
        return {names.begin(), names.end()};
    }

    // The save, its level clock's elapsed time kept aside and its clocks
    // blanked (their absolute times are re-based on every load).
    static bool readSave(const std::string& path, TiXmlDocument& doc, double& levelElapsed)
    {
        if (!doc.LoadFile(path) || !doc.RootElement())
            return false;
        TiXmlElement* root = doc.RootElement();
        levelElapsed = clockElapsed(root->Attribute("timer"));
        root->SetAttribute("timer", "");
        root->SetAttribute("racetimer", "");
        return true;
    }
};

TEST_F(SaveRoundTripTest, EveryShippedLevelSavesLoadsAndSavesTheSame)
{
    const std::vector<std::string> levels = shippedLevels();
    ASSERT_GE(levels.size(), 4u);
    for (const std::string& level : levels) {
        SCOPED_TRACE(level);
        game->loadLevel(level, "");
        ASSERT_TRUE(game->isLevelLoaded());
        frames(80);  // two seconds of play: things fall, think and trigger
        run("savegame first");
        frame();
        run("loadgame first");
        ASSERT_EQ(game->getCurrentLevel(), level);
        run("savegame second");
        frame();

        double firstTime = 0.0, secondTime = 0.0;
        TiXmlDocument first, second;
        ASSERT_TRUE(readSave("saves/first.xml", first, firstTime));
        ASSERT_TRUE(readSave("saves/second.xml", second, secondTime));
        EXPECT_EQ(firstDifference(first.RootElement(), second.RootElement()), "");
        EXPECT_NEAR(firstTime, secondTime, 1.0);
        EXPECT_GT(firstTime, 1000.0);
    }
}

TEST_F(SaveRoundTripTest, EverySavedKeyOfEveryBodyTypeIsReadBack)
{
    BodyFactory* types = game->getBodyFactory()->getFallbackFactory();
    ASSERT_NE(types, nullptr);
    ASSERT_GE(types->getPrototypes().size(), 20u);
    LevelLoader loader(*game, *game->getBodyFactory());
    // Written from links (the owner) rather than from a field, or, for the
    // player, from its upgrade level.
    const std::set<std::pair<std::string, std::string>> derived{
        {"", "ownerid"}, {"player", "maxhealth"}, {"player", "maxarmour"}};

    for (const auto& prototype : types->getPrototypes()) {
        const std::string type = prototype->type;
        SCOPED_TRACE(type);
        std::unique_ptr<Body> body = types->create(type);
        body->makeRectangle(16.0f, 16.0f);
        body->entity = true;
        TiXmlElement objects("Objects");
        LevelLoader::writeBody(&objects, *body);
        TiXmlElement* custom = objects.FirstChildElement("P")->FirstChildElement("custom");
        ASSERT_NE(custom, nullptr);

        // Every saved key gets a value that no constructor sets.
        std::map<std::string, std::string> changed;
        for (TiXmlAttribute* a = custom->FirstAttribute(); a; a = a->Next()) {
            const std::string value = perturbed(a->ValueStr());
            if (value.empty() || derived.count({"", a->Name()}) || derived.count({type, a->Name()}))
                continue;
            a->SetValue(value);
            changed[a->Name()] = value;
        }
        EXPECT_FALSE(changed.empty());

        std::vector<std::unique_ptr<Body>> read;
        loader.loadObjects(&objects, false, true, read);
        ASSERT_EQ(read.size(), 1u);
        EXPECT_EQ(read[0]->type, type);
        TiXmlElement again("Objects");
        LevelLoader::writeBody(&again, *read[0]);
        const TiXmlElement* rewritten = again.FirstChildElement("P")->FirstChildElement("custom");
        for (const auto& [key, value] : changed) {
            const char* now = rewritten->Attribute(key.c_str());
            EXPECT_TRUE(now && sameValue(value, now))
                << type << " saves \"" << key << "\" as " << value << " but reads it back as "
                << (now ? now : "(nothing)");
        }
    }
}
