// Spawners and their limits, wave files, switchable particle effects, sound
// emitters and level exits.
#include <gtest/gtest.h>

#include "console/VariableRegistry.h"
#include "world/logic/LevelChange.h"
#include "world/logic/LogicFixture.h"
#include "world/logic/ParticleSystemBody.h"
#include "world/logic/SoundBody.h"
#include "world/logic/Spawner.h"
#include "world/logic/WaveController.h"

class SpawnerWaveTest : public LogicFixture {
protected:
    // A wave controller in the world; assembling it reads its file.
    WaveController* addWave(const std::string& file)
    {
        auto* wave = new WaveController();
        wave->wavefile = file;
        return spawn(wave, 0.0f, 0.0f, 8.0f);
    }
};

TEST_F(SpawnerWaveTest, SpawnersKeepTheirLimitsAndUnknownTypesArePlain)
{
    loadLevel(entity("spawner", "sp", 0, 200,
                     attribute("spawnedtype", "battery") + attribute("maxalive", "5") +
                         attribute("untriggertimer", "1000")) +
              entity("spawner", "refill", 0, 250,
                     attribute("spawnedtype", "battery") + attribute("maxalive", "1") +
                         attribute("maxspawned", "3") + attribute("spawndelay", "100")) +
              entity("spawner", "odd", 0, 300, attribute("spawnedtype", "nosuchthing")));
    auto* spawner = find<Spawner>("sp");
    auto* refill = find<Spawner>("refill");
    auto* odd = find<Spawner>("odd");
    ASSERT_TRUE(spawner && refill && odd);
    // Max spawned 0: one per accepted trigger, however long it thinks.
    at(0);
    spawner->onTriggered(nullptr);
    EXPECT_EQ(count("battery"), 1);
    at(500);
    spawner->onTriggered(nullptr);  // still within its untrigger time
    EXPECT_EQ(count("battery"), 1);
    for (int t = 600; t < 5000; t += 200)
        thinkAt(*spawner, static_cast<float>(t));
    EXPECT_EQ(count("battery"), 1);
    spawner->onTriggered(nullptr);
    EXPECT_EQ(count("battery"), 2);
    EXPECT_EQ(spawner->numspawned, 2);
    EXPECT_EQ(spawner->getOwned().size(), 2u);
    for (GameBody* child : spawner->getOwned())
        EXPECT_EQ(child->getOwner(), spawner);
    EXPECT_EQ(std::count(sound->ids.begin(), sound->ids.end(), 19), 2) << ::testing::PrintToString(sound->ids);

    // An unknown type gives plain bodies, which no spawner owns.
    Body* made = odd->spawn();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(dynamic_cast<GameBody*>(made), nullptr);
    EXPECT_TRUE(odd->getOwned().empty());
    EXPECT_FLOAT_EQ(made->pos.y, odd->pos.y);

    // Thinking keeps max alive, a trigger adds beyond it, and max spawned holds for both.
    thinkAt(*refill, 0);
    EXPECT_EQ(refill->numspawned, 0);  // not active before its first trigger
    refill->onTriggered(nullptr);
    EXPECT_EQ(refill->numalive, 1);
    thinkAt(*refill, 1000);
    EXPECT_EQ(refill->numalive, 1);
    refill->onTriggered(nullptr);  // a trigger ignores maxalive
    EXPECT_EQ(refill->numalive, 2);
    EXPECT_EQ(refill->numspawned, 2);

    // Both die for good: the think refills one, and stops at maxspawned.
    const std::vector<GameBody*> owned = refill->getOwned();
    for (GameBody* child : owned)
        child->die();
    EXPECT_EQ(refill->numalive, 0);
    thinkAt(*refill, 2000);
    EXPECT_EQ(refill->numalive, 1);
    EXPECT_EQ(refill->numspawned, 3);
    refill->getOwned().front()->die();
    thinkAt(*refill, 3000);
    EXPECT_EQ(refill->numalive, 0);
    EXPECT_EQ(refill->numspawned, 3);
}

TEST_F(SpawnerWaveTest, WaveFilesFireInTimeOrderAndFileOrderForTiesAndResumeAfterALoad)
{
    scratch.write("maps/waves/one.xml",
                  "<waves><event time=\"2000\" target=\"late\"/><event time=\"1000\" target=\"b\"/>"
                  "<event time=\"1000\" target=\"a\"/><event target=\"first\"/>"
                  "<event time=\"500\" target=\"nobody\"/></waves>");
    loadLevel();
    std::vector<TriggerRecorder*> recs;
    for (const char* id : {"a", "b", "late", "first"})
        recs.push_back(addRecorder(id));
    WaveController* wave = addWave("maps/waves/one.xml");
    std::string order;
    for (const auto& entry : wave->getEntries())
        order += entry.body->id + " ";
    EXPECT_EQ(order, "first b a late ");  // "nobody" matches no body

    thinkAt(*wave, 100);
    EXPECT_TRUE(recs[3]->activators.empty());  // not active yet
    wave->onTriggered(nullptr);
    thinkAt(*wave, 1101);
    for (int fired : {0, 1, 3})
        EXPECT_EQ(recs[fired]->activators, std::vector<GameBody*>{wave}) << fired;
    EXPECT_TRUE(recs[2]->activators.empty());
    EXPECT_EQ(wave->getEntries().size(), 1u);

    // A missing file gives nothing; one read again for a saved game (active
    // since t = 1000, now 2000) leaves out the events that already fired.
    scratch.write("maps/waves/two.xml",
                  "<waves><event time=\"100\" target=\"a\"/><event time=\"3000\" target=\"b\"/></waves>");
    WaveController* saved = nullptr;
    const std::string out = stdoutOf([&] { saved = addWave("maps/waves/none.xml"); });
    EXPECT_NE(out.find("Could not load wave file: maps\\waves\\none.xml"), std::string::npos);
    EXPECT_TRUE(saved->getEntries().empty());
    saved->wavefile = "maps/waves/two.xml";
    saved->active = true;
    saved->starttime = 1000;
    at(2000);
    saved->loadWaveFile();
    ASSERT_EQ(saved->getEntries().size(), 1u);
    EXPECT_EQ(saved->getEntries()[0].body, recs[1]);
    thinkAt(*saved, 4001);
    EXPECT_EQ(recs[1]->activators.back(), saved);
}

TEST_F(SpawnerWaveTest, ParticleSystemBodyTogglesAndRevertsOnce)
{
    loadLevel(entity("particlesystembody", "steam", 0, 200,
                     attribute("systemid", "steam") + attribute("reverttimer", "3000")) +
              entity("particlesystembody", "oneshot", 0, 300,
                     attribute("systemid", "steam") + attribute("on", "true")));
    auto* steam = find<ParticleSystemBody>("steam");
    auto* oneshot = find<ParticleSystemBody>("oneshot");
    ASSERT_TRUE(steam && oneshot);
    EXPECT_FALSE(steam->on);
    at(0);
    steam->onTriggered(nullptr);
    EXPECT_TRUE(steam->on);
    at(1000);
    steam->onTriggered(nullptr);  // ignored until it reverts
    EXPECT_TRUE(steam->on);
    thinkAt(*steam, 3000);
    EXPECT_TRUE(steam->on);
    thinkAt(*steam, 3001);
    EXPECT_FALSE(steam->on);
    steam->onTriggered(nullptr);
    EXPECT_TRUE(steam->on);

    oneshot->onTriggered(nullptr);
    EXPECT_FALSE(oneshot->on);
    thinkAt(*oneshot, 100000);
    oneshot->onTriggered(nullptr);
    EXPECT_FALSE(oneshot->on);
}

TEST_F(SpawnerWaveTest, SoundBodyPlaysInsideEarshotAndStopsOutside)
{
    loadLevel(entity("soundbody", "hum", 0, 200,
                     attribute("sound", "data/sounds/hum.wav") + attribute("volume", "90") +
                         attribute("loops", "-1")));
    auto* hum = find<SoundBody>("hum");
    ASSERT_NE(hum, nullptr);
    player->setPosition(Vector(hum->pos.x + 528.0f, hum->pos.y));
    hum->think(0.025f);
    EXPECT_TRUE(sound->names.empty());
    player->setPosition(Vector(hum->pos.x + 527.0f, hum->pos.y));
    hum->think(0.025f);
    hum->think(0.025f);  // once, not every think
    EXPECT_EQ(sound->names, std::vector<std::string>{"data/sounds/hum.wav"});
    player->setPosition(Vector(hum->pos.x, hum->pos.y + 600.0f));
    hum->think(0.025f);
    EXPECT_EQ(sound->stopped, std::vector<int>{3});
    EXPECT_FALSE(hum->isPlaying());
}

TEST_F(SpawnerWaveTest, LevelChangeRecordsTheTimeAndRequestsTheLevel)
{
    createVar("recordleveltimes", "1", "");
    loadLevel(entity("levelchange", "exit", 0, 200,
                     attribute("leveltarget", "test") + attribute("targetspawn", "west")));
    auto* exit = find<LevelChange>("exit");
    ASSERT_NE(exit, nullptr);
    EXPECT_EQ(exit->leveltarget, "test.xml");
    player->properties.cash = 75;
    game->setPendingSaveName("slot1");
    at(4321);
    touch(*exit, *player);
    EXPECT_TRUE(game->isLevelPending());
    touch(*exit, *player);  // already leaving: no second record
    EXPECT_EQ(TempDir::read("leveltimes.txt"), "gameplaytest : slot1 : 4321 : Cash: 75\n");
}
