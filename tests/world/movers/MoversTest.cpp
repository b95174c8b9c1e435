// Doors, pads, teleporters, liquids, pain zones, attractors and barrels.
#include <gtest/gtest.h>
#include <tinyxml.h>

#include "world/logic/LogicFixture.h"
#include "world/movers/AlphaDoor.h"
#include "world/movers/Attractor.h"
#include "world/movers/Clip.h"
#include "world/movers/Door.h"
#include "world/movers/ExplodingBarrel.h"
#include "world/movers/JumpPad.h"
#include "world/movers/Lava.h"
#include "world/movers/LiquidPhase.h"
#include "world/movers/PainBody.h"
#include "world/movers/Teleporter.h"
#include "world/movers/TriggeredJumpPad.h"
#include "world/movers/Water.h"

class MoversTest : public LogicFixture {
protected:
    // A hurtable body in the world at (x, y).
    GameBody* addVictim(float x, float y, float mass = 1.0f)
    {
        auto* body = new GameBody();
        body->setMass(mass);
        body->takedamage = true;
        body->showdamage = false;
        return spawn(body, x, y, 8.0f);
    }
};

TEST_F(MoversTest, DoorsOpenWaitAndCloseWithoutOvershootingOrStayOpenAndForceFieldsVanish)
{
    const std::string solid = "mass=\"0\" solid=\"true\" entity=\"true\"";
    loadLevel(box("door", "door", -16, 100, 16, 132, solid,
                  attribute("openoffset", "0,64") + attribute("speed", "32") + attribute("timeopen", "3000")) +
              box("door", "gate", 400, 100, 432, 132, solid,
                  attribute("openoffset", "64,0") + attribute("speed", "640")) +
              box("clip", "clip", 300, 300, 308, 308, solid) +
              entity("alphadoor", "field", 0, 400, attribute("timeopen", "1000")));
    auto* door = find<Door>("door");
    auto* gate = find<Door>("gate");
    auto* clip = find<Clip>("clip");
    auto* field = find<AlphaDoor>("field");
    ASSERT_TRUE(door && gate && clip && field);
    // Clips stop everything but doors, unseen.
    EXPECT_FALSE(gate->collidesWith(clip));
    EXPECT_TRUE(gate->collidesWith(player));
    EXPECT_FALSE(clip->visible);
    EXPECT_TRUE(clip->solid);
    player->setPosition(Vector(-200.0f, 20.0f));
    const float startY = door->pos.y, startX = gate->pos.x;
    EXPECT_FLOAT_EQ(door->startpoint.y, startY);

    const float t0 = levelTime();
    door->onTriggered(nullptr);
    gate->onTriggered(nullptr);
    EXPECT_TRUE(door->isopening);
    float openedAt = -1, closingAt = -1, closedAt = -1;
    for (int i = 0; i < 400 && closedAt < 0; ++i) {
        frame(25);
        const float t = levelTime() - t0;
        ASSERT_GE(door->pos.y, startY - 0.001f) << "at " << t;
        ASSERT_LE(door->pos.y, startY + 64.001f) << "at " << t;
        if (openedAt < 0 && door->isopen)
            openedAt = t;
        if (closingAt < 0 && door->isclosing)
            closingAt = t;
        if (closingAt >= 0 && !door->isopen)
            closedAt = t;
        if (i == 40)
            door->onTriggered(nullptr);  // while opening: ignored
    }
    EXPECT_NEAR(openedAt, 2000.0f, 150.0f);
    EXPECT_NEAR(closingAt - openedAt, 3000.0f, 150.0f);
    EXPECT_NEAR(closedAt - closingAt, 2000.0f, 150.0f);
    EXPECT_FLOAT_EQ(door->pos.y, startY);
    EXPECT_FALSE(door->isopening || door->isclosing);
    // Without a time open the gate stays open.
    EXPECT_TRUE(gate->isopen);
    EXPECT_FALSE(gate->isclosing);
    EXPECT_FLOAT_EQ(gate->pos.x, startX + 64.0f);

    // A force field vanishes when fired and returns a time open after the last firing.
    EXPECT_TRUE(field->visible);
    at(0);
    field->onTriggered(nullptr);
    EXPECT_FALSE(field->visible);
    EXPECT_FALSE(field->solid);
    at(800);
    field->onTriggered(nullptr);
    thinkAt(*field, 1500);
    EXPECT_FALSE(field->visible);
    thinkAt(*field, 1801);
    EXPECT_TRUE(field->visible);
    EXPECT_TRUE(field->solid);
}

// A door read from a saved game keeps the start point it saved, not the
// place it stood when the game was saved.
TEST_F(MoversTest, ARestoredDoorKeepsItsSavedStartPoint)
{
    Door door;
    TiXmlElement state("state");
    door.writeState(&state);
    state.SetAttribute("startpoint", "10,20");
    door.readState(&state);
    door.setPosition(Vector(10.0f, 84.0f));
    door.afterTargets();
    EXPECT_FLOAT_EQ(door.startpoint.y, 20.0f);
}

TEST_F(MoversTest, PadsSetOrAddVelocityAndTeleportersMoveToTheirTarget)
{
    loadLevel(entity("jumppad", "pad", 0, 200, attribute("speed", "0,500")) +
              entity("jumppad", "boost", 0, 300, attribute("speed", "0,500") + attribute("additive", "true")) +
              entity("triggeredjumppad", "tpad", 0, 400,
                     attribute("speed", "100,0") + attribute("untriggertimer", "1000")) +
              entity("teleporter", "tp", 0, 500,
                     attribute("changevelocity", "true") + attribute("exitvelocity", "-50,120"), "dest") +
              entity("teleporter", "dud", 0, 600) + entity("namedpoint", "dest", 600, 400));
    auto* pad = find<JumpPad>("pad");
    auto* boost = find<JumpPad>("boost");
    auto* tpad = find<TriggeredJumpPad>("tpad");
    auto* tp = find<Teleporter>("tp");
    auto* dud = find<Teleporter>("dud");
    ASSERT_TRUE(pad && boost && tpad && tp && dud);
    player->vel = Vector(30.0f, -200.0f);
    touch(*pad, *player);
    EXPECT_FLOAT_EQ(player->vel.x, 0.0f);
    EXPECT_FLOAT_EQ(player->vel.y, 500.0f);
    player->vel = Vector(30.0f, -200.0f);
    touch(*boost, *player);
    EXPECT_FLOAT_EQ(player->vel.x, 30.0f);
    EXPECT_FLOAT_EQ(player->vel.y, 300.0f);
    EXPECT_EQ(sound->ids, (std::vector<int>{28, 28}));

    player->vel = Vector();
    touch(*tpad, *player);
    EXPECT_FLOAT_EQ(player->vel.x, 0.0f);  // starts off
    at(0);
    tpad->onTriggered(nullptr);
    touch(*tpad, *player);
    EXPECT_FLOAT_EQ(player->vel.x, 100.0f);
    thinkAt(*tpad, 1001);
    EXPECT_FALSE(tpad->ison);

    // A teleporter without a target does nothing.
    const Vector before = player->pos;
    touch(*dud, *player);
    EXPECT_FLOAT_EQ(player->pos.x, before.x);
    EXPECT_EQ(sound->ids.size(), 3u);
    player->vel = Vector(10.0f, -300.0f);
    touch(*tp, *player);
    EXPECT_FLOAT_EQ(player->pos.x, 600.0f);
    EXPECT_FLOAT_EQ(player->pos.y, 400.0f);
    EXPECT_FLOAT_EQ(player->vel.x, -50.0f);
    EXPECT_FLOAT_EQ(player->vel.y, 120.0f);
    EXPECT_EQ(sound->ids, (std::vector<int>{28, 28, 28, 19, 19}));

    tp->changevelocity = false;
    player->vel = Vector(10.0f, -300.0f);
    touch(*tp, *player);
    EXPECT_FLOAT_EQ(player->vel.y, -300.0f);
}

TEST_F(MoversTest, WaterSplashesOnEntryLavaBurnsEvery200msAndPainZonesHurtWhileOn)
{
    loadLevel(entity("water", "pool", 0, 200) + entity("lava", "pit", 0, 300) +
              entity("painbody", "zap", 0, 400, attribute("on", "true") + attribute("pain", "7")) +
              entity("painbody", "pulse", 0, 500, attribute("pain", "5") + attribute("reverttimer", "500")));
    auto* pool = find<Water>("pool");
    auto* pit = find<Lava>("pit");
    auto* zap = find<PainBody>("zap");
    auto* pulse = find<PainBody>("pulse");
    ASSERT_TRUE(pool && pit && zap && pulse);
    EXPECT_TRUE(pool->isLiquid());

    GameBody* victim = addVictim(-500, 500);
    victim->inliquidlastframe = false;
    touch(*pool, *victim);
    victim->inliquidlastframe = true;
    touch(*pool, *victim);
    EXPECT_EQ(sound->ids, std::vector<int>{11});
    EXPECT_TRUE(victim->inliquid);
    EXPECT_FLOAT_EQ(victim->liquidfriction, 0.8f);

    victim->health = 100;
    victim->nextpaintime = 0.0f;
    for (int t = 1; t <= 1000; ++t) {
        at(static_cast<float>(t));
        touch(*pit, *victim);
    }
    // Strictly after the last burn's 200 ms: at 1, 202, 403, 604 and 805 ms.
    EXPECT_EQ(victim->health, 50);
    EXPECT_FLOAT_EQ(victim->nextpaintime, 1005.0f);

    victim->health = 100;
    victim->nextpaintime = 0.0f;
    for (const float ms : {1.0f, 50.0f, 102.0f}) {
        at(ms);
        touch(*zap, *victim);
    }
    EXPECT_EQ(victim->health, 86);  // at 1 and 102 ms
    zap->onTriggered(nullptr);
    EXPECT_FALSE(zap->on);
    thinkAt(*zap, 1000);  // reverttimer 0: stays off
    touch(*zap, *victim);
    EXPECT_EQ(victim->health, 86);

    pulse->onTriggered(nullptr);
    EXPECT_TRUE(pulse->on);
    touch(*pulse, *victim);
    EXPECT_EQ(victim->health, 81);
    thinkAt(*pulse, 1501);
    EXPECT_FALSE(pulse->on);
}

TEST_F(MoversTest, LiquidPhaseAdvancesOncePerLevelTime)
{
    LiquidPhase forwards(true), backwards(false);
    EXPECT_FLOAT_EQ(forwards.advance(100.0f, 0.5f), 101.0f);  // reset to now + s, then one move
    EXPECT_FLOAT_EQ(forwards.advance(100.0f, 0.5f), 101.0f);
    EXPECT_FLOAT_EQ(forwards.advance(125.0f, 0.5f), 101.5f);
    EXPECT_FLOAT_EQ(backwards.advance(100.0f, 0.5f), 100.0f);
    EXPECT_FLOAT_EQ(backwards.advance(125.0f, 0.5f), 99.5f);
}

TEST_F(MoversTest, AttractorPullsMovableBodiesInRangeByItsForce)
{
    loadLevel(entity("attractor", "well", 0, 400, attribute("force", "10") + attribute("radius", "100")));
    auto* well = find<Attractor>("well");
    ASSERT_NE(well, nullptr);
    GameBody* near = addVictim(60, 400);
    GameBody* far = addVictim(400, 400);
    GameBody* anchored = addVictim(-60, 400, 0.0f);
    near->constantvelocity = Vector(1.0f, 0.0f);
    player->setPosition(Vector(-900.0f, 20.0f));
    well->think(0.1f);
    EXPECT_FLOAT_EQ(near->vel.x, -10.0f);
    EXPECT_NEAR(near->vel.y, 0.0f, 1e-4f);
    EXPECT_FLOAT_EQ(near->constantvelocity.x, -9.0f);
    EXPECT_FLOAT_EQ(far->vel.x, 0.0f);
    EXPECT_FLOAT_EQ(anchored->vel.x, 0.0f);

    well->force = -10.0f;
    near->vel = Vector();
    well->think(0.1f);
    EXPECT_FLOAT_EQ(near->vel.x, 10.0f);
}

TEST_F(MoversTest, BarrelsExplodeOnceAndSetOffTheirNeighbours)
{
    std::string barrels;
    for (int i = 0; i < 3; ++i)
        barrels += box("explodingbarrel", "b" + std::to_string(i), 400.0f + 24.0f * i, 0, 416.0f + 24.0f * i, 16,
                       "mass=\"1\" solid=\"true\" entity=\"true\"");
    barrels += box("explodingbarrel", "lone", 700, 0, 716, 16, "mass=\"1\" solid=\"true\" entity=\"true\"");
    loadLevel(barrels);
    auto* first = find<ExplodingBarrel>("b0");
    auto* lone = find<ExplodingBarrel>("lone");
    ASSERT_TRUE(first && lone);
    first->takeDamage(1, 0);
    EXPECT_FALSE(first->exploded);
    first->takeDamage(1, 0);
    EXPECT_TRUE(first->exploded);
    EXPECT_EQ(count<ExplodingBarrel>(), 1) << "the row goes up together, the lone barrel stays";
    EXPECT_FALSE(lone->exploded);
    EXPECT_EQ(std::count(sound->ids.begin(), sound->ids.end(), 0), 3);
}
