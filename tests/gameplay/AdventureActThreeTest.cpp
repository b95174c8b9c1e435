// The shipped third act, loaded headless: what the player touches or breaks
// in each level must open the way on, through the names the files give.
#include "gameplay/GameplayFixture.h"

namespace {

class AdventureActThreeTest : public GameplayFixture {
protected:
    void SetUp() override
    {
        GameplayFixture::SetUp();
        builtInWeapons(3);
        run("god");
    }
};

TEST_F(AdventureActThreeTest, RooftopsWarmUpRaceThenTheStartOpensTheHatchAndThePadGoesBackToTheLine)
{
    loadShipped("rooftops");
    Body* crate = byId("crate");
    Body* hatch = byId("hatch");
    Body* startline = byId("startline");
    ASSERT_TRUE(crate && hatch && startline);
    const float shut = hatch->pos.y;

    placePlayer(86.0f, 10.0f);
    frames(8);
    EXPECT_TRUE(gameplay->isRaceActive()) << "the warm-up flag started no race";
    place(crate, 724.0f, -12.0f);
    frames(8);
    EXPECT_FALSE(gameplay->isRaceActive()) << "the crate in the chute did not finish the warm-up";

    placePlayer(906.0f, 10.0f);
    frames(80);
    EXPECT_GT(hatch->pos.y, shut + 60.0f) << "the start post did not open the hatch";
    placePlayer(4316.0f, 250.0f);
    frames(4);
    EXPECT_NEAR(player->pos.x, startline->pos.x, 24.0f) << "the pad on the hatch hut did not return to the start";
}

// A player who steps on a pad and lets go of the keys lands on the ledge it serves.
TEST_F(AdventureActThreeTest, JumpPadsLandAHandsOffPlayerOnTheirLedges)
{
    struct Pad {
        const char* level;
        float x, y;
        float ledgeTop, ledgeWest, ledgeEast;
    };
    const Pad pads[] = {
        {"rooftops", 2160.0f, 8.0f, 176.0f, 2240.0f, 2760.0f},
        {"destroyerlair", 880.0f, -152.0f, 0.0f, 940.0f, 1060.0f},
        {"destroyerlair", 1270.0f, -152.0f, 60.0f, 1340.0f, 1500.0f},
        {"destroyerlair", 1800.0f, -152.0f, 0.0f, 1860.0f, 1980.0f},
    };
    for (const Pad& pad : pads) {
        SCOPED_TRACE(std::string(pad.level) + " pad at " + std::to_string(pad.x));
        loadShipped(pad.level);
        // Measured without the boss, whose rockets would knock the player about.
        if (Body* boss = byId("thedestroyer"))
            game->markForRemoval(boss);
        frame();
        placePlayer(pad.x, pad.y);
        frames(240);
        EXPECT_NEAR(player->pos.y, pad.ledgeTop + 8.0f, 2.0f);
        EXPECT_GT(player->pos.x, pad.ledgeWest - 8.0f);
        EXPECT_LT(player->pos.x, pad.ledgeEast + 8.0f);
    }
}

TEST_F(AdventureActThreeTest, ServerHallsVaultsVentPadAndLiftOpenToWhatTheLevelAsks)
{
    loadShipped("serverhalls");
    run("notarget");
    Body* vault1 = byId("vault_1");
    Body* vault2 = byId("vault_2");
    Body* door = byId("pit_door");
    GameBody* cell = byType<GameBody>("battery");
    ASSERT_TRUE(vault1 && vault2 && door && cell);
    EXPECT_TRUE(vault1->solid);
    EXPECT_TRUE(vault2->solid);
    for (const char* objective : {"harddrive", "cpu"}) {
        GameBody* body = byType<GameBody>(objective);
        ASSERT_NE(body, nullptr) << objective;
        body->takeDamage(1000, 64);
    }
    frames(10);
    EXPECT_FALSE(vault1->solid) << "breaking the drive and the processor did not open the vaults";
    EXPECT_FALSE(vault2->solid);

    placePlayer(3904.0f, 8.0f);
    frames(40);
    EXPECT_LT(player->pos.y, 20.0f) << "the vent pad blows before its switch";
    placePlayer(3788.0f, 268.0f);
    frames(8);
    placePlayer(3904.0f, 8.0f);
    frames(200);
    EXPECT_GT(player->pos.y, 200.0f) << "the vent pad did not throw the player up to the cold store";
    EXPECT_GT(player->pos.x, 3980.0f);
    EXPECT_LT(player->pos.x, 4100.0f);

    const float shut = door->pos.y;
    place(cell, 5504.0f, 14.0f);
    placePlayer(5440.0f, 10.0f);
    frames(80);
    EXPECT_GT(door->pos.y, shut + 90.0f) << "the cell in its slot did not open the lift door";
}

TEST_F(AdventureActThreeTest, ThePitWakesTheNestAndTheVentsAndTheDestroyersFallOpensTheGate)
{
    loadShipped("destroyerlair");
    auto* destroyer = byId<GameBody>("thedestroyer");
    Body* gate = byId("lair_gate");
    ASSERT_TRUE(destroyer && gate);
    const float shut = gate->pos.y;

    placePlayer(808.0f, -150.0f);
    // The balcony's swarm lives ten seconds; what flies after that came from the nest.
    frames(12000 / 25);
    EXPECT_GT(count("swarmmember"), 0) << "the nest over the pit sent no swarm";
    EXPECT_EQ(count("swarmer"), 0) << "the vents opened before their time";
    frames(10000 / 25);
    EXPECT_GT(count("swarmer"), 0) << "the first wave never came out of the vents";

    EXPECT_NEAR(gate->pos.y, shut, 0.5f) << "the gate opened with the destroyer alive";
    destroyer->takeDamage(5000, 32);
    frames(120);
    EXPECT_GT(gate->pos.y, shut + 90.0f) << "the destroyer's death did not open the gate";
}

} // namespace
