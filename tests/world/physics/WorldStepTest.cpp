#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>

#include "core/Game.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"
#include "world/WorldTestHelpers.h"
#include "world/body/Body.h"

namespace {
constexpr float dt = Game::stepSeconds;

// Runs the world's part of a fixed step in the game's order, without the
// frame timer.
class WorldStepTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        game = std::make_unique<Game>(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
        game->getQuadTree().build(Vector(0, 0), 4096, 2);
        game->setGravityOverride(-500.0f);
    }
    void TearDown() override
    {
        game->unloadLevel();
        game.reset();
    }

    Body* spawnBox(float x, float y, float w, float h, float mass)
    {
        Body* b = new Body();
        worldtest::shapeBox(*b, x, y, w, h, mass);
        game->spawnBody(b);
        return b;
    }
    // Level geometry: registered and indexed, but never simulated.
    Body* addStatic(float x, float y, float w, float h)
    {
        Body* b = new Body();
        worldtest::shapeBox(*b, x, y, w, h);
        game->addBody(b, false);
        game->getQuadTree().insert(b);
        return b;
    }
    // `afterCollide` sees the on-ground flags, which the move pass clears.
    void step(int n = 1, const std::function<void()>& afterCollide = {})
    {
        for (int i = 0; i < n; ++i) {
            game->applyGravity(dt);
            game->freezeVelocities();
            game->collideBodies(dt);
            if (afterCollide)
                afterCollide();
            game->moveBodies(dt);
        }
    }

    std::unique_ptr<Game> game;
};
}

TEST_F(WorldStepTest, ABoxFallsLandsAndComesToRest)
{
    addStatic(0, 0, 400, 20);  // top at y = 10
    Body* crate = spawnBox(0, 100, 16, 16, 50);
    crate->vel = Vector(30, 0);
    int groundedSteps = 0;
    for (int i = 0; i < 200; ++i) {
        step(1, [&] { groundedSteps += crate->onGround ? 1 : 0; });
        ASSERT_GT(crate->pos.y, 10.0f) << "fell through at step " << i;
    }
    EXPECT_NEAR(crate->pos.y, 18.0f, 0.6f);
    // Each contact takes 1% of the slide: slowing, never reversing.
    EXPECT_GT(crate->vel.x, 0.0f);
    EXPECT_LT(crate->vel.x, 15.0f);
    EXPECT_LT(std::fabs(crate->vel.y), 15.0f);
    EXPECT_GT(groundedSteps, 50);
    // The quadtree follows the crate.
    ASSERT_NE(crate->quadTreeNode, nullptr);
    EXPECT_TRUE(crate->quadTreeNode->contains(*crate));
}

// A door or lift: never pushed, moved by its own velocity.
TEST_F(WorldStepTest, MoversCarryTheBodiesStandingOnThem)
{
    struct Case {
        const char* name;
        Vector moverVel;
    };
    for (const Case& c : {Case{"sideways", Vector(60, 0)}, Case{"up", Vector(0, 40)}, Case{"down", Vector(0, -40)}}) {
        SCOPED_TRACE(c.name);
        game->unloadLevel();
        game->getQuadTree().build(Vector(0, 0), 4096, 2);
        Body* mover = spawnBox(0, 0, 200, 20, 0);
        mover->nonmassmover = true;
        Body* rider = spawnBox(0, 18, 16, 16, 100);
        step(20);  // settle
        const Vector moverStart = mover->pos;
        const Vector riderStart = rider->pos;
        for (int i = 0; i < 80; ++i) {
            mover->vel = c.moverVel;
            step();
        }
        const Vector moved = mover->pos - moverStart;
        EXPECT_NEAR((rider->pos - riderStart).x, moved.x, 1.0f);
        EXPECT_NEAR((rider->pos - riderStart).y, moved.y, 1.0f);
        // Still standing on it, not thrown off or sunk in.
        EXPECT_NEAR(rider->pos.y - mover->pos.y, 18.0f, 1.0f);
    }
}

TEST_F(WorldStepTest, RemovalDuringTheMovePassKeepsTheWalkValid)
{
    game->setGravityOverride(0.0f);
    Body* a = spawnBox(-100, 0, 4, 4, 1);
    Body* b = spawnBox(0, 0, 4, 4, 1);
    Body* c = spawnBox(100, 0, 4, 4, 1);
    for (Body* x : {a, b, c})
        x->vel = Vector(40, 0);
    game->markForRemoval(b);
    game->markForRemoval(c);
    EXPECT_TRUE(b->cancleanup);
    step();
    ASSERT_EQ(game->getActiveBodies().size(), 1u);
    EXPECT_EQ(game->getBodies().size(), 1u);
    EXPECT_FLOAT_EQ(a->pos.x, -99.0f);
    EXPECT_EQ(game->getQuadTree().countAllBodies(), 1);

    // A body removed by a touch hook during collisions goes at the next move.
    struct SelfRemover : Body {
        void onTouch(TouchInfo&) override { Game::current()->markForRemoval(this); }
    };
    auto* mine = new SelfRemover();
    mine->setPosition(Vector(-99, 0));
    mine->makeRectangle(4, 4);
    mine->solid = false;
    game->spawnBody(mine);
    step();
    EXPECT_EQ(game->getActiveBodies().size(), 1u);
    EXPECT_EQ(game->getActiveBodies().front(), a);
}

TEST_F(WorldStepTest, EnemiesFarFromThePlayerAreFrozen)
{
    // With no gravity variable nothing falls.
    game->clearGravityOverride();
    Body* player = spawnBox(0, 0, 16, 16, 100);
    game->setPlayer(player);
    Body* nearEnemy = spawnBox(500, 0, 16, 16, 10);
    Body* farEnemy = spawnBox(900, 0, 16, 16, 10);
    Body* farCrate = spawnBox(-900, 0, 16, 16, 10);
    nearEnemy->alwaysactive = farEnemy->alwaysactive = false;
    for (Body* b : {nearEnemy, farEnemy, farCrate})
        b->vel = Vector(0, 40);
    step();
    EXPECT_FLOAT_EQ(nearEnemy->pos.y, 1.0f);
    EXPECT_FLOAT_EQ(farEnemy->pos.y, 0.0f);
    EXPECT_FLOAT_EQ(farCrate->pos.y, 1.0f);
    game->setPlayer(nullptr);
}

namespace {
uint64_t fnv(uint64_t h, float f)
{
    uint32_t bits;
    std::memcpy(&bits, &f, sizeof bits);
    for (int i = 0; i < 4; ++i) {
        h ^= (bits >> (8 * i)) & 0xffu;
        h *= 1099511628211ull;
    }
    return h;
}
}

// The same world stepped the same way must end bit for bit in the same
// place on every build; a change here means the simulation changed.
TEST_F(WorldStepTest, FiveHundredStepsHashToTheStoredValue)
{
    addStatic(0, -200, 800, 40);
    addStatic(-380, 0, 40, 400);
    addStatic(380, 0, 40, 400);
    addStatic(-100, -60, 120, 10);
    std::vector<Body*> boxes;
    for (int i = 0; i < 24; ++i) {
        const float x = -300.0f + static_cast<float>((i * 53) % 600);
        const float y = -50.0f + static_cast<float>(i * 17);
        Body* b = spawnBox(x, y, 8.0f + static_cast<float>(i % 5) * 3.0f, 10.0f, 5.0f + static_cast<float>(i));
        b->vel = Vector(static_cast<float>((i * 37) % 200 - 100), 0.0f);
        boxes.push_back(b);
    }
    step(500);
    uint64_t h = 1469598103934665603ull;
    for (const Body* b : boxes) {
        h = fnv(h, b->pos.x);
        h = fnv(h, b->pos.y);
        h = fnv(h, b->vel.x);
        h = fnv(h, b->vel.y);
        EXPECT_TRUE(std::isfinite(b->pos.x) && std::isfinite(b->pos.y));
        EXPECT_GT(b->pos.y, -180.0f);
        EXPECT_LT(std::fabs(b->pos.x), 360.0f);
    }
    EXPECT_EQ(h, 1107521888875205765ull) << std::hex << h;
}
