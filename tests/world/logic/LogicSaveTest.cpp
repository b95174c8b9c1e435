// Every saved key of the logic and mover bodies survives the level writer
// and reader of saved games.
#include <gtest/gtest.h>
#include <tinyxml.h>

#include "world/level/LevelLoader.h"
#include "world/logic/LogicFixture.h"
#include "world/logic/ParticleSystemBody.h"
#include "world/logic/Spawner.h"
#include "world/logic/Trigger.h"
#include "world/logic/WaveController.h"
#include "world/movers/AlphaDoor.h"
#include "world/movers/Door.h"
#include "world/movers/PainBody.h"
#include "world/movers/TriggeredJumpPad.h"

class LogicSaveTest : public LogicFixture {
protected:
    // Writes `body` as a saved game does and reads it back as a new body.
    template <class T>
    std::unique_ptr<T> roundTrip(T& body)
    {
        body.makeRectangle(16.0f, 16.0f);
        body.entity = true;
        TiXmlElement objects("Objects");
        LevelLoader::writeBody(&objects, body);
        LevelLoader loader(*game, *game->getBodyFactory());
        std::vector<std::unique_ptr<Body>> out;
        loader.loadObjects(&objects, false, true, out);
        if (out.size() != 1 || !dynamic_cast<T*>(out[0].get()))
            return nullptr;
        return std::unique_ptr<T>(static_cast<T*>(out[0].release()));
    }
};

TEST_F(LogicSaveTest, TriggerSpawnerWaveAndParticleStateSurvive)
{
    Trigger trigger;
    trigger.triggered = true;
    trigger.untriggerTime = 1234.5f;
    auto t = roundTrip(trigger);
    ASSERT_NE(t, nullptr);
    EXPECT_TRUE(t->triggered);
    EXPECT_FLOAT_EQ(t->untriggerTime, 1234.5f);

    Spawner spawner;
    spawner.nextspawn = 50.0f;
    spawner.numspawned = 4;
    spawner.active = true;
    spawner.triggered = true;
    spawner.untriggertime = 75.0f;
    auto s = roundTrip(spawner);
    ASSERT_NE(s, nullptr);
    EXPECT_FLOAT_EQ(s->nextspawn, 50.0f);
    EXPECT_EQ(s->numspawned, 4);
    EXPECT_TRUE(s->active && s->triggered);
    EXPECT_FLOAT_EQ(s->untriggertime, 75.0f);

    WaveController wave;
    wave.active = true;
    wave.starttime = 900.0f;
    auto w = roundTrip(wave);
    ASSERT_NE(w, nullptr);
    EXPECT_TRUE(w->active);
    EXPECT_FLOAT_EQ(w->starttime, 900.0f);

    ParticleSystemBody effect;
    effect.on = true;
    effect.wastriggered = true;
    effect.reverttime = 321.0f;
    auto e = roundTrip(effect);
    ASSERT_NE(e, nullptr);
    EXPECT_TRUE(e->on && e->wastriggered);
    EXPECT_FLOAT_EQ(e->reverttime, 321.0f);
}

TEST_F(LogicSaveTest, MoverStateSurvives)
{
    Door door;
    door.startpoint = Vector(10.0f, 20.0f);
    door.targetpos = Vector(10.0f, 84.0f);
    door.offset = Vector(0.0f, 64.0f);
    door.closetime = 5000.0f;
    door.timeopen = 3000.0f;
    door.speed = 32.0f;
    door.isopen = true;
    door.isclosing = true;
    door.ydirection = true;
    auto d = roundTrip(door);
    ASSERT_NE(d, nullptr);
    EXPECT_TRUE(d->startpointSet);
    EXPECT_FLOAT_EQ(d->startpoint.y, 20.0f);
    EXPECT_FLOAT_EQ(d->targetpos.y, 84.0f);
    EXPECT_FLOAT_EQ(d->offset.y, 64.0f);
    EXPECT_FLOAT_EQ(d->closetime, 5000.0f);
    EXPECT_FLOAT_EQ(d->timeopen, 3000.0f);
    EXPECT_FLOAT_EQ(d->speed, 32.0f);
    EXPECT_TRUE(d->isopen && d->isclosing && d->ydirection);
    EXPECT_FALSE(d->isopening || d->xdirection);

    AlphaDoor field;
    field.triggered = true;
    field.isopen = true;
    field.timeopen = 800.0f;
    field.reverttime = 1800.0f;
    auto f = roundTrip(field);
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(f->triggered && f->isopen);
    EXPECT_FLOAT_EQ(f->timeopen, 800.0f);
    EXPECT_FLOAT_EQ(f->reverttime, 1800.0f);

    TriggeredJumpPad pad;
    pad.ison = true;
    pad.triggered = true;
    pad.untriggertime = 42.0f;
    auto p = roundTrip(pad);
    ASSERT_NE(p, nullptr);
    EXPECT_TRUE(p->ison && p->triggered);
    EXPECT_FLOAT_EQ(p->untriggertime, 42.0f);

    PainBody pain;
    pain.wastriggered = true;
    pain.reverttime = 99.0f;
    auto q = roundTrip(pain);
    ASSERT_NE(q, nullptr);
    EXPECT_TRUE(q->wastriggered);
    EXPECT_FLOAT_EQ(q->reverttime, 99.0f);
}
