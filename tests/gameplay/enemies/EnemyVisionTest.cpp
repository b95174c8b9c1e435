#include "gameplay/enemies/EnemiesFixture.h"
#include "gameplay/enemies/ChaingunGrunt.h"
#include "gameplay/enemies/Friendly.h"
#include "gameplay/enemies/SwarmMember.h"
#include "world/movers/AlphaDoor.h"
#include "world/movers/Door.h"

namespace {

class EnemyVisionTest : public EnemiesFixture {
protected:
    void SetUp() override
    {
        EnemiesFixture::SetUp();
        placePlayer(-400.0f, 40.0f);
        viewer = spawnEnemy<ChaingunGrunt>(-200.0f, 40.0f);
    }

    // A body of the given class standing between the viewer and the player.
    template <class T>
    T* between(float size = 24.0f)
    {
        T* body = spawn<T>(-300.0f, 40.0f, size);
        body->setMass(0.0f);
        return body;
    }

    ChaingunGrunt* viewer = nullptr;
};

TEST_F(EnemyVisionTest, TransparentBodiesDoNotBlockTheView)
{
    EXPECT_TRUE(viewer->canSee(false)) << "a clear line";

    Body* liquid = between<Body>();
    liquid->kind = 11;
    liquid->solid = false;
    Body* lava = between<Body>(30.0f);
    lava->kind = 12;
    lava->solid = false;
    Body* detail = between<Body>(20.0f);
    detail->type = "detail";
    auto* neutral = between<GameBody>(18.0f);
    neutral->entity = true;
    game->getQuadTree().update(liquid);
    EXPECT_TRUE(viewer->canSee(false)) << "liquids, details and neutral bodies are see-through";
}

TEST_F(EnemyVisionTest, OtherEnemiesBlockUnlessIgnored)
{
    between<ChaingunGrunt>();
    EXPECT_FALSE(viewer->canSee(false));
    EXPECT_TRUE(viewer->canSee(true));
}

TEST_F(EnemyVisionTest, ThePlayersSideAlwaysBlocks)
{
    auto* ally = between<GameBody>();
    ally->setPlayerSide(true);
    EXPECT_FALSE(viewer->canSee(false));
    EXPECT_FALSE(viewer->canSee(true));
}

TEST_F(EnemyVisionTest, DoorsAndGeometryBlock)
{
    Door* door = between<Door>();
    EXPECT_FALSE(viewer->canSee(true));
    game->markForRemoval(door);
    frame();
    placePlayer(-400.0f, 40.0f);
    EXPECT_TRUE(viewer->canSee(true));

    between<AlphaDoor>();
    EXPECT_FALSE(viewer->canSee(true));

    auto* other = spawnEnemy<ChaingunGrunt>(-200.0f, 200.0f);
    wall(-300.0f, 120.0f, 16.0f, 80.0f);
    EXPECT_FALSE(other->canSee(true)) << "level geometry";
}

TEST_F(EnemyVisionTest, SwarmMembersLookThroughThePlayer)
{
    auto* swarm = spawn<SwarmMember>(-600.0f, 40.0f);
    EXPECT_TRUE(EnemyBase::lineOfSight(*swarm, *viewer, false));
    auto* friendly = spawnEnemy<Friendly>(-700.0f, 40.0f);
    EXPECT_FALSE(EnemyBase::lineOfSight(*friendly, *viewer, false)) << "the player blocks everyone else";
}

}
