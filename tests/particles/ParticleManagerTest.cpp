#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "gameplay/GameplayFixture.h"
#include "particles/ParticleRandom.h"
#include "particles/LightningParticleSystem.h"
#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "particles/RailParticleSystem.h"
#include "particles/TextParticleSystem.h"
#include "particles/ParticleTestSupport.h"
#include "render/NullRenderer.h"
#include "resources/TempDir.h"
#include "world/gamebody/GameBody.h"

namespace {
const char* const fullAttributes =
    "texture='particles/spark.tga' initialParticles='2' posVarLow='0,0,0' posVarHigh='0,0,0' "
    "vel='0,0,0' velVarLow='0,0,0' velVarHigh='0,0,0' acc='0,0,0' accVarLow='0,0,0' accVarHigh='0,0,0' "
    "colour='255,255,255,255' colourVarLow='0,0,0,0' colourVarHigh='0,0,0,0' colourVel='0,0,0,0' "
    "colourVelVarLow='0,0,0,0' colourVelVarHigh='0,0,0,0' dimension='4,4' dimensionVarLow='0,0' "
    "dimensionVarHigh='0,0' endDimension='4,4' endDimensionVarLow='0,0' endDimensionVarHigh='0,0' "
    "systemLifeTime='1' particleLifeTime='0.5' particleLifeTimeVar='0,0' blendMode='1' "
    "generationShapeVar1='0' generationShapeVar2='0' animFPS='0' ";
}

class ParticleManagerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ParticleRandom::seed(3);
        manager.setRenderer(&renderer);
        manager.init();
    }
    void writeDefs(const std::string& body) { dir.write("defs.xml", "<particles>" + body + "</particles>"); }

    TempDir dir;
    NullRenderer renderer;
    ParticleManager manager;
};

TEST_F(ParticleManagerTest, DefinitionsParseWithDefaultsLaterIdsReplaceEarlierOnesAndBadNumbersReadAsTheirLeadingNumber)
{
    writeDefs(std::string("<a id='puff' flowRate='10' ") + fullAttributes + "/>" + "<b id='puff' " +
              fullAttributes + "flowRate='77' maxParticles='5' glowSteps='3' generationShape='sphere'/>" +
              "<c id='plain' flowRate='10' " + fullAttributes + "/>");
    ASSERT_TRUE(manager.loadDefinitions("defs.xml"));
    const ParticleSystemParams* puff = manager.findDefinition("puff");
    ASSERT_NE(puff, nullptr);
    EXPECT_EQ(puff->flowRate, 77);
    EXPECT_EQ(puff->maxParticles, 5);
    EXPECT_EQ(puff->glowSteps, 3);
    EXPECT_EQ(puff->generationShape, "sphere");
    const ParticleSystemParams* plain = manager.findDefinition("plain");
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(plain->maxParticles, 32);
    EXPECT_EQ(plain->glowSteps, 1);
    EXPECT_EQ(plain->generationShape, "");
    EXPECT_NE(manager.findDefinition("default"), nullptr);

    // Malformed numbers read their leading number, or zero.
    writeDefs("<p id='odd' flowRate='12abc' initialParticles='abc' maxParticles='1e9' "
              "systemLifeTime=' 2.5s' particleLifeTime='nan' blendMode='0x10' animFPS='-' "
              "generationShapeVar1='.5e1x' generationShapeVar2='1e999' glowSteps='0' posVarLow='-3e7,2,0' "
              "vel='inf,nan,1e40' colour='1,2' dimension='3,4,5,6'/>");
    ASSERT_TRUE(manager.loadDefinitions("defs.xml"));
    const ParticleSystemParams* d = manager.findDefinition("odd");
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->flowRate, 12);
    EXPECT_EQ(d->initialParticles, 0);
    EXPECT_EQ(d->maxParticles, ParticleSystemParams::maxPoolSize);
    EXPECT_FLOAT_EQ(d->systemLifeTime, 2.5f);
    EXPECT_FLOAT_EQ(d->particleLifeTime, 0.0f);
    EXPECT_EQ(d->blendMode, 0);
    EXPECT_EQ(d->animFPS, 0);
    EXPECT_FLOAT_EQ(d->generationShapeVar1, 5.0f);
    EXPECT_FLOAT_EQ(d->generationShapeVar2, 0.0f) << "beyond the float range reads as 0";
    EXPECT_EQ(d->glowSteps, 1);
    EXPECT_FLOAT_EQ(d->vel.x, 0.0f);
    EXPECT_FLOAT_EQ(d->vel.y, 0.0f);
    EXPECT_FLOAT_EQ(d->vel.z, 0.0f);
    EXPECT_FLOAT_EQ(d->colour.a, 0.0f) << "a two-number colour is ignored";
    EXPECT_FLOAT_EQ(d->dimension.height, 4.0f);
    EXPECT_FLOAT_EQ(d->posVarLow.x, -ParticleSystemParams::maxMagnitude) << "absurd but finite: clamped";
    // Missing required attributes read as zero: a usable, invisible effect.
    ParticleSystem* s = manager.createSystem("odd");
    ASSERT_NE(s, nullptr);
    s->emitInitial();
    manager.update(0.5f);
}

TEST_F(ParticleManagerTest, MissingOrBrokenFilesLeaveOnlyDefaultAndMissingAttributesAreNamed)
{
    EXPECT_FALSE(manager.loadDefinitions("nothing/here.xml"));
    dir.write("broken.xml", "<particles><p id='x'");
    EXPECT_FALSE(manager.loadDefinitions("broken.xml"));
    dir.write("empty.xml", "");
    EXPECT_FALSE(manager.loadDefinitions("empty.xml"));
    EXPECT_EQ(manager.getDefinitions().size(), 1u);
    writeDefs("<p texture='x'/><p id='bare' texture='x'/>");
    testing::internal::CaptureStdout();
    EXPECT_TRUE(manager.loadDefinitions("defs.xml"));
    const std::string log = testing::internal::GetCapturedStdout();
    EXPECT_EQ(manager.getDefinitions().size(), 2u) << "a definition without an id is skipped";
    // The 29 other required attributes are named; maxParticles and glowSteps are optional.
    const size_t at = log.find("Particle def bare lacks flowRate, ");
    ASSERT_NE(at, std::string::npos) << log;
    const std::string line = log.substr(at, log.find('\n', at) - at);
    EXPECT_EQ(std::count(line.begin(), line.end(), ','), 28) << line;
    EXPECT_EQ(line.find("maxParticles"), std::string::npos);
    EXPECT_EQ(line.find("glowSteps"), std::string::npos);
}

TEST_F(ParticleManagerTest, UnknownNamesFallBackToDefaultButKeepTheirClass)
{
    ParticleSystem* rail = manager.createSystem("rail");
    ASSERT_NE(rail, nullptr);
    EXPECT_NE(dynamic_cast<RailParticleSystem*>(rail), nullptr);
    EXPECT_EQ(rail->params, manager.findDefinition("default"));
    EXPECT_EQ(rail->maxParticles, 32);
    EXPECT_TRUE(rail->alive);
    EXPECT_NE(dynamic_cast<TextParticleSystem*>(manager.createSystem("text")), nullptr);
    ParticleSystem* plain = manager.createSystem("nosuch");
    EXPECT_EQ(typeid(*plain), typeid(ParticleSystem));
    EXPECT_EQ(plain->id, 2);

    writeDefs(std::string("<p id='lightning' flowRate='0' ") + fullAttributes + "/>");
    manager.loadDefinitions("defs.xml");
    EXPECT_NE(dynamic_cast<LightningParticleSystem*>(manager.createSystem("lightning")), nullptr);

    manager.clear();
    EXPECT_EQ(manager.createSystem("rail"), nullptr) << "without default there is nothing to show";
}

TEST_F(ParticleManagerTest, DeadSystemsLeaveInTheSameUpdateAndTellEachObserverOnce)
{
    ParticleSystem* a = manager.createSystem("default");
    ParticleSystem* b = manager.createSystem("default");
    CountingObserver watchA, watchB;
    a->addObserver(&watchA);
    a->addObserver(&watchA);
    b->addObserver(&watchB);
    a->stop(0.01f);
    manager.update(0.02f);
    EXPECT_EQ(manager.getSystemCount(), 1);
    EXPECT_EQ(watchA.calls, 1);
    EXPECT_EQ(watchB.calls, 0);
    EXPECT_GT(manager.countParticles(), 0);
    manager.update(0.02f);
    EXPECT_EQ(watchA.calls, 1);
    manager.removeAllSystems();
    EXPECT_EQ(watchB.calls, 1);
    EXPECT_EQ(manager.getSystemCount(), 0);
    EXPECT_NE(manager.findDefinition("default"), nullptr);
}

TEST_F(ParticleManagerTest, SystemsOutsideTheViewStepOnlyEveryTenthOfASecond)
{
    renderer.getFrustum().setCameraInternals(45.0f, 4.0f / 3.0f, 1.0f, 1000.0f);
    renderer.getFrustum().setCameraDefinition(Vector(0, 0, -256), Vector(0, 0, 0), Vector(0, 1, 0));
    ParticleSystem* near = manager.createSystem("default");
    near->position.set(0, 0, 0);
    ParticleSystem* far = manager.createSystem("default");
    far->position.set(5000, 0, 0);
    manager.update(0.05f);
    EXPECT_GT(near->getParticleCount(), 0);
    EXPECT_EQ(far->getParticleCount(), 0);
    manager.update(0.06f);
    EXPECT_GT(far->getParticleCount(), 0) << "more than 0.1 s since its last step";
    far->visible = false;
    far->position.set(5000, 0, 0);
    const int before = far->getParticleCount();
    manager.update(0.05f);
    EXPECT_NE(far->getParticleCount(), before) << "an invisible system is never culled";
}

using ParticleGameTest = GameplayFixture;

TEST_F(ParticleGameTest, FramesStepAt120HzBodiesCarryTheirSystemsAndShowTextAndALevelChangeClearsEverySystem)
{
    loadLevel();
    ParticleManager& particles = *game->getParticleManager();
    // 0.1 s of frames is twelve particle steps, give or take one for float rounding.
    ParticleSystem* stepped = particles.createSystem("default");
    frame(100);
    const float steps = stepped->age / Game::particleStepSeconds;
    EXPECT_NEAR(steps, 12.0f, 1.01f);
    EXPECT_NEAR(std::round(steps) * Game::particleStepSeconds, stepped->age, 1e-4f);
    stepped->stop(0.0f);

    // A body carries its system and lets it fade on its own when destroyed.
    auto body = std::make_unique<GameBody>();
    ParticleSystem* trail = particles.createSystem("default");
    trail->systemLifeTime = 0.0f;
    body->attachParticleSystem(trail);
    body->renderpos.set(40, 50, 0);
    body->moveAttachedParticleSystems();
    EXPECT_FLOAT_EQ(trail->position.x, 40.0f);
    EXPECT_FLOAT_EQ(trail->position.y, 50.0f);
    body.reset();
    EXPECT_TRUE(trail->getObservers().empty());
    EXPECT_FALSE(trail->emitting);
    for (int i = 0; i < 200 && particles.getSystemCount() > 0; ++i)
        particles.update(Game::particleStepSeconds);
    EXPECT_EQ(particles.getSystemCount(), 0) << "a let-go system ends on its own";

    GameBody speaker;
    speaker.spawnText(Vector(10, 20, 1), "Checkpoint", 12, true, 0.75f, "vera");
    ASSERT_EQ(particles.getSystemCount(), 1);
    auto* text = dynamic_cast<TextParticleSystem*>(particles.getSystems().front().get());
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text, "Checkpoint");
    EXPECT_EQ(text->fontSize, 12);
    EXPECT_TRUE(text->shadow);
    EXPECT_FLOAT_EQ(text->scale, 0.75f);
    EXPECT_EQ(text->font, "vera");
    EXPECT_FLOAT_EQ(text->position.z, 1.2f);
    EXPECT_EQ(text->getParticleCount(), 1);

    // A level change removes every system, and the bodies that followed them forget them.
    player->attachParticleSystem(particles.createSystem("default"));
    EXPECT_EQ(player->getAttachedParticleSystemCount(), 1);
    loadLevel();
    EXPECT_EQ(particles.getSystemCount(), 0);
    EXPECT_EQ(player->getAttachedParticleSystemCount(), 0);
    EXPECT_NE(particles.findDefinition("default"), nullptr);
}
