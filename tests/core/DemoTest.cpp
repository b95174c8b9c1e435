// Demos: the file format, recording and replaying through a headless game
// at other frame rates, divergence reports, bad files, and the shipped demos
// replaying bit for bit.
#include "TestPaths.h"
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "core/Demo.h"
#include "core/DemoManager.h"
#include "gameplay/GameplayFixture.h"
#include "gameplay/weapons/WeaponDefinitions.h"
#include "input/GameInput.h"
#include "particles/ParticleManager.h"

namespace {

std::string text(const Demo& demo)
{
    std::ostringstream out;
    demo.write(out);
    return out.str();
}

std::string readError(const std::string& content)
{
    std::istringstream in(content);
    Demo demo;
    std::string error;
    return demo.read(in, error) ? "" : error;
}

// Every record read and written again gives the same text. The values are
// awkward: a seed past the int range, a 64-bit hash, and floats printed with
// the nine digits that tell every float apart, so a lossy reader or writer
// shows as a changed line.
TEST(DemoFileTest, EveryRecordAndThePlayersStateReadAndWriteBitForBit)
{
    const std::string file =
        "brindlequay demo 1\nlevel enemies\nentry room2\nseed 4000000000\nvar gravity -80\nvar movemode 2\n"
        "player health 87 armour 20 cash 120 upgrade 2 healthlevel 2 armourlevel 1 swarmlevel 3 weapon 4 "
        "owns 1,2,4,10 ammo 0:-1,3:12,9:-1\nhashinterval 40\nsteps 81\nc 0 +moveright\nc 0 +attack; +moveup\n"
        "a 0 0.100000001 -1e-30\nh 40 fedcba9876543210 1:deadbeef 57:00000000\nr 40\n"
        "a 40 123456.789 3.00000001e+38\na 41 -0 1.17549435e-38\nc 80 -moveright\nh 81 0000000000000001\nend\n";
    Demo demo;
    std::string error;
    std::istringstream in(file);
    ASSERT_TRUE(demo.read(in, error)) << error;
    EXPECT_EQ(text(demo), file);

    // Windows line ends and blank lines are tolerated.
    std::string crlf;
    for (char c : file)
        crlf += c == '\n' ? std::string("\r\n\r\n") : std::string(1, c);
    std::istringstream in2(crlf);
    ASSERT_TRUE(demo.read(in2, error)) << error;
    EXPECT_EQ(text(demo), file);

    // Without the player line a demo starts with a new player.
    std::istringstream in3(file.substr(0, file.find("player")) + file.substr(file.find("hashinterval")));
    ASSERT_TRUE(demo.read(in3, error)) << error;
    EXPECT_FALSE(demo.player.has_value());
}

TEST(DemoFileTest, BadFilesSayWhatIsWrongAndWhere)
{
    const std::string head = "brindlequay demo 1\nlevel test\nentry\nseed 1\nhashinterval 40\nsteps 100\n";
    const struct {
        std::string content;
        std::string expected;
    } cases[] = {
        {"", "empty file"},
        {"<level><Objects/></level>\n", "line 1: not a demo file"},
        {"brindlequay demo 2\nlevel test\nsteps 1\nend\n", "line 1: format version 2 is not 1"},
        {"brindlequay demo\n", "line 1: no format version"},
        {head + "c 5 +moveright\n", "ends before its \"end\" line (truncated?)"},
        {head + "c 5 +movel", "truncated"},
        {"brindlequay demo 1\nlevel test\nsteps 99999999999\nend\n", "line 3: step count must be 0 to"},
        {"brindlequay demo 1\nlevel test\nsteps -4\nend\n", "line 3: step count"},
        {"brindlequay demo 1\nlevel test\nc 0 +attack\nsteps 5\nend\n", "line 3: a step record before"},
        {head + "c 100 +attack\nend\n", "line 7: a command after the last step"},
        {head + "c 101 +attack\nend\n", "line 7: step number missing or past"},
        {head + "c 9 +attack\nc 8 -attack\nend\n", "line 8: commands out of step order"},
        {head + "c 9\nend\n", "line 7: empty or overlong command"},
        {head + "c 9 " + std::string(2000, 'x') + "\nend\n", "line 7: empty or overlong command"},
        {head + "a 3 nan 1\nend\n", "line 7: bad aim point"},
        {head + "a 3 1e39 1\nend\n", "line 7: bad aim point"},
        {head + "a 3 1 2\na 3 1 2\nend\n", "line 8: aim out of step order"},
        {head + "h 0 00\nend\n", "line 7: world hash out of step order"},
        {head + "h 40 xyz\nend\n", "line 7: bad world hash"},
        {head + "h 40 0a 1:zz\nend\n", "line 7: bad body digest \"1:zz\""},
        {head + "h 40 0a 99999999999:01\nend\n", "bad body digest"},
        {head + "steps 5\nend\n", "line 7: a second \"steps\" line"},
        {head + "jump 5\nend\n", "line 7: unknown record \"jump\""},
        {"brindlequay demo 1\nlevel ../../etc/passwd x\nsteps 1\nend\n", "line 2: bad level name"},
        {"brindlequay demo 1\nsteps 1\nend\n", "no level named"},
        {"brindlequay demo 1\nlevel test\nend\n", "no step count"},
        {"brindlequay demo 1\nlevel test\nhashinterval 0\nsteps 1\nend\n", "line 3: hash interval must be"},
        {head + "player armour 5\nend\n", "line 7: player line without health"},
        {head + "player health 0\nend\n", "line 7: bad player health \"0\""},
        {head + "player health 9999999999999\nend\n", "bad player health"},
        {head + "player health 50 health 60\nend\n", "player value health given twice"},
        {head + "player health 50 speed 3\nend\n", "unknown player value \"speed\""},
        {head + "player health 50 weapon 12\nend\n", "bad player weapon"},
        {head + "player health 50 owns 4,2\nend\n", "bad player owns \"4,2\""},
        {head + "player health 50 owns 2,,4\nend\n", "bad player owns"},
        {head + "player health 50 ammo 3:-2\nend\n", "bad player ammo"},
        {head + "player health 50 ammo 3:4,12:5\nend\n", "bad player ammo"},
        {head + "player health 50 ammo 3\nend\n", "bad player ammo"},
        {head + "player health 50 cash\nend\n", "bad player cash \"\""},
        {head + "player health 5\nplayer health 5\nend\n", "line 8: a second \"player\" line"},
    };
    for (const auto& c : cases) {
        const std::string error = readError(c.content);
        EXPECT_NE(error.find(c.expected), std::string::npos) << "input: " << c.content.substr(0, 80)
                                                             << "\nerror: " << error;
    }
    EXPECT_EQ(readError(head + "end\n"), "");
    EXPECT_EQ(readError(head + "player health 5\nend\n"), "");
    EXPECT_TRUE(Demo::isDemoName("test-1_b.2"));
    for (const char* bad : {"", ".hidden", "../x", "a/b", "a b"})
        EXPECT_FALSE(Demo::isDemoName(bad)) << bad;
}

// A headless game on the enemy arena: grunts that roll dice and shoot back.
class DemoPlayTest : public GameplayFixture {
protected:
    void SetUp() override
    {
        GameplayFixture::SetUp();
        WeaponDefinitions::clear();
        loadShipped("enemies");
        game->clearGravityOverride();
        createVar("gravity", "-80", "");
        createVar("demotrace", "0", "");
        demos = game->getDemos();
        demos->registerCommands();
        input->setBinding("d", "+moveright");
        input->setBinding("a", "+moveleft");
        input->setBinding("w", "+moveup");
        input->setBinding("mouse1", "+attack");
        input->setBinding("e", "nextweap");
    }
    void press(const std::string& key) { input->keyDown(0, 0, key); }
    void release(const std::string& key) { input->keyUp(0, 0, key); }

    // About twelve seconds of a player running, jumping, turning and firing
    // into the first room, at an uneven frame rate; returns the steps run.
    uint64_t recordPlay()
    {
        EXPECT_TRUE(demos->record("arena", "enemies", "room1"));
        // A demo starts with a new player.
        player = dynamic_cast<Player*>(game->getPlayer());
        const uint64_t first = game->getStepCount();
        const uint32_t frameMs[] = {16, 33, 7, 16, 16, 51, 12};
        // The frames at which a key goes down or up; a jump every 90 frames besides.
        const struct {
            int frame;
            const char* key;
            bool down;
        } keys[] = {{5, "d", true}, {60, "mouse1", true}, {120, "d", false}, {150, "a", true},
                    {200, "a", false}, {250, "mouse1", false}, {300, "d", true}, {350, "mouse1", true},
                    {400, "e", true}, {400, "e", false}, {420, "d", false}, {600, "mouse1", false}};
        for (int i = 0; i < 700; ++i) {
            for (const auto& k : keys)
                if (k.frame == i)
                    k.down ? press(k.key) : release(k.key);
            if (i % 90 == 30)
                press("w");
            if (i % 90 == 40)
                release("w");
            player->mouseWorldPos = player->pos + Vector(200.0f, static_cast<float>(i % 50) - 25.0f);
            frame(frameMs[i % 7]);
        }
        demos->stop();
        EXPECT_EQ(demos->outcome(), DemoManager::Outcome::recorded) << demos->message();
        return game->getStepCount() - first;
    }

    void playInFrames(uint32_t ms)
    {
        ASSERT_TRUE(demos->play("arena")) << demos->message();
        for (int i = 0; i < 100000 && demos->isPlaying(); ++i)
            frame(ms);
    }

    DemoManager* demos = nullptr;
};

TEST_F(DemoPlayTest, RecordedPlayReplaysAtAnyFrameRateAndAnEditedCopySaysWhereItDiverged)
{
    const uint64_t steps = recordPlay();
    EXPECT_GT(steps, 300u);
    Demo demo;
    std::string error;
    ASSERT_TRUE(demo.load("demos/arena.dem", error)) << error;
    EXPECT_EQ(demo.steps, steps);
    EXPECT_EQ(demo.level, "enemies");
    EXPECT_GE(demo.checkpoints.size(), steps / 40);
    EXPECT_GE(demo.events.size(), 10u);

    playInFrames(40);
    EXPECT_EQ(demos->outcome(), DemoManager::Outcome::matched) << demos->message();
    playInFrames(250);
    EXPECT_EQ(demos->outcome(), DemoManager::Outcome::matched) << demos->message();
    // Keys pressed during a playback do not steer it.
    ASSERT_TRUE(demos->play("arena"));
    press("a");
    press("mouse1");
    for (int i = 0; i < 100000 && demos->isPlaying(); ++i)
        frame(9);
    EXPECT_EQ(demos->outcome(), DemoManager::Outcome::matched) << demos->message();
    release("a");
    release("mouse1");

    EXPECT_TRUE(demos->runTimed("arena", false, false));
    EXPECT_EQ(demos->outcome(), DemoManager::Outcome::matched) << demos->message();
    EXPECT_NE(demos->message().find("world hashes matched"), std::string::npos) << demos->message();

    // Without its first move the player is elsewhere from the start: the
    // report names the step and the bodies.
    std::string content = TempDir::read("demos/arena.dem");
    const size_t at = content.find(" +moveright\n");
    ASSERT_NE(at, std::string::npos);
    const size_t start = content.rfind('\n', at) + 1;
    content.erase(start, at + 12 - start);
    std::ofstream("demos/broken.dem") << content;

    EXPECT_FALSE(demos->runTimed("broken", false, false));
    EXPECT_EQ(demos->outcome(), DemoManager::Outcome::diverged);
    EXPECT_NE(demos->message().find("diverged between steps 0 and 40"), std::string::npos) << demos->message();
    EXPECT_NE(demos->message().find("1 (player"), std::string::npos) << demos->message();
    // The game carries on under the player's control.
    EXPECT_TRUE(game->isLevelLoaded());
    EXPECT_FALSE(demos->isPlaying());

    // Rehashing accepts the new course; from then on it replays.
    EXPECT_TRUE(demos->runTimed("broken", false, true));
    EXPECT_EQ(demos->outcome(), DemoManager::Outcome::rehashed) << demos->message();
    EXPECT_TRUE(demos->runTimed("broken", false, false)) << demos->message();
}

TEST_F(DemoPlayTest, BadDemosStopWithAMessageAndLeaveTheGameRunning)
{
    loadLevel();
    std::filesystem::create_directories("demos");
    std::ofstream("demos/wronglevel.dem") << "brindlequay demo 1\nlevel nosuchlevel\nsteps 10\nend\n";
    std::ofstream("demos/cut.dem") << "brindlequay demo 1\nlevel gameplaytest\nsteps 10\nc 2 +moveright\n";
    const struct {
        std::string name;
        std::string expected;
    } cases[] = {
        {"wronglevel", "Bad demo file demos/wronglevel.dem: its level nosuchlevel cannot be loaded"},
        {"cut", "Bad demo file demos/cut.dem: line 4: the file ends before its \"end\" line"},
        {"missing", "Bad demo file demos/missing.dem: cannot be read"},
        {"../maps/gameplaytest", "Bad demo name"},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(demos->play(c.name));
        EXPECT_EQ(demos->outcome(), DemoManager::Outcome::failed);
        EXPECT_NE(demos->message().find(c.expected), std::string::npos) << demos->message();
        EXPECT_EQ(game->getCurrentLevel(), "gameplaytest");
        EXPECT_TRUE(game->isLevelLoaded());
    }
    // No level, no recording; the console commands explain their use.
    game->unloadLevel();
    EXPECT_FALSE(demos->record("x", "", ""));
    EXPECT_NE(demos->message().find("No level is loaded"), std::string::npos) << demos->message();
    EXPECT_EQ(stdoutOf([&] { run("playdemo; stopdemo"); }),
              "Usage: playdemo <name>\nNo demo is recording or playing\n");
}

// A short walk east into the level's exit, with and without cheats.
TEST_F(DemoPlayTest, ADemoEndsAtTheExitAndItsReplaySaysHowLongAndWhichCheatsRan)
{
    loadLevel(spawnPoint("start", -300, 20, true) +
              box("levelchange", "exit", -100, 0, -68, 48, "mass=\"0\" solid=\"false\" entity=\"true\"",
                  attribute("leveltarget", "gameplaytest")));
    const struct {
        std::string name;
        bool walk;
        std::vector<std::string> commands;
        std::string expected;
        std::string before = "";  // set before recording starts
    } cases[] = {
        {"clean", true, {}, " completed in [0-9]+\\.[0-9] s, cheats: none$", "gravity -80.0"},
        {"preset", true, {}, " completed in [0-9.]+ s, cheats: set gravity$", "gravity -60"},
        // Cheats by any route: a command, a variable line, one of several.
        {"cheat", true, {"giveall", "gravity -60", "echo x; GOD"},
         " completed in [0-9.]+ s, cheats: giveall, god, set gravity$"},
        {"idle", false, {"gravity -80"}, " not completed, cheats: none$"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        run("gravity -80");
        run(c.before);
        ASSERT_TRUE(demos->record(c.name, "gameplaytest", ""));
        // Bound to keys, so that the demo holds them.
        for (const std::string& command : c.commands) {
            input->setBinding("f5", command);
            press("f5");
            release("f5");
        }
        if (c.walk)
            press("d");
        for (int i = 0; i < 400 && demos->isRecording(); ++i)
            frame(25);
        release("d");
        if (!c.walk)
            demos->stop();
        EXPECT_FALSE(demos->isRecording());
        EXPECT_EQ(demos->outcome(), DemoManager::Outcome::recorded) << demos->message();
        EXPECT_EQ(demos->levelCompleted(), c.walk);
        const std::string recorded = demos->completion();
        EXPECT_TRUE(std::regex_search(recorded, std::regex("^demo " + c.name + ": level gameplaytest" + c.expected)))
            << recorded;
        // The replay stops at the exit too, with the very same line.
        run("gravity -80");
        EXPECT_TRUE(demos->runTimed(c.name, false, false)) << demos->message();
        EXPECT_EQ(demos->completion(), recorded);
    }
    run("gravity -80");
}

TEST_F(DemoPlayTest, ACarriedPlayerStateIsGivenAtTheStartOfRecordingAndReplay)
{
    loadLevel(spawnPoint("start", -300, 20, true));
    Demo::PlayerState state;
    std::string error;
    ASSERT_TRUE(state.parse("health 40 armour 15 cash 77 weapon 4 owns 1,2,4,10 ammo 0:-1,1:-1,3:9,9:-1", error));
    const auto live = [this] { return DemoManager::playerState(*dynamic_cast<Player*>(game->getPlayer())); };
    ASSERT_TRUE(demos->record("carry", "gameplaytest", "", &state));
    EXPECT_EQ(live().text(), state.text());
    press("mouse1");
    frames(40);
    release("mouse1");
    frames(10);
    demos->stop();
    const Demo::PlayerState after = live();
    const auto shells = std::find_if(after.ammo.begin(), after.ammo.end(), [](auto& a) { return a.first == 3; });
    ASSERT_NE(shells, after.ammo.end());
    EXPECT_LT(shells->second, 9) << "the shotgun did not fire";

    // A later new player does not keep it; the replay gives it again.
    game->resetPlayer();
    EXPECT_NE(live().text(), state.text());
    ASSERT_TRUE(demos->play("carry"));
    EXPECT_EQ(live().text(), state.text());
    EXPECT_TRUE(demos->runTimed("carry", false, false)) << demos->message();
    EXPECT_EQ(live().text(), after.text());
}

// The demos shipped with the game, replayed in the build under test: any
// change to the simulation shows here first.
class ShippedDemoTest : public GameplayFixture {
protected:
    ShippedDemoTest()
    {
        for (const char* dir : {"data", "maps", "demos"})
            std::filesystem::create_directory_symlink(testGameDir() + "/" + dir, dir);
    }
    void SetUp() override
    {
        GameplayFixture::SetUp();
        // The shipped variables, as the game has them.
        VariableRegistry::instance().loadVariables("data/gamevars.xml");
        game->clearGravityOverride();
        game->getParticleManager()->loadDefinitions("data/particles/particles.xml");
        game->getDemos()->registerCommands();
    }
};

TEST_F(ShippedDemoTest, EveryShippedLevelHasAMinuteLongDemoThatReplaysBitForBit)
{
    std::set<std::string> demoLevels;
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("demos")) {
        if (entry.path().extension() != ".dem")
            continue;
        const std::string name = entry.path().stem().string();
        SCOPED_TRACE(name);
        Demo demo;
        std::string error;
        ASSERT_TRUE(demo.load(entry.path().string(), error)) << error;
        EXPECT_GE(demo.steps, 60u * 40u) << "shorter than a minute";
        demoLevels.insert(demo.level);
        EXPECT_TRUE(game->getDemos()->runTimed(name, false, false));
        EXPECT_EQ(game->getDemos()->outcome(), DemoManager::Outcome::matched) << game->getDemos()->message();
        // The recorded run finishes every level it plays, without cheats.
        if (name.rfind("run", 0) == 0) {
            EXPECT_TRUE(std::regex_search(game->getDemos()->completion(),
                                          std::regex(" completed in [0-9.]+ s, cheats: none$")))
                << game->getDemos()->completion();
        }
        ++count;
    }
    for (const char* level : {"test", "weapons", "pickups", "logic", "enemies"})
        EXPECT_EQ(demoLevels.count(level), 1u) << "no demo plays " << level;
}

}
