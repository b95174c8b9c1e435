#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <typeinfo>

#include "core/Game.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"
#include "world/WorldTestHelpers.h"
#include "world/body/Body.h"
#include "world/gamebody/GameBody.h"
#include "world/level/BodyFactory.h"
#include "world/level/GameBodyFactory.h"

using worldtest::captured;

TEST(BodyFactoryTest, TypeTableHoldsEveryNameOnceEachCreatingItsOwnTypeAndOthersDefault)
{
    const auto& names = GameBodyFactory::typeNames();
    ASSERT_EQ(names.size(), 94u);  // the 93 level types and the practice "target"
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());

    // The game's factory reaches the table through its fallback.
    Game game(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
    BodyFactory& factory = *game.getBodyFactory();
    const BodyFactory* table = factory.getFallbackFactory();
    ASSERT_EQ(table->getPrototypes().size(), names.size());
    for (size_t i = 0; i < names.size(); ++i) {
        const std::string& name = names[i];
        EXPECT_EQ(table->getPrototypes()[i]->type, name);
        std::unique_ptr<Body> body;
        const std::string out = captured([&] { body = factory.create(name); });
        ASSERT_NE(body, nullptr) << name;
        EXPECT_EQ(body->type, name);
        const Body& made = *body;
        EXPECT_NE(typeid(made), typeid(Body)) << name << " has no class of its own";
        EXPECT_EQ(out, "") << name;
        EXPECT_NE(body.get(), table->findPrototype(name)) << "a fresh clone, not the prototype";
    }

    // Names are case-sensitive; others make a plain body and say so.
    std::unique_ptr<Body> capital, plain, empty;
    EXPECT_EQ(captured([&] { capital = factory.create("Shotgun"); }), "Defaulting to Body for: Shotgun\n");
    EXPECT_EQ(capital->type, "default");
    const Body& defaulted = *capital;
    EXPECT_EQ(typeid(defaulted), typeid(Body));

    EXPECT_EQ(captured([&] { plain = factory.create("default"); }), "") << "the game's own prototype";
    const Body& own = *plain;
    EXPECT_EQ(typeid(own), typeid(Body));

    EXPECT_EQ(captured([&] { empty = factory.create(""); }), "Defaulting to Body for: \n");
    EXPECT_EQ(empty->type, "default");
}

TEST(BodyFactoryTest, FirstRegisteredPrototypeWinsAndFallbackLoopsEnd)
{
    class Tagged : public GameBody {
    public:
        explicit Tagged(int t) : tag(t) { type = "thing"; }
        std::unique_ptr<Body> clone() const override { return std::make_unique<Tagged>(tag); }
        int tag;
    };
    BodyFactory a, b;
    a.addPrototype(std::make_unique<Tagged>(1));
    a.addPrototype(std::make_unique<Tagged>(2));
    auto made = a.create("thing");
    ASSERT_NE(dynamic_cast<Tagged*>(made.get()), nullptr);
    EXPECT_EQ(static_cast<Tagged*>(made.get())->tag, 1);

    // b only knows "thing" through a; a cycle back to b must not recurse.
    b.setFallbackFactory(&a);
    a.setFallbackFactory(&b);
    EXPECT_NE(dynamic_cast<Tagged*>(b.create("thing").get()), nullptr);
    std::unique_ptr<Body> unknown;
    EXPECT_EQ(captured([&] { unknown = b.create("nothing"); }), "Defaulting to Body for: nothing\n");
    ASSERT_NE(unknown, nullptr);
    EXPECT_EQ(unknown->type, "default");
}
