// Skies: sky files, colour drift and glow, the manager with its fade and
// particles, and the shipped skies against the shipped media.
#include <gtest/gtest.h>

#include <tinyxml.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "../resources/TempDir.h"
#include "TestPaths.h"
#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "render/BaseSky.h"
#include "render/NullRenderer.h"
#include "render/SkyManager.h"
#include "resources/ResourceManager.h"

namespace {

std::unique_ptr<BaseSky> parseSky(const std::string& text)
{
    TiXmlDocument doc;
    doc.Parse(text.c_str());
    auto sky = std::make_unique<BaseSky>();
    if (doc.RootElement())
        sky->parse(*doc.RootElement());
    return sky;
}

// Remembers the corner alphas of every quad drawn, the colours set, and the
// order of the kept-backdrop calls among the quads and the flare.
class RecordingRenderer : public NullRenderer {
public:
    std::vector<std::vector<float>> quadAlphas;
    std::vector<RGBAColour> colours;
    std::vector<std::string> calls;
    const void* owner = nullptr;
    void drawQuad(const Quad& q) override
    {
        std::vector<float> a;
        for (const auto& c : q.corners)
            a.push_back(c->a);
        quadAlphas.push_back(a);
        calls.push_back("rect");
    }
    void setColour(const RGBAColour& c) override { colours.push_back(c); }
    void beginBackdrop(const void* o) override
    {
        owner = o;
        calls.push_back("begin");
    }
    void endBackdrop() override { calls.push_back("end"); }
    void drawCentredQuad(float, float, float, float, float, bool) override { calls.push_back("flare"); }
};

const char* const particleDefs = R"(<particles>
  <particle id="skydust" initialParticles="5" maxParticles="10" particleLifeTime="5"/>
  <particle id="skystars" initialParticles="3" maxParticles="10" particleLifeTime="5"/>
</particles>)";

void expectAt(const Vector& v, float x, float y, float z)
{
    EXPECT_FLOAT_EQ(v.x, x);
    EXPECT_FLOAT_EQ(v.y, y);
    EXPECT_FLOAT_EQ(v.z, z);
}

} // namespace

TEST(SkyFileTest, EveryAttributeIsReadWithDefaultsAndBoundsForHostileNumbers)
{
    auto sky = parseSky(R"(<sky lensflare="true" lensflarepos="10,20,3" lensflarecolour="1,2,3,4">
      <rect pos="-100,50,2" dimension="200,80" textured="true" clamptex="true" glow="true"
            texture="data/images/skyhaze.png" glowsteps="3" blendstyle="0"
            mincol="1,2,3,4" maxcol="200,210,220,230"
            tlcol="10,11,12,13" trcol="20,21,22,23" brcol="30,31,32,33" blcol="40,41,42,43"
            tlcolvel="1,0,0,0" trcolvel="0,1,0,0" brcolvel="0,0,1,0" blcolvel="0,0,0,1"
            tltexcoord="0,2" trtexcoord="3,2" brtexcoord="3,0" bltexcoord="0.5,0"/>
      <particle id="skydust" pos="5,6,7"/>
    </sky>)");
    EXPECT_TRUE(sky->lensFlareOn);
    expectAt(sky->lensFlare.position, 10, 20, 3);
    EXPECT_EQ(sky->lensFlare.colour, RGBAColour(1, 2, 3, 4));
    ASSERT_EQ(sky->rects.size(), 1u);
    const SkyQuad& r = *sky->rects[0];
    EXPECT_TRUE(r.textured && r.clamp && r.glow);
    EXPECT_EQ(r.texture, "data/images/skyhaze.png");
    EXPECT_EQ(r.glowSteps, 3);
    EXPECT_EQ(r.blendStyle, 0);
    EXPECT_EQ(r.minColour, RGBAColour(1, 2, 3, 4));
    EXPECT_EQ(r.maxColour, RGBAColour(200, 210, 220, 230));
    // Corners (x, y, z, colour, texture coordinate): tl at pos, tr one width
    // right, br and bl one height down.
    using Corner = std::array<float, 9>;
    const Corner corners[] = {{-100, 50, 2, 10, 11, 12, 13, 0, 2},
                              {100, 50, 2, 20, 21, 22, 23, 3, 2},
                              {100, -30, 2, 30, 31, 32, 33, 3, 0},
                              {-100, -30, 2, 40, 41, 42, 43, 0.5f, 0}};
    for (size_t i = 0; i < 4; ++i) {
        const Vertex& v = *r.corners[i];
        EXPECT_EQ((Corner{v.x, v.y, v.z, v.r, v.g, v.b, v.a, v.u, v.v}), corners[i]) << i;
    }
    EXPECT_EQ(r.velocities[0], RGBAColour(1, 0, 0, 0));
    EXPECT_EQ(r.velocities[3], RGBAColour(0, 0, 0, 1));
    ASSERT_EQ(sky->particlePlacements.size(), 1u);
    EXPECT_EQ(sky->particlePlacements.begin()->first, "skydust");
    expectAt(sky->particlePlacements.begin()->second, 5, 6, 7);

    // Defaults, and hostile numbers that must stay finite and bounded.
    sky = parseSky(R"(<sky lensflarepos="nan,inf">
      <rect/>
      <rect pos="1e39,-1e39" dimension="inf,nan" glow="true" glowsteps="2147483647999" blendstyle="junk"
            tlcol="nan,nan,nan,nan" tlcolvel="1e38,0,0,0" trcol="1,2"/>
      <rect glow="true" glowsteps="-5"/>
      <particle pos="1,1"/>
      <unknown/>
    </sky>)");
    EXPECT_FALSE(sky->lensFlareOn);
    EXPECT_EQ(sky->lensFlare.colour, RGBAColour(255, 80, 5, 255));
    EXPECT_TRUE(std::isfinite(sky->lensFlare.position.x));
    ASSERT_EQ(sky->rects.size(), 3u);
    const SkyQuad& plain = *sky->rects[0];
    EXPECT_FALSE(plain.textured || plain.clamp || plain.glow);
    EXPECT_EQ(plain.blendStyle, 1);
    EXPECT_EQ(plain.passCount(), 1);
    // An untinted rectangle is white, and may drift anywhere in 0..255.
    EXPECT_EQ(plain.maxColour, RGBAColour(255, 255, 255, 255));
    EXPECT_FLOAT_EQ(plain.corners[0]->r, 255.0f);

    const SkyQuad& bad = *sky->rects[1];
    EXPECT_EQ(bad.glowSteps, BaseSky::maxGlowSteps);
    EXPECT_EQ(bad.blendStyle, 0);
    for (const auto& c : bad.corners) {
        EXPECT_TRUE(std::isfinite(c->x) && std::isfinite(c->y) && std::isfinite(c->r));
        EXPECT_LE(std::fabs(c->x), BaseSky::maxCoordinate);
    }
    EXPECT_LE(bad.velocities[0].r, BaseSky::maxColourValue);
    // A colour with the wrong count of numbers keeps the default.
    EXPECT_FLOAT_EQ(bad.corners[1]->g, 255.0f);
    EXPECT_EQ(sky->rects[2]->glowSteps, 0);
    EXPECT_EQ(sky->rects[2]->passCount(), 1);
    EXPECT_TRUE(sky->particlePlacements.empty()) << "a placement without an id is dropped";

    // Drawing the hostile sky stays finite and bounded.
    NullRenderer renderer;
    for (int i = 0; i < 100; ++i)
        sky->draw(renderer, Vector(), 0.5f);
    EXPECT_TRUE(std::isfinite(bad.corners[0]->r));
}

TEST(SkyQuadTest, CornerColoursBounceBetweenTheBounds)
{
    SkyQuad q;
    q.minColour.set(0, 0, 0, 0);
    q.maxColour.set(20, 20, 20, 20);
    q.corners[0]->r = 0.0f;
    q.velocities[0].r = 10.0f;
    std::vector<float> seen;
    for (int i = 0; i < 11; ++i) {
        q.advanceCorner(0, 0.5f, 1.0f);
        seen.push_back(q.corners[0]->r);
    }
    // Reaching a bound is not passing it: the step past it stops there and turns.
    const std::vector<float> expected = {5, 10, 15, 20, 20, 15, 10, 5, 0, 0, 5};
    EXPECT_EQ(seen, expected);
    EXPECT_FLOAT_EQ(q.velocities[0].r, 10.0f);
}

TEST(SkyManagerTest, LoadSwitchAndTheRulesAroundThem)
{
    TempDir dir;
    ResourceManager::instance().clearArchives();
    dir.write("data/sky/a.xml", R"(<sky><rect/></sky>)");
    dir.write("data/sky/b.xml", R"(<sky><rect/><rect/></sky>)");
    dir.write("data/sky/broken.xml", R"(<sky><rect)");
    SkyManager skies;
    EXPECT_EQ(skies.getCurrentSky(), nullptr);
    EXPECT_EQ(SkyManager::pathForShortName("data/sky/a.xml"), "data/sky/a.xml");

    testing::internal::CaptureStdout();
    EXPECT_FALSE(skies.loadSkyByShortName("missing"));
    EXPECT_FALSE(skies.loadSky("data/sky/broken.xml"));
    EXPECT_NE(testing::internal::GetCapturedStdout().find("Could not load sky file: data/sky/missing.xml"),
              std::string::npos);
    EXPECT_EQ(skies.getSkyCount(), 0u);

    EXPECT_TRUE(skies.loadSkyByShortName("a"));
    EXPECT_EQ(skies.getCurrentPath(), "data/sky/a.xml") << "the first sky loaded is current";
    EXPECT_EQ(skies.getFade(), nullptr) << "loading alone does not fade";
    EXPECT_TRUE(skies.loadSky("data/sky/b.xml"));
    EXPECT_TRUE(skies.loadSky("data/sky/a.xml"));
    EXPECT_EQ(skies.getSkyCount(), 2u) << "a sky loaded twice is kept once";
    EXPECT_EQ(skies.getCurrentPath(), "data/sky/a.xml");

    testing::internal::CaptureStdout();
    skies.switchSkyByShortName("missing");
    EXPECT_NE(testing::internal::GetCapturedStdout().find(
                  "Tried to switch to a sky which hasn't been loaded: data/sky/missing.xml"),
              std::string::npos);
    EXPECT_EQ(skies.getCurrentPath(), "data/sky/a.xml");
    EXPECT_EQ(skies.getFade(), nullptr);

    skies.switchSkyByShortName("b");
    EXPECT_EQ(skies.getCurrentSky()->rects.size(), 2u);
    ASSERT_NE(skies.getFade(), nullptr);

    // The fade from opaque runs out over a second while the sky is drawn and is then dropped.
    RecordingRenderer renderer;
    for (int i = 0; i < 12; ++i)
        skies.draw(renderer, Vector(), 0.1f);
    EXPECT_EQ(skies.getFade(), nullptr);
    ASSERT_FALSE(renderer.colours.empty());
    EXPECT_EQ(renderer.colours.front().a, 255.0f - 25.5f);
    EXPECT_FALSE(renderer.isIn2D()) << "the fade leaves 2D mode as it found it";

    skies.clear();
    EXPECT_EQ(skies.getCurrentSky(), nullptr);
    EXPECT_EQ(skies.getSkyCount(), 0u);
}

TEST(SkyManagerTest, SkyParticlesFollowTheCurrentSkyAndSurviveTheManagerClearing)
{
    TempDir dir;
    ResourceManager::instance().clearArchives();
    dir.write("particles.xml", particleDefs);
    dir.write("data/sky/dusty.xml", R"(<sky><particle id="skydust" pos="10,20,1"/></sky>)");
    dir.write("data/sky/starry.xml",
              R"(<sky><particle id="skystars" pos="0,0,0"/><particle id="skystars" pos="5,0,0"/></sky>)");
    NullRenderer renderer;
    ParticleManager particles;
    particles.setRenderer(&renderer);
    particles.init();
    ASSERT_TRUE(particles.loadDefinitions("particles.xml"));
    SkyManager skies;
    skies.setParticleManager(&particles);

    ASSERT_TRUE(skies.loadSkyByShortName("dusty"));
    ASSERT_EQ(skies.getCurrentSky()->particleSystems.size(), 1u);
    const ParticleSystem* dust = skies.getCurrentSky()->particleSystems[0];
    EXPECT_FALSE(dust->visible) << "the sky draws its own systems";
    EXPECT_FALSE(dust->cullable);
    expectAt(dust->position, 10, 20, 1.2f);
    expectAt(dust->endPoint, 10, 20, 1.2f);
    EXPECT_EQ(dust->getParticleCount(), 5);

    ASSERT_TRUE(skies.loadSkyByShortName("starry"));
    skies.switchSkyByShortName("starry");
    EXPECT_EQ(skies.getCurrentSky()->particleSystems.size(), 2u);
    for (int i = 0; i < 200; ++i)
        particles.update(0.01f);
    EXPECT_EQ(particles.getSystemCount(), 2) << "the old sky's systems died out";

    // A level change empties the particle manager first: the sky must let go.
    particles.removeAllSystems();
    EXPECT_TRUE(skies.getCurrentSky()->particleSystems.empty());
    skies.draw(renderer, Vector(), 0.01f);
    skies.clear();
}

namespace {
// Hue in degrees, and how colourful the colour is (0 for greys).
std::pair<float, float> hueAndChroma(const Vertex& c)
{
    const float hi = std::max({c.r, c.g, c.b}), chroma = hi - std::min({c.r, c.g, c.b});
    if (chroma <= 0.0f)
        return {0.0f, 0.0f};
    const float h = hi == c.r   ? (c.g - c.b) / chroma
                    : hi == c.g ? 2.0f + (c.b - c.r) / chroma
                                : 4.0f + (c.r - c.g) / chroma;
    return {h < 0.0f ? h * 60.0f + 360.0f : h * 60.0f, chroma};
}

// Ten minutes of drift: every coloured corner keeps its hue, so dusk stays
// dusk rather than wandering into greens and magentas.
float worstHueDrift(BaseSky& sky, SkyQuad& rect)
{
    NullRenderer renderer;
    std::vector<std::pair<float, float>> start;
    for (const auto& c : rect.corners)
        start.push_back(hueAndChroma(*c));
    float worst = 0.0f;
    for (int frame = 0; frame < 12000; ++frame) {
        sky.drawRect(renderer, 0.05f, rect);
        for (size_t i = 0; i < rect.corners.size(); ++i) {
            const auto [hue, chroma] = hueAndChroma(*rect.corners[i]);
            if (start[i].second < 30.0f || chroma < 30.0f)
                continue;
            const float d = std::fabs(hue - start[i].first);
            worst = std::max(worst, std::min(d, 360.0f - d));
        }
    }
    return worst;
}
}

TEST(ShippedSkiesTest, EverySkyIsAMovingTexturedBackdropOfShippedMediaThatKeepsItsHues)
{
    const std::string game = testGameDir();
    ParticleManager particles;
    particles.init();
    ASSERT_TRUE(particles.loadDefinitions(game + "/data/particles/particles.xml"));
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(testSourceDir() + "/data/sky")) {
        ++count;
        TiXmlDocument doc(entry.path().string().c_str());
        ASSERT_TRUE(doc.LoadFile()) << entry.path();
        BaseSky sky;
        ASSERT_TRUE(sky.parse(*doc.RootElement()));
        const std::string name = entry.path().filename().string();
        EXPECT_GE(sky.rects.size(), 2u) << name << ": more than a flat colour";
        bool textured = false, drifting = false, covers = false;
        for (const auto& r : sky.rects) {
            if (r->textured) {
                textured = true;
                EXPECT_TRUE(std::filesystem::exists(game + "/" + r->texture)) << name << ": " << r->texture;
            }
            for (const auto& v : r->velocities)
                drifting = drifting || v.r != 0 || v.g != 0 || v.b != 0 || v.a != 0;
            // The window at the camera spans about 455 x 256 units each way.
            covers = covers || (r->corners[0]->x <= -600 && r->corners[2]->x >= 600 &&
                                r->corners[0]->y >= 340 && r->corners[2]->y <= -340 && r->corners[0]->a >= 255);
        }
        EXPECT_TRUE(textured) << name;
        EXPECT_TRUE(drifting) << name;
        EXPECT_TRUE(covers) << name << ": an opaque rectangle must fill any window";
        for (const auto& placement : sky.particlePlacements)
            EXPECT_NE(particles.findDefinition(placement.first), nullptr) << name << ": " << placement.first;
        for (size_t r = 0; r < sky.rects.size(); ++r)
            EXPECT_LE(worstHueDrift(sky, *sky.rects[r]), 25.0f) << name << " rectangle " << r;
    }
    for (const char* needed : {"default.xml", "hcsky1.xml", "hcsky2.xml"})
        EXPECT_TRUE(std::filesystem::exists(testSourceDir() + "/data/sky/" + needed)) << needed;
    EXPECT_GE(count, 6);
}

TEST(SkyDrawTest, EveryLayerAndGlowPassIsDrawnInsideTheKeptBackdropAndTheFlareOutside)
{
    auto sky = parseSky(R"(<sky lensflare="true" lensflarepos="0,0,0">
      <rect pos="-640,360,0" dimension="1280,720"/>
      <rect glow="true" glowsteps="4" mincol="0,0,0,0" maxcol="255,255,255,255"
        tlcol="0,0,0,0" trcol="0,0,0,0" brcol="0,0,0,0" blcol="0,0,0,0"
        tlcolvel="8,0,0,100" trcolvel="0,0,0,100" brcolvel="0,0,0,100" blcolvel="0,0,0,100"/>
    </sky>)");
    sky->lensFlare.visibility = 1.0f;
    RecordingRenderer renderer;
    const std::vector<std::string> kept = {"begin", "rect", "rect", "rect", "rect", "rect", "end"};
    for (int frame = 0; frame < 2; ++frame) {
        renderer.calls.clear();
        sky->draw(renderer, Vector(30.0f, 40.0f), 0.1f);
        ASSERT_GE(renderer.calls.size(), kept.size());
        // The layers and their glow passes are drawn every frame, so the colours keep drifting.
        EXPECT_EQ(std::vector<std::string>(renderer.calls.begin(), renderer.calls.begin() + 7), kept);
        EXPECT_EQ(renderer.calls.back(), "flare") << "the flare is not part of the kept picture";
        EXPECT_EQ(renderer.owner, sky.get());
    }
    // The glow passes add 10 alpha each at weights 1, 0.75, 0.5, 0.25.
    const float expected[] = {10.0f, 17.5f, 22.5f, 25.0f};
    for (size_t pass = 0; pass < 4; ++pass)
        for (float a : renderer.quadAlphas[pass + 1])
            EXPECT_NEAR(a, expected[pass], 1e-4f) << "pass " << pass;
    // The colour itself moves a full step in every pass.
    EXPECT_NEAR(sky->rects[1]->corners[0]->r, 6.4f, 1e-4f);
}
