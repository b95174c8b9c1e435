// Levels that went through Tiled and back: tests/tiled/roundtrip.sh exports
// every shipped level with the game's Tiled extension into BQ_ROUNDTRIP_DIR
// and runs this test, which loads each original and its copy and requires
// the same world: the demo hash and every body as a saved game writes it.
#include "TestPaths.h"
#include <gtest/gtest.h>

#include <tinyxml.h>

#include <cstdlib>

#include "core/WorldHash.h"
#include "world/level/LevelFixture.h"

using worldtest::readFile;

class TiledRoundTripTest : public LevelFixture {
protected:
    struct World {
        uint64_t hash = 0;
        std::vector<std::string> bodies;
        // Written text rounds floats; the polygons must match to the bit.
        std::vector<float> geometry;
    };

    World load(const std::string& text)
    {
        dir.write("maps/roundtrip.xml", text);
        captured([&] { game.loadLevel("roundtrip", ""); });
        World world;
        EXPECT_TRUE(game.isLevelLoaded());
        world.hash = WorldHash::compute(game).world;
        for (Body* body : game.getBodies()) {
            TiXmlElement parent("parent");
            LevelLoader::writeBody(&parent, *body);
            TiXmlPrinter printer;
            parent.Accept(&printer);
            world.bodies.push_back(printer.CStr());
            for (const Vector& v : body->worldVertices)
                world.geometry.insert(world.geometry.end(), {v.x, v.y, v.z});
            for (const TexCoord& t : body->texCoords)
                world.geometry.insert(world.geometry.end(), {t.u, t.v});
            for (const RGBAColour& c : body->colours)
                world.geometry.insert(world.geometry.end(), {c.r, c.g, c.b, c.a});
        }
        return world;
    }
};

TEST_F(TiledRoundTripTest, EveryExportedLevelLoadsAsTheSameWorld)
{
    const char* exported = std::getenv("BQ_ROUNDTRIP_DIR");
    if (!exported || !*exported)
        GTEST_SKIP() << "run through tests/tiled/roundtrip.sh, which exports the levels with Tiled";

    const std::vector<std::string> names = worldtest::filesIn(exported);
    ASSERT_FALSE(names.empty()) << exported;

    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        const World original = load(readFile(testSourceDir() + "/maps/" + name));
        const World copy = load(readFile(std::string(exported) + "/" + name));
        ASSERT_FALSE(original.bodies.empty());
        EXPECT_EQ(original.hash, copy.hash);
        EXPECT_TRUE(original.geometry == copy.geometry);
        ASSERT_EQ(original.bodies.size(), copy.bodies.size());
        for (size_t i = 0; i < original.bodies.size(); ++i)
            EXPECT_EQ(original.bodies[i], copy.bodies[i]) << "body " << i;
    }
}
