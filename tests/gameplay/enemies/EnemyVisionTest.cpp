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

// Bodies pile up between the grunt and the player; each check is decided by
// the newest, looking past other enemies or not.
TEST_F(EnemyVisionTest, WhatStandsBetweenDecidesTheView)
{
    EXPECT_TRUE(viewer->canSee(false)) << "a clear line";
    auto* swarm = spawn<SwarmMember>(-600.0f, 40.0f);
    EXPECT_TRUE(EnemyBase::lineOfSight(*swarm, *viewer, false)) << "swarm members look through the player";
    auto* friendly = spawnEnemy<Friendly>(-700.0f, 40.0f);
    EXPECT_FALSE(EnemyBase::lineOfSight(*friendly, *viewer, false)) << "the player blocks everyone else";
    between<Body>()->kind = 11;
    between<Body>(30.0f)->kind = 12;
    between<Body>(20.0f)->type = "detail";
    between<GameBody>(18.0f)->entity = true;
    EXPECT_TRUE(viewer->canSee(false)) << "liquids, details and neutral bodies are see-through";

    between<ChaingunGrunt>();
    EXPECT_FALSE(viewer->canSee(false)) << "another enemy";
    EXPECT_TRUE(viewer->canSee(true));

    for (const bool alpha : {false, true}) {
        Body* door = alpha ? static_cast<Body*>(between<AlphaDoor>()) : between<Door>();
        EXPECT_FALSE(viewer->canSee(true)) << door->type;
        game->markForRemoval(door);
        frame();
        placePlayer(-400.0f, 40.0f);
        EXPECT_TRUE(viewer->canSee(true));
    }
    between<GameBody>()->setPlayerSide(true);
    EXPECT_FALSE(viewer->canSee(true)) << "the player's side always blocks";

    auto* other = spawnEnemy<ChaingunGrunt>(-200.0f, 200.0f);
    wall(-300.0f, 120.0f, 16.0f, 80.0f);
    EXPECT_FALSE(other->canSee(true)) << "level geometry";
}

}
