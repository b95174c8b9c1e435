#pragma once
// A headless game with the gameplay controller installed, a manual clock and
// a small hand-built world: a floor from x -1000 to 1000 at y 0 and a ledge
// 32 units high from x 100 to 300, or a shipped level. Frames are stepped by
// advancing the clock; helpers put bodies in the world, move, find, count and
// touch them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "TestPaths.h"
#include "console/CommandRegistry.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "core/Game.h"
#include "core/ManualClock.h"
#include "resources/TempDir.h"
#include "gameplay/DefaultGameplay.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/player/GameplayInput.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/WeaponDefinitions.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"
#include "world/body/Body.h"
#include "world/quadtree/QuadTree.h"

class GameplayFixture : public ::testing::Test {
protected:
    // ctest runs tests as parallel processes; each writes its levels privately.
    TempDir scratch;

    void SetUp() override
    {
        Clock::install(&clock);
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
        createVar("movemode", "2", "");
        createVar("maxgibs", "10", "");
        createVar("drawtimer", "0", "");
        GameplayInput::fireWeaponId = 0;
        game = std::make_unique<Game>(makeRenderer(), makeSound());
        game->getTimer().start();
        game->setGravityOverride(-80.0f);
        game->startGameplay();
        gameplay = dynamic_cast<DefaultGameplay*>(game->getGameplay());
        player = dynamic_cast<Player*>(game->getPlayer());
        input = dynamic_cast<GameplayInput*>(game->getGameInput());
        ASSERT_NE(gameplay, nullptr);
        ASSERT_NE(player, nullptr);
        ASSERT_NE(input, nullptr);
        input->releaseAll();
    }

    // Weapons with their built-in numbers, whatever data/weapons.xml says,
    // and rand seeded.
    static void builtInWeapons(unsigned seed)
    {
        WeaponDefinitions::clear();
        std::srand(seed);
    }

    // The game's sound system; fixtures that listen for sounds override it.
    virtual std::unique_ptr<ISound> makeSound() { return std::make_unique<NullSound>(); }
    // The same for the renderer.
    virtual std::unique_ptr<IRenderer> makeRenderer() { return std::make_unique<NullRenderer>(); }

    void TearDown() override
    {
        if (input)
            input->releaseAll();
        game.reset();
        WeaponDefinitions::clear();
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
        Clock::install(nullptr);
    }

    // A "P" element for a box from (x0, y0) to (x1, y1).
    static std::string box(const std::string& type, const std::string& id, float x0, float y0, float x1,
                           float y1, const std::string& params = "mass=\"0\" solid=\"true\"",
                           const std::string& attributes = "")
    {
        auto v = [](float x, float y) {
            return "<v origin=\"" + std::to_string(x) + "," + std::to_string(y) +
                   "\" colour=\"255,255,255,255\"/>";
        };
        std::string p = "<P type=\"" + type + "\" idname=\"" + id + "\"><params " + params + "/><verts>" +
                        v(x0, y0) + v(x1, y0) + v(x1, y1) + v(x0, y1) + "</verts>";
        if (!attributes.empty())
            p += "<attributes>" + attributes + "</attributes>";
        return p + "</P>";
    }
    static std::string attribute(const std::string& name, const std::string& value)
    {
        return "<a name=\"" + name + "\" value=\"" + value + "\"/>";
    }

    // Writes maps/<name>.xml with the floor, the ledge and `extra`, and loads it.
    void loadLevel(const std::string& extra = "", const std::string& entry = "",
                   const std::string& name = "gameplaytest")
    {
        std::filesystem::create_directories("maps");
        std::ofstream out("maps/" + name + ".xml");
        out << "<level><Objects>" << box("default", "floor", -1000, -100, 1000, 0)
            << box("default", "ledge", 100, 0, 300, 32) << extra << "</Objects></level>";
        out.close();
        game->loadLevel(name, entry);
        ASSERT_TRUE(game->isLevelLoaded());
    }

    // A spawn point (a small non-solid entity) at (x, y).
    static std::string spawnPoint(const std::string& id, float x, float y, bool start)
    {
        return box("spawnpoint", id, x - 4, y - 4, x + 4, y + 4,
                   "mass=\"0\" solid=\"false\" entity=\"true\"",
                   start ? attribute("startpoint", "true") : "");
    }

    // Copies a shipped level (and its waves file, if any) from the source tree and loads it.
    void loadShipped(const std::string& name)
    {
        std::filesystem::create_directories("maps");
        for (const std::string& file : {name + ".xml", name + "_waves.xml"}) {
            const auto from = std::filesystem::path(testSourceDir()) / "maps" / file;
            if (std::filesystem::exists(from))
                std::filesystem::copy_file(from, "maps/" + file, std::filesystem::copy_options::overwrite_existing);
        }
        game->loadLevel(name, "");
        ASSERT_TRUE(game->isLevelLoaded());
    }

    // Makes `body` a w by h box (square when h is 0), assembles it at (x, y)
    // and hands it to the world.
    template <class T>
    T* spawn(T* body, float x, float y, float w = 16.0f, float h = 0.0f)
    {
        body->makeRectangle(w, h > 0.0f ? h : w);
        body->setPosition(Vector(x, y));
        body->transform();
        body->updateBounds();
        body->afterTargets();
        game->spawnBody(body);
        return body;
    }
    template <class T>
    T* spawn(float x, float y, float w = 16.0f, float h = 0.0f)
    {
        return spawn(new T(), x, y, w, h);
    }

    // Moves a body that is already in the world, at rest.
    void place(Body* body, float x, float y)
    {
        body->setPosition(Vector(x, y));
        body->vel = Vector();
        body->transform();
        body->updateBounds();
        game->getQuadTree().update(body);
    }
    void placePlayer(float x, float y) { place(player, x, y); }

    // The first living body called `id`, if it is a T.
    template <class T = Body>
    T* byId(const std::string& id)
    {
        for (Body* b : game->getBodies())
            if (b->id == id && !b->cancleanup)
                return dynamic_cast<T*>(b);
        return nullptr;
    }

    // The first living T, of the given type name when one is given.
    template <class T = Body>
    T* byType(const std::string& type = "")
    {
        for (Body* b : game->getBodies())
            if (auto* t = dynamic_cast<T*>(b); t && !b->cancleanup && (type.empty() || b->type == type))
                return t;
        return nullptr;
    }

    // Living bodies of class T, of the given type name when one is given.
    template <class T = Body>
    int count(const std::string& type = "")
    {
        int n = 0;
        for (Body* b : game->getBodies())
            n += dynamic_cast<T*>(b) && !b->cancleanup && (type.empty() || b->type == type);
        return n;
    }

    static void touch(Body& self, Body& other)
    {
        TouchInfo info;
        info.self = &self;
        info.other = &other;
        self.onTouch(info);
    }

    // One frame of `ms` milliseconds.
    void frame(uint32_t ms = 25)
    {
        clock.advance(ms);
        game->runFrame();
    }
    void frames(int count, uint32_t ms = 25)
    {
        for (int i = 0; i < count; ++i)
            frame(ms);
    }
    void run(const std::string& text) { CommandRegistry::instance().execute(text); }

    ManualClock clock{10000};
    std::unique_ptr<Game> game;
    DefaultGameplay* gameplay = nullptr;
    Player* player = nullptr;
    GameplayInput* input = nullptr;
};
