// The demo bot: routes read safely, and a route followed through a level
// records a demo that ends at the exit and replays bit for bit.
#include <gtest/gtest.h>

#include "DemoBot.h"
#include "Route.h"
#include "core/DemoManager.h"
#include "gameplay/enemies/Friendly.h"
#include "gameplay/GameplayFixture.h"

namespace {

TEST(RouteTest, ReadsEveryActionAndRefusesBadLinesByNumber)
{
    Route route;
    std::string error;
    ASSERT_TRUE(route.read("# a walk\nlevel quay dock\ndemo run01_quay\nrun 100\njump -20.5\n"
                           "hook 300 200 250  # over the gap\nfight 400\nfight 300 5\nshoot 10 20 2\n"
                           "weapon shotgun\nwait 1.5\ndoor 1900 20\nboss 30\nhold 300\nexit\n",
                           error))
        << error;
    EXPECT_EQ(route.level, "quay");
    EXPECT_EQ(route.entry, "dock");
    EXPECT_EQ(route.demo, "run01_quay");
    ASSERT_EQ(route.actions.size(), 12u);
    EXPECT_EQ(route.actions[1].kind, RouteAction::Kind::jump);
    EXPECT_FLOAT_EQ(route.actions[1].x, -20.5f);
    EXPECT_FLOAT_EQ(route.actions[2].until, 250.0f);
    EXPECT_EQ(route.actions[2].line, 6);
    EXPECT_FLOAT_EQ(route.actions[3].seconds, 60.0f);
    EXPECT_EQ(route.actions[6].text, "shotgun");
    EXPECT_EQ(route.actions[9].kind, RouteAction::Kind::boss);
    EXPECT_FLOAT_EQ(route.actions[9].seconds, 30.0f);
    EXPECT_TRUE(route.actions[10].stand);
    EXPECT_FALSE(route.actions[3].stand);

    // Each bad action as the third line of a route.
    for (const char* action :
         {"run", "run 1e30", "run nan", "hook 1 2", "fight 0", "wait -1", "teleport 5", "door 5", "boss 0", "boss 41"}) {
        EXPECT_FALSE(route.read(std::string("level quay\ndemo d\n") + action + "\n", error)) << action;
        EXPECT_NE(error.find("line 3: cannot read"), std::string::npos) << action << "\n" << error;
    }
    EXPECT_FALSE(route.read("level quay\ndemo ../x\n", error));
    EXPECT_NE(error.find("line 2: bad demo name"), std::string::npos) << error;
    EXPECT_FALSE(route.read("run 5\n", error));
    EXPECT_NE(error.find("names its level and its demo"), std::string::npos) << error;
}

class DemoBotTest : public GameplayFixture {
protected:
    void SetUp() override
    {
        GameplayFixture::SetUp();
        game->clearGravityOverride();
        createVar("gravity", "-80", "");
        createVar("demotrace", "0", "");
        game->getDemos()->registerCommands();
        loadWalledLevel();
    }

    // Walls at -400 and 700, the exit beyond the fixture's ledge, and `extra`.
    void loadWalledLevel(const std::string& extra = "")
    {
        loadLevel(spawnPoint("start", -200, 20, true) + box("default", "wall", 700, 0, 732, 400) +
                  box("default", "westwall", -432, 0, -400, 400) + extra +
                  box("levelchange", "exit", 560, 0, 592, 48, "mass=\"0\" solid=\"false\" entity=\"true\"",
                      attribute("leveltarget", "gameplaytest")));
    }

    Route route(const std::string& actions)
    {
        Route r;
        std::string error;
        EXPECT_TRUE(r.read("level gameplaytest\ndemo bot\n" + actions, error)) << error;
        return r;
    }
};

TEST_F(DemoBotTest, ARouteToTheExitRecordsADemoThatReplaysToTheSameEnd)
{
    DemoBot bot(*game);
    std::string report;
    // The ledge on the way is jumped because the player stops against it.
    // The gap under the ledge is open: no wait there.
    ASSERT_TRUE(bot.record(route("run 0\nwait 0.5\ndoor 50 10\nrun 400\nexit\n"), nullptr, report)) << report;
    EXPECT_NE(report.find("demo bot: level gameplaytest completed in"), std::string::npos) << report;
    DemoManager* demos = game->getDemos();
    EXPECT_TRUE(demos->runTimed("bot", false, false)) << demos->message();
    EXPECT_EQ(demos->completion(), report);
}

TEST_F(DemoBotTest, ARouteThatCannotGoOnSaysWhereItStuck)
{
    DemoBot bot(*game);
    std::string report;
    Demo::PlayerState state;
    state.health = 50;
    EXPECT_FALSE(bot.record(route("run -1000\n"), &state, report));
    EXPECT_NE(report.find("line 3: stuck at -3"), std::string::npos) << report;
    // A door that never opens: the wall.
    EXPECT_FALSE(bot.record(route("door 710 10\n"), nullptr, report));
    EXPECT_NE(report.find("line 3: stuck"), std::string::npos) << report;
    EXPECT_FALSE(bot.record(route("run 100\n"), nullptr, report));
    EXPECT_NE(report.find("the route ended before the exit"), std::string::npos) << report;
}

TEST_F(DemoBotTest, AnAllyBesideTheWayIsNeverShot)
{
    // The level again, with an ally standing where the bot runs past it.
    loadWalledLevel(box("friendly", "ally", -110, 0, -90, 20, "mass=\"10\" entity=\"true\"", attribute("level", "1")));
    DemoBot bot(*game);
    std::string report;
    bot.record(route("fight 300 2\nrun -50\nwait 1\n"), nullptr, report);
    GameBody* ally = nullptr;
    for (Body* body : game->getBodies())
        if (body->id == "ally")
            ally = dynamic_cast<GameBody*>(body);
    ASSERT_NE(ally, nullptr);
    EXPECT_FALSE(ally->dying);
    Friendly unhurt;
    unhurt.setHealthForLevel(1);
    EXPECT_EQ(ally->health, unhurt.health) << report;
}

}
