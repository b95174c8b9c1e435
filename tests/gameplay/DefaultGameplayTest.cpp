#include <tinyxml.h>

#include "gameplay/GameplayFixture.h"
#include "gameplay/RaceBlock.h"
#include "gameplay/RaceEnd.h"
#include "gameplay/RaceEndBlock.h"
#include "gameplay/RaceStart.h"
#include "world/gamebody/GameBody.h"

namespace {
// Counts its steps and thinks.
class CountingBody : public GameBody {
public:
    void step(float) override { ++steps; }
    void think(float) override { ++thinkCount; }
    int steps = 0;
    int thinkCount = 0;
};
}

class DefaultGameplayTest : public GameplayFixture {};

TEST_F(DefaultGameplayTest, LevelAndRaceClocksHoldThroughPauseSaveAndLoad)
{
    loadLevel();
    frames(40);  // one second of level time
    gameplay->startRace();
    frames(20);
    // However long the pause, the clocks go on from where they stood.
    float level = levelTime();
    float race = gameplay->raceTime();
    game->pause();
    frames(40, 250);
    game->unpause();
    frame();
    EXPECT_FLOAT_EQ(levelTime(), level + 25.0f);
    EXPECT_FLOAT_EQ(gameplay->raceTime(), race + 25.0f);
    // Stepped while paused, a clock still stands.
    BasicTimer stopped;
    stopped.paused = true;
    DefaultGameplay::advanceClock(stopped, 25.0f);
    EXPECT_FLOAT_EQ(stopped.currentTime, 0.0f);
    level = levelTime();
    race = gameplay->raceTime();

    TiXmlElement saved("gameplay");
    gameplay->save(&saved);
    EXPECT_STREQ(saved.Attribute("timer"), "0.000000,1525.000000,1500.000000,1000.000000,false");
    EXPECT_STREQ(saved.Attribute("raceactive"), "true");

    clock.advance(60000);
    gameplay->resetRace();
    gameplay->load(&saved);
    EXPECT_TRUE(gameplay->isRaceActive());
    EXPECT_FLOAT_EQ(levelTime(), level);
    EXPECT_FLOAT_EQ(gameplay->raceTime(), race);

    // A restored level keeps the player's timers; a fresh one shifts them.
    player->quadtime = 5000.0f;
    gameplay->startLevel("");
    EXPECT_FLOAT_EQ(player->quadtime, 5000.0f);
    EXPECT_FLOAT_EQ(levelTime(), level);

    frames(40);
    const float elapsed = levelTime();
    gameplay->startLevel("");
    EXPECT_FLOAT_EQ(player->quadtime, 5000.0f - elapsed);
    EXPECT_FLOAT_EQ(levelTime(), 0.0f);

    // A clock cut short is ignored and a missing one left alone; a missing race flag means no race.
    race = gameplay->raceTime();
    TiXmlElement damaged("gameplay");
    damaged.SetAttribute("timer", "12,34");
    gameplay->load(&damaged);
    TiXmlElement empty("gameplay");
    gameplay->load(&empty);
    EXPECT_FALSE(gameplay->isRaceActive());
    EXPECT_FLOAT_EQ(levelTime(), 0.0f);
    EXPECT_FLOAT_EQ(gameplay->raceTime(), race);
}

TEST_F(DefaultGameplayTest, ThinksOnlyWhenLevelTimeIsStrictlyLater)
{
    loadLevel();
    auto* body = spawn<CountingBody>(-500.0f, 50.0f, 4.0f);
    body->setMass(0.0f);
    body->thinks = true;
    body->thinkInterval = 100.0f;
    body->nextthink = 50.0f;

    frame();  // level time 25
    frame();  // level time 50: equal is not later
    EXPECT_EQ(body->thinkCount, 0);
    EXPECT_EQ(body->steps, 2);
    frame();  // 75
    EXPECT_EQ(body->thinkCount, 1);
    EXPECT_FLOAT_EQ(body->nextthink, 175.0f);
    frames(4);  // 175 is not later than 175
    EXPECT_EQ(body->thinkCount, 1);
    frame();  // 200
    EXPECT_EQ(body->thinkCount, 2);

    body->thinks = false;
    frames(20);
    EXPECT_EQ(body->thinkCount, 2);
    EXPECT_EQ(body->steps, 28);
}

TEST_F(DefaultGameplayTest, SpawnPointChoice)
{
    const std::string points = spawnPoint("a", -500.0f, 50.0f, false) + spawnPoint("b", 500.0f, 50.0f, true) +
                               spawnPoint("c", -300.0f, 50.0f, true);
    // No entry: the first start point, even though "a" comes first.
    loadLevel(points);
    ASSERT_EQ(gameplay->getSpawnPoints().size(), 3u);
    EXPECT_FLOAT_EQ(player->pos.x, 500.0f);
    EXPECT_FLOAT_EQ(player->pos.y, 50.0f);

    loadLevel(points, "a");
    EXPECT_FLOAT_EQ(player->pos.x, -500.0f);

    loadLevel(points, "nosuchpoint");
    EXPECT_FLOAT_EQ(player->pos.x, 500.0f);

    // Nearest: "c" beats "a" from the origin; an equal distance keeps the first.
    Body probe;
    EXPECT_EQ(gameplay->nearestSpawnPoint(&probe)->id, "c");
    probe.pos = Vector(0.0f, 50.0f);
    const std::string tie = spawnPoint("left", -100.0f, 50.0f, false) + spawnPoint("right", 100.0f, 50.0f, false);
    player->setPosition(Vector(-700.0f, 8.0f));
    loadLevel(tie);
    EXPECT_EQ(gameplay->nearestSpawnPoint(&probe)->id, "left");
    // Without a start point the player stays where it was.
    EXPECT_FLOAT_EQ(player->pos.x, -700.0f);
    EXPECT_EQ(gameplay->startSpawnPoint(), nullptr);

    gameplay->endLevel();
    EXPECT_TRUE(gameplay->getSpawnPoints().empty());
    EXPECT_EQ(gameplay->nearestSpawnPoint(&probe), nullptr);
}

TEST_F(DefaultGameplayTest, RacesStartWithThePlayerAndFinishOnTheLineOrWithEveryBlockDelivered)
{
    const std::string still = "mass=\"0\" solid=\"false\" entity=\"true\"";
    const std::string block = "mass=\"10\" solid=\"true\" entity=\"true\"";
    loadLevel(box("racestart", "start", 600, 0, 620, 20, still) + box("raceend", "line", 700, 0, 720, 20, still) +
              box("raceblock", "a", -620, 0, -600, 20, block) + box("raceblock", "b", -520, 0, -500, 20, block) +
              box("raceendblock", "goal", -900, 0, -880, 20, still,
                  attribute("blocks", "a,b") + attribute("untriggertimer", "500")));
    auto* start = byId<RaceStart>("start");
    auto* end = byId<RaceEnd>("line");
    auto* a = byId<RaceBlock>("a");
    auto* b = byId<RaceBlock>("b");
    auto* goal = byId<RaceEndBlock>("goal");
    ASSERT_TRUE(start && end && a && b && goal);
    const Vector homeA = a->pos;
    GameHUD& hud = gameplay->getHud();

    // The finish line means nothing outside a race.
    touch(*end, *player);
    EXPECT_FALSE(end->triggered);
    EXPECT_FALSE(gameplay->isRaceActive());

    touch(*start, *player);
    EXPECT_TRUE(gameplay->isRaceActive());
    EXPECT_EQ(hud.lastMessage(), "Race Started!!");
    frames(60);  // 1.5 s
    gameplay->checkpointReached();
    EXPECT_EQ(hud.lastMessage(), "Checkpoint: 1.5");

    touch(*end, *player);
    EXPECT_FALSE(gameplay->isRaceActive());
    EXPECT_EQ(hud.lastMessage(), "Race Finished: 1.5");
    const size_t messages = hud.getMessages().size();

    // Finishing again says nothing and the final time stays frozen.
    frames(10);
    gameplay->finishRace();
    EXPECT_EQ(hud.getMessages().size(), messages);
    EXPECT_FLOAT_EQ(gameplay->raceTime(), 1500.0f);
    EXPECT_TRUE(gameplay->getRaceTimer().paused);

    // Someone other than the player does not start a race.
    Body stranger;
    start->triggered = false;
    touch(*start, stranger);
    EXPECT_FALSE(gameplay->isRaceActive());

    // Outside a race a block is not counted.
    touch(*goal, *a);
    EXPECT_FALSE(a->delivered);

    gameplay->startRace();
    a->setPosition(Vector(-850.0f, 10.0f));
    touch(*goal, *a);
    EXPECT_TRUE(a->delivered);
    EXPECT_TRUE(gameplay->isRaceActive());
    // The player touching the goal counts for nothing.
    touch(*goal, *player);
    EXPECT_TRUE(gameplay->isRaceActive());

    touch(*goal, *b);
    EXPECT_FALSE(gameplay->isRaceActive());
    EXPECT_TRUE(goal->triggered);

    // Delivering "a" again does nothing: it is already delivered.
    gameplay->startRace();
    touch(*goal, *a);
    EXPECT_TRUE(gameplay->isRaceActive());

    // Re-arming sends the delivered blocks home.
    frames(30);
    EXPECT_FALSE(goal->triggered);
    EXPECT_FALSE(a->delivered);
    EXPECT_FALSE(b->delivered);
    EXPECT_FLOAT_EQ(a->pos.x, homeA.x);
    EXPECT_TRUE(goal->deliveredBlocks.empty());

    // So does a reset, wherever the block was carried.
    gameplay->startRace();
    a->delivered = true;
    a->setPosition(Vector(0.0f, 300.0f));
    a->vel = Vector(5.0f, 5.0f);
    gameplay->resetRace();
    EXPECT_FALSE(gameplay->isRaceActive());
    EXPECT_EQ(hud.lastMessage(), "Race reset.");
    EXPECT_FALSE(a->delivered);
    EXPECT_FLOAT_EQ(a->pos.x, homeA.x);
    EXPECT_FLOAT_EQ(a->pos.y, homeA.y);
    EXPECT_TRUE(a->vel.isZero());
}

TEST_F(DefaultGameplayTest, DebugCommandsMoveAndLaunchThePlayer)
{
    loadLevel(box("namedpoint", "node1", -410, 90, -390, 110, "mass=\"0\" solid=\"false\" entity=\"true\"") +
              box("namedpoint", "node2", 590, 90, 610, 110, "mass=\"0\" solid=\"false\" entity=\"true\""));
    player->vel = Vector(10.0f, 10.0f);
    run("warpto node2");
    EXPECT_FLOAT_EQ(player->pos.x, 600.0f);
    EXPECT_FLOAT_EQ(player->pos.y, 100.0f);
    EXPECT_TRUE(player->vel.isZero());

    run("warpto");  // usage only
    EXPECT_FLOAT_EQ(player->pos.x, 600.0f);

    player->setPosition(Vector(-300.0f, 100.0f));
    run("warpnearest");
    EXPECT_FLOAT_EQ(player->pos.x, -400.0f);

    run("fireplayer -400,400 200");
    EXPECT_NEAR(player->vel.x, 0.0f, 1e-3f);
    EXPECT_NEAR(player->vel.y, 200.0f, 1e-3f);
    run("fireplayer 5,5");  // too few arguments: unchanged
    EXPECT_NEAR(player->vel.y, 200.0f, 1e-3f);

    player->mouseWorldPos = Vector(-100.0f, 100.0f);
    run("fireplayeratmouse 50");
    EXPECT_NEAR(player->vel.x, 50.0f, 1e-3f);
    EXPECT_NEAR(player->vel.y, 0.0f, 1e-3f);

    run("killvelocity");
    EXPECT_TRUE(player->vel.isZero());

    run("playerinfo");
    const std::string text = TempDir::read("playerinfo.txt");
    EXPECT_NE(text.find("Player pos, vel: -400,100,0 0,0,0\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Player Mouse Pos: -100,100,0\n"), std::string::npos);
    EXPECT_NE(text.find("Current Level: gameplaytest : at time: "), std::string::npos);
}

TEST_F(DefaultGameplayTest, CreateBodyKnowsTheGameTypesOnly)
{
    EXPECT_EQ(gameplay->createBody("nosuchtype"), nullptr);
    EXPECT_EQ(gameplay->createBody("Player"), nullptr);
    std::unique_ptr<Body> block(gameplay->createBody("raceblock"));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block->type, "raceblock");
}
