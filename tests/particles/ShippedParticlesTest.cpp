// The shipped definitions file against the effect names the game starts: a
// missing name would show the plain "default" sparkle in play, a missing
// attribute or texture a broken effect, a size shrinking through zero an
// inside-out one.
#include <gtest/gtest.h>

#include <tinyxml.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "TestPaths.h"
#include "particles/ParticleManager.h"
#include "particles/ParticleSystemParams.h"

namespace {
// Every effect name that weapons, projectiles, pickups, enemies, level logic,
// the player and skies start.
const char* const startedByTheGame[] = {
    "bullethit", "spark", "tracer", "plasma", "lightning", "rail", "plasmabullet", "plasmahit", "swarmburst",
    "rocketflame", "rocketflameenemy", "explosionshock", "explosionfire", "explosionspark", "bloodtrail",
    "debugblood", "debugbloodsmall", "debugbloodexplosion", "smallbloodexplosion", "deathghost",
    "itemrespawn2", "teleporter", "quadeffect", "invincibleeffect", "quadpickup", "megaquadpickup",
    "invinciblepickup", "megahealth", "engineering", "watersplash", "text", "skyclouds", "skydust"};

// A size changes by (end - start) every second for the particle's whole
// life; with start and end drawn apart, a long-lived particle could shrink
// through zero to a line and grow back inside out.
void expectNoShrinkingThroughZero(const ParticleSystemParams& p)
{
    if (p.particleLifeTime <= 0.0f)
        return;
    auto check = [&](float start, float lo, float hi, float end, float endLo, float endHi, const char* axis) {
        for (float s : {start + lo, start + hi})
            for (float f : {end + endLo, end + endHi})
                EXPECT_GE(s + (f - s) * p.particleLifeTime, 0.0f) << p.id << " " << axis;
    };
    check(p.dimension.width, p.dimensionVarLow.width, p.dimensionVarHigh.width, p.endDimension.width,
          p.endDimensionVarLow.width, p.endDimensionVarHigh.width, "width");
    check(p.dimension.height, p.dimensionVarLow.height, p.dimensionVarHigh.height, p.endDimension.height,
          p.endDimensionVarLow.height, p.endDimensionVarHigh.height, "height");
}
}

TEST(ShippedParticlesTest, EveryEffectTheGameStartsIsDefinedCompletelyWithItsTexture)
{
    const std::string path = testGameDir() + "/data/particles/particles.xml";
    TiXmlDocument doc(path.c_str());
    ASSERT_TRUE(doc.LoadFile()) << path;
    ASSERT_NE(doc.FirstChildElement(), nullptr);
    std::set<std::string> ids;
    for (const TiXmlElement* e = doc.FirstChildElement()->FirstChildElement(); e; e = e->NextSiblingElement()) {
        ParticleSystemParams p;
        std::vector<std::string> missing;
        p.read(*e, missing);
        EXPECT_TRUE(missing.empty()) << p.id << " lacks " << missing.front();
        EXPECT_TRUE(ids.insert(p.id).second) << p.id << " is defined twice";
        if (!p.texture.empty())
            EXPECT_TRUE(std::filesystem::exists(testGameDir() + "/data/" + p.texture)) << p.id << ": " << p.texture;
        else
            EXPECT_EQ(p.id, "text") << "only floating text draws without a texture";
        EXPECT_GT(p.maxParticles, 0) << p.id;
        expectNoShrinkingThroughZero(p);
    }
    for (const char* name : startedByTheGame)
        EXPECT_EQ(ids.count(name), 1u) << name;
    // The built-in fallback for unknown names draws a shipped texture too.
    ParticleManager builtIn;
    builtIn.init();
    EXPECT_TRUE(std::filesystem::exists(testGameDir() + "/data/" + builtIn.findDefinition("default")->texture));
}
