// Every saved key of the logic and mover bodies survives the level writer
// and reader of saved games.
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <algorithm>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "world/WorldTestHelpers.h"
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

namespace {
using Keys = worldtest::SavedKeys;
using worldtest::savedKeys;

template <class T>
std::unique_ptr<GameBody> make()
{
    return std::make_unique<T>();
}
}

class LogicSaveTest : public LogicFixture {
protected:
    // Writes `body` as a saved game does and reads it back as a new body.
    std::unique_ptr<Body> roundTrip(GameBody& body)
    {
        body.makeRectangle(16.0f, 16.0f);
        body.entity = true;
        TiXmlElement objects("Objects");
        LevelLoader::writeBody(&objects, body);
        LevelLoader loader(*game, *game->getBodyFactory());
        std::vector<std::unique_ptr<Body>> out;
        loader.loadObjects(&objects, false, true, out);
        return out.size() == 1 ? std::move(out[0]) : nullptr;
    }
};

TEST_F(LogicSaveTest, EverySavedKeyOfTheLogicAndMoverBodiesSurvives)
{
    // Each class's own keys, with values unlike the defaults, as the writer spells them.
    const std::pair<std::unique_ptr<GameBody> (*)(), Keys> cases[] = {
        {make<Trigger>, {{"triggered", "true"}, {"untriggertime", "1234.500000"}}},
        {make<Spawner>,
         {{"nextspawn", "50.000000"}, {"numspawned", "4"}, {"active", "true"}, {"triggered", "true"},
          {"untriggertime", "75.000000"}}},
        {make<WaveController>, {{"active", "true"}, {"starttime", "900.000000"}}},
        {make<ParticleSystemBody>, {{"on", "true"}, {"wastriggered", "true"}, {"reverttime", "321.000000"}}},
        {make<Door>,
         {{"startpoint", Vector(10.0f, 20.0f).toString()}, {"targetpos", Vector(10.0f, 84.0f).toString()},
          {"offset", Vector(0.0f, 64.0f).toString()}, {"closetime", "5000.000000"}, {"timeopen", "3000.000000"},
          {"speed", "32.000000"}, {"isopen", "true"}, {"isclosing", "true"}, {"ydirection", "true"}}},
        {make<AlphaDoor>,
         {{"triggered", "true"}, {"isopen", "true"}, {"timeopen", "800.000000"}, {"reverttime", "1800.000000"}}},
        {make<TriggeredJumpPad>, {{"ison", "true"}, {"triggered", "true"}, {"untriggertime", "42.000000"}}},
        {make<PainBody>, {{"wastriggered", "true"}, {"reverttime", "99.000000"}}},
    };
    for (const auto& [create, keys] : cases) {
        std::unique_ptr<GameBody> body = create();
        TiXmlElement state("state");
        body->writeState(&state);
        for (const auto& [key, value] : keys)
            state.SetAttribute(key.c_str(), value.c_str());
        body->readState(&state);

        std::unique_ptr<Body> copy = roundTrip(*body);
        auto* read = dynamic_cast<GameBody*>(copy.get());
        ASSERT_NE(read, nullptr) << keys.front().first;
        ASSERT_EQ(typeid(*read), typeid(*body));
        const Keys written = savedKeys(*read);
        for (const auto& key : keys)
            EXPECT_NE(std::find(written.begin(), written.end(), key), written.end())
                << typeid(*body).name() << " lost " << key.first << "=" << key.second;
        EXPECT_EQ(written, savedKeys(*body)) << typeid(*body).name();
        if (auto* door = dynamic_cast<Door*>(read)) {
            EXPECT_TRUE(door->startpointSet) << "a saved start point is not taken from where the door stands";
        }
    }
}
