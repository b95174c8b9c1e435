// A crowd pressing on the player must not shove it through walls, ceilings
// or up into the air: enemies give way, the player does not.
#include <gtest/gtest.h>

#include <algorithm>

#include "gameplay/enemies/Bacteria.h"
#include "gameplay/enemies/EnemiesFixture.h"
#include "gameplay/enemies/Swarmer.h"

namespace {

class EnemyCrowdTest : public EnemiesFixture {
protected:
    // Keeps every crowd member after the player, as a swarm that never tires.
    void press(const std::vector<EnemyBase*>& crowd, float speed)
    {
        for (EnemyBase* e : crowd) {
            e->nextthink = GameBody::now() + 1000.0f;
            Vector d = player->pos - e->pos;
            const float len = d.length2D();
            if (len > 0.0f)
                e->vel = Vector(d.x / len * speed, d.y / len * speed);
        }
    }
};

TEST_F(EnemyCrowdTest, CrowdsNeitherLiftThePlayerNorPushItOutOfACorner)
{
    placePlayer(-400.0f, 8.0f);
    frames(10);
    const float standing = player->pos.y;
    std::vector<EnemyBase*> swarmers;
    for (int i = 0; i < 8; ++i)
        swarmers.push_back(spawnEnemy<Swarmer>(-420.0f + 6.0f * static_cast<float>(i), 1.0f, 1, 8.0f));
    float highestY = standing;
    for (int i = 0; i < 120; ++i) {
        press(swarmers, 250.0f);
        frame();
        highestY = std::max(highestY, player->pos.y);
    }
    EXPECT_LT(highestY, standing + 8.0f) << "lifted by swarmers underneath";

    // A 64-unit wall at x -664..-600 and a 64-unit ceiling from y 40 over the corner.
    loadLevel(box("default", "wall", -664, 0, -600, 200) + box("default", "ceiling", -600, 40, -300, 104));
    placePlayer(-592.0f, 8.0f);
    std::vector<EnemyBase*> crowd;
    for (int i = 0; i < 12; ++i)
        crowd.push_back(spawnEnemy<Bacteria>(-560.0f + 18.0f * static_cast<float>(i % 6),
                                             8.0f + 18.0f * static_cast<float>(i / 6), 4));
    float lowestX = player->pos.x;
    highestY = player->pos.y;
    for (int i = 0; i < 400; ++i) {
        press(crowd, 250.0f);
        frame();
        lowestX = std::min(lowestX, player->pos.x);
        highestY = std::max(highestY, player->pos.y);
    }
    EXPECT_GT(lowestX, -600.0f) << "pushed into the wall";
    EXPECT_LT(highestY, 40.0f) << "pushed into the ceiling";
}

}
