// Save games through the Game: what a save holds, what a load restores, that
// a save that cannot be used leaves the running game alone, and the save
// list's view of them. Then that saved games lose nothing: every shipped level
// saved, loaded and saved again gives the same file, and every saved key of
// every body type is read back; new levels and body types are picked up
// without touching this file.
#include "TestPaths.h"
#include <gtest/gtest.h>
#include <tinyxml.h>
#include <utime.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "console/Console.h"
#include "core/GameCommands.h"
#include "core/SaveInfo.h"
#include "gameplay/GameplayFixture.h"
#include "gameplay/items/Inventory.h"
#include "render/GameHUD.h"
#include "render/TextHudItem.h"
#include "world/level/BodyFactory.h"
#include "world/level/LevelLoader.h"
#include "world/level/LevelValues.h"
#include "world/logic/Checkpoint.h"
#include "gui/GUIManager.h"

namespace {
// Remembers the capture calls; a thumbnail "written" is a small text file.
class ThumbnailRenderer : public NullRenderer {
public:
    void grabScreen() override { ++grabs; }
    bool saveGrab(const std::string& path, int w, int h) override
    {
        std::ofstream(path) << w << "x" << h;
        return true;
    }
    int grabs = 0;
};

// Moves a save's recorded writing time, keeping the rest of the file.
void setSavedAt(const std::string& name, long long when)
{
    TiXmlDocument doc;
    ASSERT_TRUE(doc.LoadFile(Game::savePath(name)));
    doc.RootElement()->SetAttribute("savedat", std::to_string(when));
    ASSERT_TRUE(doc.SaveFile(Game::savePath(name)));
}
}

class GameSaveTest : public GameplayFixture {
protected:
    void SetUp() override
    {
        GameplayFixture::SetUp();
        GameCommands::registerAll(*game);
        // Playing, not in the menus.
        game->getGUIManager()->setVisible(false);
    }
    std::unique_ptr<IRenderer> makeRenderer() override
    {
        auto r = std::make_unique<ThumbnailRenderer>();
        thumbnails = r.get();
        return r;
    }
    // A level with a start point, a movable crate and a trigger.
    void loadSaveLevel()
    {
        loadLevel(spawnPoint("start", 0, 40, true) +
                  box("default", "crate", 400, 0, 432, 32, "mass=\"50\" solid=\"true\" entity=\"true\"") +
                  box("trigger", "switch", -300, 0, -280, 20, "mass=\"0\" solid=\"false\" entity=\"true\""));
    }
    void save(const std::string& command = "savegame")
    {
        run(command);
        frame();
    }
    ThumbnailRenderer* thumbnails = nullptr;
};

TEST_F(GameSaveTest, SavesWriteTheFileLayoutAndAThumbnailAndNeverHalfAFile)
{
    loadSaveLevel();
    frames(4);
    const std::string out = stdoutOf([&] { save(); });
    EXPECT_NE(out.find("Saving save game: saves/temp.xml\n"), std::string::npos) << out;
    EXPECT_FALSE(game->isSaveRequested());
    EXPECT_EQ(thumbnails->grabs, 1);
    EXPECT_EQ(TempDir::read("saves/temp.png"), "320x240");
    EXPECT_FALSE(std::filesystem::exists("saves/temp.xml.tmp"));

    TiXmlDocument doc;
    ASSERT_TRUE(doc.LoadFile("saves/temp.xml"));
    const TiXmlElement* root = doc.RootElement();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->ValueStr(), "save");
    EXPECT_STREQ(root->Attribute("version"), "1");
    EXPECT_NE(root->Attribute("timer"), nullptr);
    EXPECT_NE(root->Attribute("racetimer"), nullptr);
    // Bodies, then the controller's attributes, then the player, last.
    ASSERT_NE(root->FirstChildElement(), nullptr);
    EXPECT_EQ(root->FirstChildElement()->ValueStr(), "Objects");
    EXPECT_EQ(root->LastChild()->ValueStr(), "Player");
    int saved = 0;
    for (const TiXmlElement* p = root->FirstChildElement("Objects")->FirstChildElement("P"); p;
         p = p->NextSiblingElement("P")) {
        EXPECT_STRNE(p->Attribute("type"), "player");
        ++saved;
    }
    EXPECT_EQ(saved, 3);  // the entities only: spawn point, crate, trigger

    // The temporary file's name taken by a directory: the write fails and
    // the previous file stays.
    const std::string before = TempDir::read("saves/temp.xml");
    std::filesystem::create_directories("saves/temp.xml.tmp/blocker");
    player->setPosition(Vector(600.0f, 50.0f));
    save();
    EXPECT_EQ(TempDir::read("saves/temp.xml"), before);

    // From the menus, as Escape opens them, the thumbnail is the still taken then.
    const int grabs = thumbnails->grabs;
    game->getGUIManager()->setVisible(true);
    game->setWorldRunning(false);
    save("savegame menu");
    EXPECT_EQ(thumbnails->grabs, grabs);
    EXPECT_EQ(TempDir::read("saves/menu.png"), "320x240");
    run("loadgame menu");
    EXPECT_FALSE(game->getGUIManager()->isVisible());
}

// Each body's own values come back through the level loader, which the
// round-trip tests check key by key; here, what the game itself restores.
TEST_F(GameSaveTest, LoadRestoresPlayerInventoryAndClocksIntoARebuiltWorldAndResumesPlay)
{
    loadSaveLevel();
    frames(40);
    player->setPosition(Vector(-120.0f, 64.0f));
    player->health = 37;
    player->properties.cash = 1234;
    player->inventory.own(5);
    player->inventory.setAmmo(4, 17);
    player->inventory.selectWeapon(5);
    const float levelTime = GameplaySingleton::get().levelTime();
    save("savegame slot");

    // Play on and change everything.
    frames(30);
    byId<Body>("crate")->setPosition(Vector(900.0f, 300.0f));
    player->setPosition(Vector(500.0f, 10.0f));
    player->health = 100;
    player->properties.cash = 0;
    player->inventory.setAmmo(4, 0);
    player->inventory.selectWeapon(2);
    const size_t bodyCount = game->getBodies().size();
    // Loaded while paused, from the console: play resumes.
    game->pause();
    game->getConsole()->setVisible(true);
    game->getInputManager().setTarget("console");

    const std::string out = stdoutOf([&] { run("loadgame slot"); });
    EXPECT_NE(out.find("Loading save game: saves/slot.xml\n"), std::string::npos) << out;
    EXPECT_EQ(game->getPendingSaveName(), "slot");
    EXPECT_EQ(game->getCurrentLevel(), "gameplaytest");
    EXPECT_EQ(game->getBodies().size(), bodyCount);
    EXPECT_FALSE(game->isPaused());
    EXPECT_FALSE(game->getConsole()->isVisible());
    EXPECT_EQ(game->getInputManager().getCurrentTarget(), "game");

    ASSERT_NE(byId<Body>("crate"), nullptr);
    EXPECT_NE(byId<Body>("crate")->quadTreeNode, nullptr);
    EXPECT_LT(byId<Body>("crate")->pos.x, 500.0f);

    EXPECT_EQ(game->getPlayer(), player);
    EXPECT_EQ(player->autoid, 1);
    EXPECT_NEAR(player->pos.x, -120.0f, 0.01f);
    EXPECT_NEAR(player->pos.y, 64.0f, 0.01f);
    EXPECT_NE(player->quadTreeNode, nullptr);
    EXPECT_EQ(player->health, 37);
    EXPECT_EQ(player->properties.cash, 1234);
    EXPECT_TRUE(player->inventory.owns(5));
    EXPECT_EQ(player->inventory.ammoOf(4), 17);
    EXPECT_EQ(player->inventory.currentWeapon, 5);
    // The level clock carries on from the saved time, not from the present.
    EXPECT_NEAR(GameplaySingleton::get().levelTime(), levelTime, 1.0f);

    // And the world runs on from there.
    frames(10);
    EXPECT_GT(GameplaySingleton::get().levelTime(), levelTime + 200.0f);
}

TEST_F(GameSaveTest, IdsCountOnFromTheSavedNextBodyIdTheSavedDifficultyHoldsAndAbsurdTimesAreBounded)
{
    GameVar* difficulty = createVar("difficulty", "2", "");
    difficulty->setRange(0, 2);
    loadSaveLevel();
    for (int i = 0; i < 5; ++i) {
        Body* spawned = gameplay->createBody("trigger");
        spawned->makeRectangle(8.0f, 8.0f);
        spawned->entity = true;
        game->spawnBody(spawned);
    }
    const int next = game->getNextBodyId();
    save("savegame ids");
    game->loadLevel("gameplaytest", "");  // back to the level's own numbering
    ASSERT_LT(game->getNextBodyId(), next);

    difficulty->setInt(0);
    run("loadgame ids");
    Body* later = gameplay->createBody("trigger");
    game->spawnBody(later);
    EXPECT_EQ(later->autoid, next);
    EXPECT_EQ(difficulty->intValue, 2);

    // A count edited below the saved ids does not hand out taken ids; a save
    // from before difficulty leaves the player's setting alone; absurd clocks
    // and body times are held within bounds.
    TiXmlDocument doc;
    ASSERT_TRUE(doc.LoadFile("saves/ids.xml"));
    TiXmlElement* root = doc.RootElement();
    root->SetAttribute("nextbodyid", "2");
    root->RemoveAttribute("difficulty");
    root->SetAttribute("timer", "1e38,-3e35,nan,1000,false");
    TiXmlElement* saved = root->FirstChildElement("Player");
    saved->SetAttribute("hasquad", "true");
    saved->SetAttribute("quadtime", "3e35");
    saved->SetAttribute("invinctime", "-3e35");
    saved->SetAttribute("nextthink", "1e38");
    ASSERT_TRUE(doc.SaveFile("saves/edited.xml"));
    difficulty->setInt(0);
    run("loadgame edited");
    ASSERT_TRUE(game->isLevelLoaded());
    Body* another = gameplay->createBody("trigger");
    game->spawnBody(another);
    EXPECT_EQ(another->autoid, next);
    EXPECT_EQ(difficulty->intValue, 0);
    for (float t : {player->quadtime, player->invinctime, player->nextthink, GameplaySingleton::get().levelTime()}) {
        EXPECT_TRUE(std::isfinite(t));
        EXPECT_LE(std::fabs(t), 2.0f * maxTimeMs);
    }
    frames(2);
    const int seconds = std::stoi(gameplay->getHud().quadValue->text);
    EXPECT_GE(seconds, 0);
    EXPECT_LE(seconds, static_cast<int>(maxTimeMs / 1000.0f));
}

TEST_F(GameSaveTest, UnusableSavesLeaveTheGameAsItIs)
{
    loadSaveLevel();
    frames(8);
    save("savegame good");
    std::filesystem::create_directories("saves");
    std::ofstream("saves/garbage.xml") << "<save currentlevel=\"gameplaytest\"><Objects><P";
    std::ofstream("saves/empty.xml") << "";
    std::ofstream("saves/wrongroot.xml") << "<level currentlevel=\"gameplaytest\"><Objects/></level>";
    std::ofstream("saves/nolevel.xml") << "<save version=\"1\" currentlevel=\"nosuchlevel\" nextbodyid=\"9\"/>";
    std::ofstream("saves/nolevelname.xml") << "<save version=\"1\" nextbodyid=\"9\"/>";
    const std::string damaged = " is damaged and was not loaded";
    const std::pair<std::string, std::string> refusals[] = {
        {"garbage", "The save game garbage" + damaged},
        {"empty", "The save game empty" + damaged},
        {"wrongroot", "The save game wrongroot" + damaged},
        {"nolevel", "The save game nolevel needs the level nosuchlevel, which could not be loaded"},
        {"nolevelname", "The save game nolevelname" + damaged},
        {"missing", "There is no save game called missing"},
        // The level loader's own refusal of a sub-path still names the file.
        {"../maps/gameplaytest", "Save names are letters, digits, spaces, '-', '_' and '.': ../maps/gameplaytest"},
        {"/etc/passwd", "Save names are letters, digits, spaces, '-', '_' and '.': /etc/passwd"},
    };

    player->setPosition(Vector(250.0f, 90.0f));
    const size_t bodies = game->getBodies().size();
    const int nextId = game->getNextBodyId();
    for (const auto& [name, notice] : refusals) {
        SCOPED_TRACE(name);
        const std::string out = stdoutOf([&, name = name] { run("loadgame " + name); });
        EXPECT_NE(out.find("Can't load save file: saves/" + name + ".xml\n"), std::string::npos) << out;
        EXPECT_EQ(game->currentNotice(), notice);
        EXPECT_EQ(out.find("Loading save game"), std::string::npos) << out;
        EXPECT_TRUE(game->isLevelLoaded());
        EXPECT_EQ(game->getBodies().size(), bodies);
        EXPECT_EQ(game->getNextBodyId(), nextId);
        EXPECT_EQ(game->getPendingSaveName(), "good");
        EXPECT_NEAR(player->pos.x, 250.0f, 0.01f);
    }
    frames(2);
    EXPECT_TRUE(game->isWorldRunning());
}

TEST_F(GameSaveTest, SaveNamesTakeSpacesAndQuotesAndStayInsideTheSavesFolder)
{
    const std::vector<std::pair<std::string, std::string>> lines{
        {"my save", "my save"}, {"\"My Run\"", "My Run"}, {"\"My Run", "My Run"}, {"quicksave", "quicksave"}};
    for (const auto& [typed, name] : lines)
        EXPECT_EQ(Game::saveNameFromArguments(typed), name) << typed;
    EXPECT_TRUE(Game::isSaveName("quicksave"));
    EXPECT_TRUE(Game::isSaveName("Chapter 2 - the docks_v1.5"));
    EXPECT_TRUE(Game::isSaveName(std::string(Game::maxSaveNameLength, 'x')));
    const std::vector<std::string> bad{"",    ".hidden",  "../escape", "a/b", "a\\b",
                                       "tab\tname", std::string(Game::maxSaveNameLength + 1, 'x')};
    for (const std::string& name : bad)
        EXPECT_FALSE(Game::isSaveName(name)) << name;

    loadSaveLevel();
    const std::string out = stdoutOf([&] { save("savegame ../../escape"); });
    EXPECT_EQ(out.find("Saving save game"), std::string::npos) << out;
    EXPECT_FALSE(game->isSaveRequested());
    EXPECT_FALSE(std::filesystem::exists("escape.xml"));
    EXPECT_FALSE(std::filesystem::exists("../escape.xml"));
    save("savegame " + std::string(Game::maxSaveNameLength + 1, 'a'));
    EXPECT_EQ(game->currentNotice(), "Save names are at most 32 characters");
    EXPECT_TRUE(game->isLevelLoaded());

    save("savegame my save");
    EXPECT_TRUE(std::filesystem::exists("saves/my save.xml"));
    const std::string loaded = stdoutOf([&] { run("loadgame \"my save\""); });
    EXPECT_NE(loaded.find("Loading save game: saves/my save.xml"), std::string::npos) << loaded;
}

TEST_F(GameSaveTest, TheSaveListShowsNewestFirstWithTitleDatePlayTimeAndKind)
{
    loadLevel(box("checkpoint", "cp", 40, 0, 60, 40, "mass=\"0\" solid=\"false\" entity=\"true\""));
    // The level names its title; saves take it with them.
    std::string level = TempDir::read("maps/gameplaytest.xml");
    level.replace(0, 7, "<level title=\"Crane &amp; Yard &gt; North\">");
    std::ofstream("maps/gameplaytest.xml") << level;
    frames(65 * 40);  // 65 s of play
    const long long before = std::time(nullptr);
    save("savegame first run");
    // A checkpoint set off by a link saves over the run's own save.
    byId<Checkpoint>("cp")->onTriggered(nullptr);
    frame();
    save("savegame quicksave");
    save("savegame older one");
    // A file from an older build: no title, date or play time of its own.
    std::ofstream("saves/plain.xml") << "<?xml version=\"1.0\" ?>\n<save version=\"1\" currentlevel=\"quay\">"
                                     << std::string(10000, ' ') << "<Objects/></save>";
    std::ofstream("saves/broken.xml") << "<sav";
    std::ofstream("saves/.hidden.xml") << "<save currentlevel=\"quay\"/>";

    setSavedAt("older one", 1000000000);
    setSavedAt("first run", before + 100);
    setSavedAt(SaveInfo::quickSaveName, before + 200);
    const utimbuf old{1500000000, 1500000000};
    ASSERT_EQ(::utime("saves/plain.xml", &old), 0);
    ASSERT_EQ(::utime("saves/broken.xml", &old), 0);

    const std::vector<SaveInfo> saves = SaveInfo::listAll();
    // Newest first; the two from one moment by name; names no save command
    // could make are left out.
    std::vector<std::string> names;
    for (const SaveInfo& s : saves)
        names.push_back(s.name);
    ASSERT_EQ(names, (std::vector<std::string>{"quicksave", "first run", "broken", "plain", "older one"}));

    const SaveInfo& quick = saves[0];
    EXPECT_EQ(quick.kind, SaveInfo::Kind::quick);
    EXPECT_EQ(quick.level, "gameplaytest");
    EXPECT_EQ(quick.title, "Crane & Yard > North");
    EXPECT_EQ(quick.written, before + 200);
    EXPECT_EQ(saves[1].kind, SaveInfo::Kind::checkpoint);
    EXPECT_TRUE(saves[1].readable);
    // 65 s of steps, give or take the frames around the saves.
    EXPECT_GE(saves[1].playSeconds, 64);
    EXPECT_LE(saves[1].playSeconds, 66);
    EXPECT_FALSE(saves[2].readable);
    EXPECT_EQ(saves[3].title, "Quay");
    EXPECT_EQ(saves[3].written, 1500000000);
    EXPECT_EQ(saves[3].playSeconds, 0);
    EXPECT_EQ(saves[4].kind, SaveInfo::Kind::player);

    // The run's play time comes back with the save and counts on from there.
    game->loadGame("first run");
    EXPECT_NEAR(game->getPlaySeconds(), 65.0, 1.5);
    frames(40);
    EXPECT_NEAR(game->getPlaySeconds(), 66.0, 1.5);
}

TEST(SaveInfoText, DatesAndPlayTimesReadAsPlayersExpect)
{
    const char* oldTz = std::getenv("TZ");
    const std::string saved = oldTz ? oldTz : "";
    ::setenv("TZ", "UTC", 1);
    ::tzset();
    EXPECT_EQ(SaveInfo::formatWritten(1764090240), "25 Nov 2025 17:04");
    oldTz ? ::setenv("TZ", saved.c_str(), 1) : ::unsetenv("TZ");
    ::tzset();

    const std::pair<long, const char*> times[] = {
        {0, "0:00"}, {59, "0:59"}, {65, "1:05"}, {3599, "59:59"}, {3600, "1:00:00"}, {36061, "10:01:01"}, {-5, "0:00"}};
    for (const auto& [seconds, text] : times)
        EXPECT_EQ(SaveInfo::formatPlayTime(seconds), text) << seconds;
}

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

class SaveRoundTripTest : public GameSaveTest {
protected:
    // The game's data and levels, read from the built game directory; the
    // saves land in the scratch directory.
    SaveRoundTripTest()
    {
        std::filesystem::create_directory_symlink(testGameDir() + "/data", "data");
        std::filesystem::create_directory_symlink(testGameDir() + "/maps", "maps");
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

    // The save with its clocks blanked: their absolute times are re-based on
    // every load, and the load test checks the level clock carries on.
    static bool readSave(const std::string& path, TiXmlDocument& doc)
    {
        if (!doc.LoadFile(path) || !doc.RootElement())
            return false;
        TiXmlElement* root = doc.RootElement();
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
        save("savegame first");
        run("loadgame first");
        ASSERT_EQ(game->getCurrentLevel(), level);
        save("savegame second");

        TiXmlDocument first, second;
        ASSERT_TRUE(readSave("saves/first.xml", first));
        ASSERT_TRUE(readSave("saves/second.xml", second));
        EXPECT_EQ(firstDifference(first.RootElement(), second.RootElement()), "");
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
