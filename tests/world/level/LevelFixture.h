#pragma once
// A headless game in a scratch directory, with helpers that write level
// files and load them the way the game does.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "console/CommandRegistry.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "render/NullRenderer.h"
#include "resources/TempDir.h"
#include "sound/NullSound.h"
#include "world/WorldTestHelpers.h"
#include "world/body/Body.h"
#include "world/level/BodyFactory.h"
#include "world/level/LevelLoader.h"

using worldtest::captured;

class LevelFixture : public ::testing::Test {
protected:
    void SetUp() override { resetRegistries(); }
    void TearDown() override { resetRegistries(); }
    static void resetRegistries()
    {
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
    }

    // One "P" element; `params` and `inner` are raw XML.
    static std::string body(const std::string& type, const std::string& id, const std::string& params,
                            const std::string& inner)
    {
        return "<P type=\"" + type + "\" idname=\"" + id + "\">" + (params.empty() ? "" : "<params " + params + "/>") +
               inner + "</P>\n";
    }
    // A "verts" element for an axis-aligned rectangle.
    static std::string rect(float x0, float y0, float x1, float y1)
    {
        std::ostringstream s;
        s << "<verts>" << "<v origin=\"" << x0 << "," << y0 << "\" colour=\"255,255,255,255\" texcoords=\"0,0\"/>"
          << "<v origin=\"" << x1 << "," << y0 << "\" colour=\"255,255,255,255\" texcoords=\"1,0\"/>"
          << "<v origin=\"" << x1 << "," << y1 << "\" colour=\"255,255,255,255\" texcoords=\"1,1\"/>"
          << "<v origin=\"" << x0 << "," << y1 << "\" colour=\"255,255,255,255\" texcoords=\"0,1\"/>"
          << "</verts>";
        return s.str();
    }
    static std::string level(const std::string& bodies)
    {
        return "<?xml version=\"1.0\" ?>\n<level><Objects>\n" + bodies + "</Objects></level>\n";
    }
    void writeLevel(const std::string& name, const std::string& bodies) const
    {
        dir.write("maps/" + name + ".xml", level(bodies));
    }

    Body* find(const std::string& id)
    {
        for (Body* b : game.getBodies())
            if (b->id == id)
                return b;
        return nullptr;
    }

    TempDir dir;
    Game game{std::make_unique<NullRenderer>(), std::make_unique<NullSound>()};
    LevelLoader loader{game, *game.getBodyFactory()};
};
