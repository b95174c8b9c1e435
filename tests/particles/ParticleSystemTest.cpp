#include <gtest/gtest.h>

#include <cmath>

#include "particles/ParticleRandom.h"
#include "particles/LightningParticleSystem.h"
#include "particles/Particle.h"
#include "particles/ParticleSystem.h"
#include "particles/TextParticleSystem.h"
#include "particles/ParticleTestSupport.h"

namespace {
void configure(ParticleSystem& s, const ParticleSystemParams& p)
{
    s.params = &p;
    s.maxParticles = p.maxParticles;
    s.systemLifeTime = p.systemLifeTime;
    s.init();
}
}

class ParticleSystemTest : public ::testing::Test {
protected:
    void SetUp() override { ParticleRandom::seed(7); }
};

TEST_F(ParticleSystemTest, EmissionFollowsTheFlowRateThePoolAndTheParticlesLives)
{
    // 50 per second in 0.01 s steps: floor(0.5) is 0 every step, so only
    // the interval rule emits, once every other step.
    auto p = steadyParams(50, 256, 10.0f);
    ParticleSystem s;
    configure(s, *p);
    int previous = 0, maxPerStep = 0;
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(s.update(0.01f, false));
        maxPerStep = std::max(maxPerStep, s.getParticleCount() - previous);
        previous = s.getParticleCount();
    }
    EXPECT_NEAR(s.getParticleCount(), 50, 1);
    EXPECT_EQ(maxPerStep, 1);

    // Particle counts after each step; a system life time of 0 never ends the system.
    struct Case {
        const char* rule;
        int flowRate, pool;
        float particleLife;
        std::vector<std::pair<float, int>> steps;
    };
    const Case cases[] = {
        {"a long step emits a whole batch", 50, 256, 10.0f, {{0.5f, 25}}},
        // Emission comes before the particles age, so the step in which all
        // four die cannot refill the pool; the next one does.
        {"a full pool emits nothing until a particle dies", 1000, 4, 0.1f,
         {{0.01f, 4}, {0.05f, 4}, {0.06f, 0}, {0.01f, 4}}},
        {"a life of 0 dies in the step that emits it", 10, 8, 0.0f, {{0.1f, 0}, {100.0f, 0}}},
        {"a life of -1 never dies by age", 10, 8, -1.0f, {{0.1f, 1}, {0.1f, 2}, {100.0f, 8}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rule);
        auto q = steadyParams(c.flowRate, c.pool, c.particleLife);
        ParticleSystem system;
        configure(system, *q);
        for (const auto& [step, count] : c.steps) {
            EXPECT_TRUE(system.update(step, false));
            EXPECT_EQ(system.getParticleCount(), count) << step;
        }
        if (system.getParticleCount() > 0) {
            EXPECT_EQ(system.getParticle(0).immortal, c.particleLife < 0.0f);
        }
    }
}

TEST_F(ParticleSystemTest, ParticlesStayWhereTheyWereHandedOutAsThePoolFills)
{
    auto p = steadyParams(0, 300, 10.0f);
    ParticleSystem s;
    configure(s, *p);
    const auto add = [&s] {
        return s.addParticle(Vector(), Vector(), Vector(), Vector(), Dimension(1, 1), Dimension(1, 1),
                             RGBAColour(), RGBAColour(), 1.0f);
    };
    Particle* const first = add();
    for (int i = 1; i < 300; ++i)
        ASSERT_NE(add(), nullptr) << i;
    EXPECT_EQ(add(), nullptr);
    EXPECT_EQ(first, &s.getParticle(0));
    EXPECT_EQ(s.getParticleCount(), 300);
}

TEST_F(ParticleSystemTest, StopOrLifeTimeEndsTheSystemEvenWithLiveParticles)
{
    auto p = steadyParams(100, 64, -1.0f);
    ParticleSystem s;
    configure(s, *p);
    s.update(0.1f, false);
    ASSERT_GT(s.getParticleCount(), 0);
    s.stop(0.5f);
    const int count = s.getParticleCount();
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(s.update(0.1f, false)) << i;
    EXPECT_EQ(s.getParticleCount(), count) << "a stopped system emits no more";
    bool alive = s.update(0.1f, false);
    alive = alive && s.update(0.1f, false);
    EXPECT_FALSE(alive);

    ParticleSystem endless;
    configure(endless, *p);
    endless.stop(0.0f);
    EXPECT_FALSE(endless.update(0.01f, false)) << "stop without delay ends at the next step";

    // Its own life time ends a system too; a culled step neither emits nor moves.
    p->systemLifeTime = 0.5f;
    ParticleSystem aging;
    configure(aging, *p);
    EXPECT_TRUE(aging.update(0.3f, true));
    EXPECT_EQ(aging.getParticleCount(), 0);
    EXPECT_FALSE(aging.update(0.3f, true));
}

TEST_F(ParticleSystemTest, ParticleMovesRecoloursAndResizes)
{
    Particle q;
    q.velocity.set(10, 0, 0);
    q.acceleration.set(0, -10, 0);
    q.setSize(4, 4);
    q.setEndSize(8, 2);
    q.setSizeVelocity();
    q.colour.set(250, 10, 0, 100);
    q.colourVel.set(100, -100, 0, 0);
    q.lifeTime = 2.0f;
    q.alive = true;
    EXPECT_TRUE(q.update(0.5f));
    EXPECT_FLOAT_EQ(q.position.x, 5.0f);
    EXPECT_FLOAT_EQ(q.velocity.y, -5.0f);
    EXPECT_FLOAT_EQ(q.colour.r, 255.0f) << "colours stay within 0..255";
    EXPECT_FLOAT_EQ(q.colour.g, 0.0f);
    EXPECT_FLOAT_EQ(q.width, 6.0f);
    EXPECT_FLOAT_EQ(q.halfHeight, 1.5f);
    EXPECT_FALSE(q.update(1.6f));
    // Shrinking stops at nothing: never a negative, inside-out size.
    EXPECT_FLOAT_EQ(q.height, 0.0f);
    EXPECT_FLOAT_EQ(q.halfHeight, 0.0f);
    q.setSize(-3, 2);
    EXPECT_FLOAT_EQ(q.width, 0.0f);
}

TEST_F(ParticleSystemTest, FaintParticlesAreNotDrawnGlowStepsFadeOutAndASystemDrawsInOneBatch)
{
    RecordingRenderer r;
    Particle q;
    q.colour.set(255, 255, 255, 0.9f);
    q.draw(r);
    EXPECT_EQ(r.quads, 0);
    q.colour.a = 200;
    q.glowSteps = 3;
    q.draw(r);
    EXPECT_EQ(r.quads, 3);
    EXPECT_EQ(r.alphas, (std::vector<float>{200, 134, 68}));

    auto p = steadyParams(0, 8, 1.0f);
    p->initialParticles = 5;
    ParticleSystem s;
    s.renderer = &r;
    configure(s, *p);
    s.emitInitial();
    s.draw();
    EXPECT_EQ(r.batches, 1);
    EXPECT_EQ(r.quads, 3 + 5);
}

TEST_F(ParticleSystemTest, SphereThrowsParticlesInEveryDirectionAtTheBaseSpeed)
{
    auto p = steadyParams(0, 200, 1.0f);
    p->generationShape = "sphere";
    p->vel.set(50, 50, 0);
    p->initialParticles = 200;
    ParticleSystem s;
    configure(s, *p);
    s.emitInitial();
    ASSERT_EQ(s.getParticleCount(), 200);
    int left = 0, up = 0;
    for (int i = 0; i < 200; ++i) {
        const Vector& v = s.getParticle(i).velocity;
        EXPECT_NEAR(std::sqrt(v.x * v.x + v.y * v.y), 50.0f, 1e-3f);
        left += v.x < 0;
        up += v.y > 0;
    }
    EXPECT_GT(left, 60);
    EXPECT_GT(up, 60);
    EXPECT_FLOAT_EQ(s.getParticle(0).position.z, 2.0f);
}

TEST_F(ParticleSystemTest, LightningChainsFourLinkedSegmentsOverOneHundredUnitsAndBoltAndTextEndWithTheirParticles)
{
    auto p = steadyParams(0, 64, 0.2f);
    LightningParticleSystem s;
    configure(s, *p);
    s.setEndpoints(Vector(0, 0, 0), Vector(100, 0, 0));
    s.emitAlongSegment();
    ASSERT_EQ(s.getParticleCount(), 4);
    const float joints[] = {0, 32, 64, 96};
    for (int i = 0; i < 4; ++i) {
        const Particle& q = s.getParticle(i);
        EXPECT_NEAR(q.position.x, joints[i], 1.0f) << i;
        EXPECT_NEAR(q.position.y, 0.0f, 1.0f) << i;
        EXPECT_GE(q.variant, 1);
        EXPECT_LE(q.variant, 3);
        if (i > 0) {
            EXPECT_FLOAT_EQ(q.position.x, s.getParticle(i - 1).endPoint.x) << "segments join";
            EXPECT_FLOAT_EQ(q.position.y, s.getParticle(i - 1).endPoint.y);
        }
    }
    EXPECT_FLOAT_EQ(s.getParticle(3).endPoint.x, 100.0f);
    // The bolt ends with its last segment.
    EXPECT_TRUE(s.update(0.1f, false));
    EXPECT_FALSE(s.update(0.2f, false));

    // However long the bolt, the pool bounds the chain.
    p->maxParticles = 5;
    LightningParticleSystem far;
    configure(far, *p);
    far.setEndpoints(Vector(0, 0, 0), Vector(1.0e6f, 0, 0));
    far.emitAlongSegment();
    EXPECT_EQ(far.getParticleCount(), 5);

    // Floating text too emits only on request and ends with its one particle.
    auto t = steadyParams(100, 4, 0.5f);
    TextParticleSystem text;
    configure(text, *t);
    text.setEndpoints(Vector(10, 20, 0), Vector(10, 20, 0));
    text.emitAlongSegment();
    EXPECT_TRUE(text.update(0.25f, false));
    EXPECT_EQ(text.getParticleCount(), 1) << "flow emission is paused";
    EXPECT_FALSE(text.update(0.3f, false));
}
