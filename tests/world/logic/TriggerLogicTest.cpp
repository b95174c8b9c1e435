// Triggers, switches, slots, messages, target groups and checkpoints: when
// they fire, whom they tell and when they re-arm.
#include <gtest/gtest.h>

#include "input/GameInput.h"
#include "render/TextHudItem.h"
#include "world/logic/LogicFixture.h"
#include "world/logic/BatterySlot.h"
#include "world/logic/Checkpoint.h"
#include "world/logic/MessageBody.h"
#include "world/logic/MessengerBody.h"
#include "world/logic/Switch.h"
#include "world/logic/TargetGroup.h"
#include "world/logic/Trigger.h"

class TriggerLogicTest : public LogicFixture {};

TEST_F(TriggerLogicTest, TriggersFireForThePlayerAndRearmAfterTheirTimerAndSlotsTakeOnlyABattery)
{
    loadLevel(entity("trigger", "t", 0, 200, attribute("untriggertimer", "1000")) +
              entity("trigger", "once", 0, 300, attribute("triggeronce", "true")) +
              entity("trigger", "plain", 0, 400) + entity("batteryslot", "slot", 0, 500) +
              entity("battery", "bat", 50, 50));
    auto* trigger = find<Trigger>("t");
    auto* once = find<Trigger>("once");
    auto* plain = find<Trigger>("plain");
    auto* slot = find<BatterySlot>("slot");
    Body* battery = find<Body>("bat");
    ASSERT_TRUE(trigger && once && plain && slot && battery);
    TriggerRecorder* rec = addRecorder("rec");
    TriggerRecorder* other = addRecorder("other");
    trigger->addTarget(rec);
    once->addTarget(other);
    plain->addTarget(other);
    slot->addTarget(other);

    touch(*trigger, *battery);
    EXPECT_TRUE(rec->activators.empty()) << "only the player sets one off";
    // At 1000 ms it is not past the timer yet.
    const std::pair<float, size_t> steps[] = {{0, 1}, {500, 1}, {1000, 1}, {1001, 2}};
    for (const auto& [ms, fired] : steps) {
        thinkAt(*trigger, ms);
        touch(*trigger, *player);
        EXPECT_EQ(rec->activators.size(), fired) << ms;
    }
    EXPECT_EQ(rec->activators.back(), trigger);

    // Once per level, however long; timer 0 re-arms at the very next think.
    touch(*once, *player);
    thinkAt(*once, 100000);
    touch(*once, *player);
    EXPECT_EQ(other->activators.size(), 1u);
    touch(*plain, *player);
    thinkAt(*plain, 100001);
    touch(*plain, *player);
    EXPECT_EQ(other->activators.size(), 3u);

    // A slot takes a battery, never the player, and keeps it.
    touch(*slot, *player);
    EXPECT_FALSE(slot->triggered);
    touch(*slot, *battery);
    EXPECT_TRUE(slot->triggered);
    EXPECT_EQ(other->activators.size(), 4u);
    EXPECT_FALSE(battery->cancleanup);
    EXPECT_TRUE(battery->hasGlow);
}

TEST_F(TriggerLogicTest, TargetGroupsPassTheSwitchOnAndFireEachTargetOnceWhenTheyLoop)
{
    loadLevel(entity("switch", "sw", 0, 200,
                     attribute("untriggeredimage", "data/images/techpanel1.png") +
                         attribute("triggeredimage", "data/images/techpanel2.png") +
                         attribute("untriggertimer", "500"),
                     "group") +
              entity("targetgroup", "group", 0, 300) + entity("targetgroup", "self", 0, 400, "", "self") +
              entity("targetgroup", "g1", 0, 500, "", "g2") + entity("targetgroup", "g2", 0, 600, "", "g1,g2"));
    auto* sw = find<Switch>("sw");
    auto* group = find<TargetGroup>("group");
    auto* self = find<TargetGroup>("self");
    auto* g1 = find<TargetGroup>("g1");
    ASSERT_TRUE(sw && group && self && g1);
    EXPECT_EQ(sw->texture, "data/images/techpanel1.png");
    TriggerRecorder* a = addRecorder("a");
    TriggerRecorder* b = addRecorder("b");
    TriggerRecorder* rec = addRecorder("rec");
    group->addTarget(a);
    group->addTarget(b);
    self->addTarget(rec);
    g1->addTarget(rec);

    at(0);
    touch(*sw, *player);
    EXPECT_EQ(a->activators, std::vector<GameBody*>{sw});
    EXPECT_EQ(b->activators, std::vector<GameBody*>{sw});
    EXPECT_EQ(sw->texture, "data/images/techpanel2.png");
    EXPECT_EQ(sound->ids, std::vector<int>{33});

    at(501);
    sw->textureId = 7;
    sw->think(0.025f);
    EXPECT_FALSE(sw->triggered);
    EXPECT_EQ(sw->texture, "data/images/techpanel1.png");
    EXPECT_EQ(sw->textureId, -1);

    // Groups naming themselves or each other end the chain, and fire again next time.
    self->onTriggered(player);
    EXPECT_EQ(rec->activators.size(), 1u);
    g1->onTriggered(player);
    EXPECT_EQ(rec->activators.size(), 2u);
    g1->onTriggered(player);
    EXPECT_EQ(rec->activators.size(), 3u);
}

TEST_F(TriggerLogicTest, MessageBodyFiredByAnotherArmsSilentlyAndMessagesNameThePlayersKeys)
{
    loadLevel(entity("messagebody", "msg", 0, 200,
                     attribute("message", "Fire: $bind:+attack") + attribute("untriggertimer", "1000")) +
              entity("messengerbody", "herald", 0, 300, attribute("message", "Save: $bind{savegame quicksave}")));
    auto* msg = find<MessageBody>("msg");
    auto* herald = find<MessengerBody>("herald");
    ASSERT_TRUE(msg && herald);
    TriggerRecorder* rec = addRecorder("rec");
    msg->addTarget(rec);
    game->getGameInput()->setBinding("x", "+attack");
    game->getGameInput()->setBinding("f5", "savegame quicksave");

    at(0);
    msg->onTriggered(herald);
    EXPECT_TRUE(msg->triggered);
    EXPECT_EQ(lastHudMessage(), "");
    touch(*msg, *player);
    EXPECT_EQ(lastHudMessage(), "");
    EXPECT_TRUE(rec->activators.empty());

    thinkAt(*msg, 1001);
    touch(*msg, *player);
    EXPECT_EQ(lastHudMessage(), "Fire: X");
    EXPECT_EQ(rec->activators.size(), 1u);

    touch(*herald, *player);
    EXPECT_EQ(lastHudMessage(), "Fire: X");
    herald->onTriggered(msg);
    EXPECT_EQ(lastHudMessage(), "Save: F5");
}

TEST_F(TriggerLogicTest, DeathAfterACheckpointGoesBackToItsSaveUntilTheLevelIsLoadedAfresh)
{
    const std::string level = spawnPoint("start", -500, 8, true) +
                              entity("checkpoint", "cp", -200, 8, attribute("triggeronce", "true"));
    loadLevel(level);
    game->setPendingSaveName("my run");
    auto dieAndWait = [this] {
        player->die();
        const TextHudItem* notice = GameplaySingleton::get().hud->positionedMessage;
        const std::string said = notice && notice->visible ? notice->text : "";
        frames(100);
        return said;
    };

    EXPECT_EQ(dieAndWait(), "You died - restart in 2 s");
    EXPECT_NEAR(player->pos.x, -500.0f, 1.0f);

    placePlayer(-200.0f, 8.0f);
    auto* cp = find<Checkpoint>("cp");
    ASSERT_NE(cp, nullptr);
    touch(*cp, *player);
    EXPECT_TRUE(cp->triggered);
    EXPECT_EQ(lastHudMessage(), "Saving Checkpoint...");
    frame();
    EXPECT_TRUE(game->hasCheckpoint());
    for (int death = 0; death < 2; ++death) {
        placePlayer(600.0f, 8.0f);
        EXPECT_EQ(dieAndWait(), "You died - checkpoint in 2 s");
        EXPECT_FALSE(player->dead);
        EXPECT_NEAR(player->pos.x, -200.0f, 1.0f) << death;
        EXPECT_EQ(lastHudMessage(), "Back at the checkpoint");
        EXPECT_EQ(game->getPendingSaveName(), "my run");
    }

    loadLevel(level);
    EXPECT_FALSE(game->hasCheckpoint());
    placePlayer(600.0f, 8.0f);
    EXPECT_EQ(dieAndWait(), "You died - restart in 2 s");
    EXPECT_NEAR(player->pos.x, -500.0f, 1.0f);
}
