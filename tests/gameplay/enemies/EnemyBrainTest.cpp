#include <cmath>
#include <vector>

#include "gameplay/enemies/EnemiesFixture.h"
#include "gameplay/enemies/ChaingunGrunt.h"
#include "gameplay/enemies/EggLayer.h"
#include "gameplay/enemies/Friendly.h"
#include "gameplay/enemies/KamikazeGrunt.h"
#include "gameplay/enemies/MeleeGrunt.h"
#include "gameplay/enemies/PlasmaGrunt.h"
#include "gameplay/enemies/RocketGrunt.h"
#include "gameplay/enemies/SearchLight.h"
#include "gameplay/enemies/ShotgunGrunt.h"
#include "gameplay/enemies/Sniper.h"
#include "gameplay/enemies/SpawnerGrunt.h"
#include "gameplay/enemies/HardDrive.h"
#include "gameplay/enemies/SwarmMember.h"
#include "gameplay/enemies/Turret.h"
#include "gameplay/weapons/ChaingunWeapon.h"
#include "gameplay/weapons/MeleeWeapon.h"
#include "gameplay/weapons/PlasmaPistolWeapon.h"
#include "gameplay/weapons/RailgunWeapon.h"
#include "world/level/BodyFactory.h"
#include "world/logic/LogicFixture.h"
#include "world/movers/Door.h"

namespace {

class EnemyBrainTest : public EnemiesFixture {
protected:
    void SetUp() override
    {
        EnemiesFixture::SetUp();
        frames(2);
        placePlayer(-400.0f, 40.0f);
    }

    // A swarm member that lives a second.
    SwarmMember* swarmAt(float x, float y)
    {
        auto* swarm = new SwarmMember();
        swarm->lifetime = 1000.0f;
        swarm->startLife();
        return spawn(swarm, x, y);
    }

    // True when the grunt's velocity is a plain patrol leg.
    static bool patrolling(const EnemyBase& enemy)
    {
        return std::fabs(std::fabs(enemy.vel.x) - enemy.patrolSpeed) < 1e-3f && enemy.vel.y == 0.0f;
    }
};

// One think with the player at x -400: grunts close in on it within range
// and fire, hold their ground inside the close distance, and patrol when it
// is out of range or behind a door; a melee grunt strikes only within reach.
TEST_F(EnemyBrainTest, GruntsCloseInFireOrPatrol)
{
    enum Move { patrols, closesIn, rushes };
    struct Case {
        const char* type;
        float x;
        bool door;
        Move move;
        bool fires;
    };
    const Case cases[] = {
        {"chaingungrunt", -200.0f, false, closesIn, true}, {"rocketgrunt", -350.0f, false, patrols, true},
        {"shotgungrunt", -50.0f, false, patrols, false},   {"plasmagrunt", -200.0f, true, patrols, false},
        {"meleegrunt", -330.0f, false, rushes, false},     {"meleegrunt", -380.0f, false, rushes, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.type) + " at " + std::to_string(c.x));
        auto* grunt = dynamic_cast<GruntEnemy*>(game->getBodyFactory()->create(c.type).release());
        ASSERT_NE(grunt, nullptr);
        spawn(grunt, c.x, 40.0f);
        Door* door = c.door ? spawn<Door>(-300.0f, 60.0f, 16.0f, 120.0f) : nullptr;
        if (door)
            door->setMass(0.0f);
        grunt->vel = Vector();
        grunt->think(0.1f);
        if (c.move == patrols) {
            EXPECT_TRUE(patrolling(*grunt));
        } else if (c.move == closesIn) {
            EXPECT_NEAR(grunt->vel.x, -180.0f * 0.2f, 1.0f);
        }
        EXPECT_EQ(grunt->getWeapon()->nextFireTime > 0.0f, c.fires);
        game->markForRemoval(grunt);
        if (door)
            game->markForRemoval(door);
        frame();
        placePlayer(-400.0f, 40.0f);
    }
}

TEST_F(EnemyBrainTest, InvisMakesEveryEnemyPatrol)
{
    run("invis");
    ASSERT_TRUE(player->notarget);
    std::vector<EnemyBase*> enemies = {
        spawnEnemy<ChaingunGrunt>(-300.0f, 40.0f), spawnEnemy<PlasmaGrunt>(-300.0f, 80.0f),
        spawnEnemy<RocketGrunt>(-350.0f, 40.0f),   spawnEnemy<ShotgunGrunt>(-300.0f, 120.0f),
        spawnEnemy<MeleeGrunt>(-390.0f, 60.0f),    spawnEnemy<Sniper>(-300.0f, 60.0f),
        spawnEnemy<KamikazeGrunt>(-300.0f, 100.0f)};
    for (EnemyBase* enemy : enemies) {
        enemy->think(0.1f);
        EXPECT_TRUE(patrolling(*enemy)) << enemy->type;
        if (auto* grunt = dynamic_cast<GruntEnemy*>(enemy)) {
            EXPECT_EQ(grunt->getWeapon()->nextFireTime, 0.0f) << enemy->type;
        }
    }
    EXPECT_EQ(static_cast<Sniper*>(enemies[5])->gun().nextFireTime, 0.0f);
    EXPECT_FALSE(static_cast<KamikazeGrunt*>(enemies[6])->exploded);
}

TEST_F(EnemyBrainTest, TurretWaitsASecondThenFiresEveryHalfSecond)
{
    auto* turret = spawnEnemy<Turret>(-300.0f, 60.0f);
    frames(36); // 900 ms in view
    EXPECT_EQ(turret->sighted, player);
    EXPECT_EQ(turret->texture, "data/images/TurretSighted.png");
    EXPECT_EQ(turret->gun().nextFireTime, 0.0f);
    EXPECT_LT(turret->getAim().x, 0.0f) << "aims at the player";
    player->notarget = true;
    frames(4);
    EXPECT_EQ(turret->sighted, nullptr);
    EXPECT_EQ(turret->texture, "data/images/Turret.png");
    EXPECT_EQ(turret->gun().nextFireTime, 0.0f) << "lost before the second was up";

    player->notarget = false;
    placePlayer(-400.0f, 40.0f);
    std::vector<float> shots;
    float last = 0.0f;
    for (int i = 0; i < 120; ++i) { // 3 s
        frame();
        if (turret->gun().nextFireTime != last) {
            last = turret->gun().nextFireTime;
            shots.push_back(GameBody::now());
        }
        if (i % 10 == 0)
            placePlayer(-400.0f, 40.0f);
    }
    ASSERT_GE(shots.size(), 3u);
    EXPECT_LE(shots.size(), 5u);
    for (size_t i = 1; i < shots.size(); ++i)
        EXPECT_GE(shots[i] - shots[i - 1], 500.0f - 1.0f);
}

TEST_F(EnemyBrainTest, SearchLightPausesAtEachEnd)
{
    auto* light = spawnEnemy<SearchLight>(2000.0f, 300.0f);
    light->readAttributes({{"startangle", "0"}, {"endangle", "10"}, {"minangle", "-10"}, {"speed", "100"},
                           {"timepaused", "500"}});
    float reachedEnd = -1.0f;
    float leftEnd = -1.0f;
    float reachedMin = -1.0f;
    for (int i = 0; i < 120 && reachedMin < 0.0f; ++i) {
        frame();
        const float t = GameBody::now();
        if (reachedEnd < 0.0f && light->currentangle >= 10.0f)
            reachedEnd = t;
        if (reachedEnd >= 0.0f && leftEnd < 0.0f && light->currentangle < 10.0f)
            leftEnd = t;
        if (leftEnd >= 0.0f && light->currentangle <= -10.0f)
            reachedMin = t;
    }
    ASSERT_GE(leftEnd, 0.0f);
    EXPECT_NEAR(leftEnd - reachedEnd, 500.0f, 30.0f);
    EXPECT_NEAR(reachedMin - leftEnd, 200.0f, 30.0f) << "20 degrees at 100 per second";
    EXPECT_TRUE(light->direction) << "turned back up at the bottom";
}

TEST_F(EnemyBrainTest, SearchLightTriggersAtMostOncePerUntriggerTimer)
{
    auto* light = spawnEnemy<SearchLight>(-400.0f, 250.0f);
    light->readAttributes({{"startangle", "0"}, {"speed", "0"}, {"conewidth", "60"}, {"conelength", "300"},
                           {"untriggertimer", "1000"}});
    auto* alarm = spawn<TriggerRecorder>(3000.0f, 300.0f, 8.0f);
    light->addTarget(alarm);
    EXPECT_TRUE(light->inCone(player->pos, player->radius));
    for (int i = 0; i < 100; ++i) { // 2.5 s in the cone
        frame();
        if (i % 10 == 0)
            placePlayer(-400.0f, 40.0f);
    }
    EXPECT_EQ(light->sighted, player);
    EXPECT_EQ(alarm->activators.size(), 3u);
    placePlayer(-100.0f, 40.0f); // out of the cone, within watch range
    frames(4);
    EXPECT_EQ(light->sighted, nullptr);
    EXPECT_FALSE(light->inCone(player->pos, player->radius));
}

// Walked into, shot or left with a burning fuse, a kamikaze blasts once,
// hurting only what is within 64 and pushing nobody off the drawing depth.
TEST_F(EnemyBrainTest, KamikazeBlastsOnceWithinItsRange)
{
    player->setGodMode(false);
    GameBody* near = target(-370.0f, 90.0f);
    GameBody* far = target(-370.0f, 200.0f);
    enum How { walkedInto, shot, fuse };
    for (const How how : {walkedInto, shot, fuse}) {
        SCOPED_TRACE(how);
        player->health = 100;
        near->health = 1000;
        // The fuse is lit 55 from the player: in range, outside the blast.
        auto* kamikaze = spawnEnemy<KamikazeGrunt>(how == fuse ? -345.0f : -370.0f, 40.0f);
        if (how == walkedInto) {
            kamikaze->think(0.1f);
        } else if (how == shot) {
            kamikaze->takeDamage(500, 1);
        } else {
            kamikaze->thinks = false;
            kamikaze->patrolSpeed = 0.0f;
            // Two seconds after it is lit, the fuse burns out.
            for (const int wait : {0, 40, 44}) {
                frames(wait);
                placePlayer(-400.0f, 40.0f);
                place(kamikaze, -345.0f, 40.0f);
                kamikaze->think(0.1f);
                ASSERT_EQ(kamikaze->exploded, wait == 44) << wait;
            }
        }
        EXPECT_TRUE(kamikaze->exploded);
        EXPECT_TRUE(kamikaze->dying);
        EXPECT_EQ(near->health, 1000 - 50);
        EXPECT_EQ(far->health, 1000);
        EXPECT_LT(player->health, 100);
        EXPECT_EQ(player->vel.z, 0.0f) << "blasts push in the plane only";
        kamikaze->specialAction();
        kamikaze->takeDamage(500, 1);
        kamikaze->think(0.1f);
        EXPECT_EQ(near->health, 1000 - 50) << "one blast only";
        frame();
        EXPECT_EQ(count<KamikazeGrunt>(), 0);
    }
}

TEST_F(EnemyBrainTest, SpawnerGruntKeepsItsBroodAtMaxAlive)
{
    auto* spawner = spawnEnemy<SpawnerGrunt>(-100.0f, 150.0f);
    spawner->readAttributes({{"spawntype", "meleegrunt"}, {"maxalive", "2"}, {"spawndelay", "1000"},
                             {"spawnlevel", "3"}});
    frames(160); // 4 s
    ASSERT_EQ(spawner->numalive, 2);
    ASSERT_EQ(spawner->getOwned().size(), 2u);
    for (GameBody* child : spawner->getOwned()) {
        auto* grunt = dynamic_cast<MeleeGrunt*>(child);
        ASSERT_NE(grunt, nullptr);
        EXPECT_EQ(grunt->level, 3);
        EXPECT_EQ(grunt->initialhealth, 80);
        EXPECT_EQ(grunt->getOwner(), spawner);
    }
    spawner->getOwned().front()->die();
    EXPECT_EQ(spawner->numalive, 1);
    frames(50);
    EXPECT_EQ(spawner->numalive, 2) << "a death makes room for one more";
    EXPECT_EQ(count<MeleeGrunt>(), 2);

    spawner->spawntype = "nosuchtype";
    spawner->maxalive = 5;
    EXPECT_EQ(spawner->spawnOne(), nullptr);
    frames(10);
    EXPECT_EQ(spawner->numalive, 2);
}

TEST_F(EnemyBrainTest, EggLayerLaysLevelledEggsAndThrowsThemWhenThePlayerIsNear)
{
    auto* layer = spawnEnemy<EggLayer>(1000.0f, 150.0f);
    layer->readAttributes({{"spawnlevel", "2"}, {"spawntype", "meleegrunt"}});
    Body* egg = layer->spawnOne();
    ASSERT_NE(egg, nullptr);
    EXPECT_EQ(egg->type, "egg");
    EXPECT_EQ(dynamic_cast<EnemyBase&>(*egg).level, 2);
    EXPECT_NEAR(egg->vel.length2D(), 8.0f, 0.01f) << "dropped while the player is far";

    place(layer, -250.0f, 150.0f);
    Body* thrown = layer->spawnOne();
    ASSERT_NE(thrown, nullptr);
    EXPECT_NEAR(thrown->vel.length2D(), 300.0f, 0.5f);
    EXPECT_LT(thrown->vel.x, 0.0f) << "aimed at the player";
}

TEST_F(EnemyBrainTest, FriendlyHuntsEnemiesAndOtherwiseFollows)
{
    auto* friendly = spawnEnemy<Friendly>(-300.0f, 150.0f);
    friendly->vel = Vector();
    friendly->think(0.1f);
    EXPECT_GT(friendly->vel.length2D(), 0.0f) << "follows the player 100 away";
    EXPECT_EQ(friendly->pistol().nextFireTime, 0.0f);

    auto* grunt = spawnEnemy<ChaingunGrunt>(-150.0f, 150.0f);
    grunt->thinks = false;
    friendly->vel = Vector();
    friendly->think(0.1f);
    EXPECT_GT(friendly->vel.x, 0.0f) << "goes for the grunt";
    EXPECT_GT(friendly->pistol().nextFireTime, 0.0f);

    game->markForRemoval(grunt);
    frame();
    place(friendly, 300.0f, 150.0f);
    friendly->vel = Vector(50.0f, 0.0f);
    friendly->think(0.1f);
    EXPECT_EQ(friendly->vel.length2D(), 0.0f) << "waits when the player is far behind";
}

// Bites reach past the jaws against enemies, and to the box of hard drives
// and CPUs, which are larger than the jaws.
TEST_F(EnemyBrainTest, SwarmMembersBiteWhatTheyReachAndExpire)
{
    const struct {
        bool objective;
        float gap; // from the swarm member's middle to the victim's edge
        bool bites;
    } cases[] = {{false, 52.0f, true}, {false, 92.0f, false}, {true, 1.0f, true}, {true, 90.0f, false}};
    for (const auto& c : cases) {
        const float size = c.objective ? 72.0f : 16.0f;
        EnemyBase* victim = c.objective ? static_cast<EnemyBase*>(spawnEnemy<HardDrive>(-100.0f, 150.0f, 1, size))
                                        : spawnEnemy<ChaingunGrunt>(-100.0f, 150.0f);
        victim->thinks = false;
        auto* swarm = swarmAt(-100.0f - size / 2.0f - c.gap, 150.0f);
        swarm->think(0.1f);
        EXPECT_GT(swarm->vel.x, 0.0f) << c.gap;
        EXPECT_EQ(swarm->gun().nextFireTime > 0.0f, c.bites) << c.gap;
        EXPECT_EQ(victim->health < victim->initialhealth, c.bites) << c.gap;
        victim->die();
        swarm->die();
        frame();
    }
    swarmAt(-300.0f, 150.0f);
    frames(50);
    EXPECT_EQ(count<SwarmMember>(), 0) << "gone after its life time";
}

// The sniper warns: a line on the player for a while before each shot.
TEST_F(EnemyBrainTest, SniperAimsVisiblyBeforeEveryShot)
{
    auto* sniper = spawnEnemy<Sniper>(-300.0f, 40.0f);
    sniper->thinks = false;
    for (int shot = 0; shot < 2; ++shot) {
        const float start = GameBody::now();
        const float before = sniper->gun().nextFireTime;
        sniper->think(0.1f);
        EXPECT_TRUE(sniper->isAiming()) << shot;
        EXPECT_EQ(sniper->gun().nextFireTime, before) << "no shot at first sight";
        for (int i = 0; i < 200 && sniper->gun().nextFireTime == before; ++i) {
            frame();
            place(sniper, -300.0f, 40.0f);
            sniper->think(0.1f);
        }
        EXPECT_NE(sniper->gun().nextFireTime, before) << shot;
        EXPECT_GE(GameBody::now() - start, Sniper::aimMillis) << shot;
        EXPECT_FALSE(sniper->isAiming()) << "the line goes with the shot";
    }
    player->notarget = true;
    sniper->think(0.1f);
    EXPECT_FALSE(sniper->isAiming());
}

}
