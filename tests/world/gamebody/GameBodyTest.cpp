#include <gtest/gtest.h>

#include <tinyxml.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/Game.h"
#include "gameplay/GameplaySingleton.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"
#include "world/WorldTestHelpers.h"
#include "world/gamebody/GameBody.h"

namespace {
// Counts the effect hooks and records who triggered it; can refuse one
// damage type and scale what it takes, as derived classes do.
class ProbeBody : public GameBody {
public:
    std::unique_ptr<Body> clone() const override { return std::make_unique<ProbeBody>(); }
    void showDamage() override { ++bloodShown; }
    void deathEffects() override { ++deathEffectsShown; }
    void onTriggered(GameBody* activator) override { triggeredBy.push_back(activator); }
    bool canBeDamagedBy(int type) override { return type != refusedType; }
    int adjustDamage(int amount, int) override { return amount * damageScale; }

    int bloodShown = 0;
    int deathEffectsShown = 0;
    std::vector<GameBody*> triggeredBy;
    int refusedType = -100;
    int damageScale = 1;
};

class GameBodyTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        GameplaySingleton::get().levelTimer.startTime = 1000.0f;
        GameplaySingleton::get().levelTimer.currentTime = 6000.0f;
    }
    void TearDown() override { GameplaySingleton::destroy(); }

    Game game{std::make_unique<NullRenderer>(), std::make_unique<NullSound>()};
};

void makeHurtable(ProbeBody& b, int health, int armour)
{
    b.takedamage = true;
    b.health = health;
    b.armour = armour;
}
}

TEST_F(GameBodyTest, OneHitThroughArmourFlagsAndFilters)
{
    struct Case {
        const char* name;
        int health, armour;
        void (*prepare)(ProbeBody&);
        int amount, type;
        int wantHealth, wantArmour, wantBlood, wantDeaths;
    };
    const Case cases[] = {
        {"armour absorbs point for point", 100, 30, nullptr, 50, 1, 80, 0, 1, 0},
        {"armour takes it all", 100, 200, nullptr, 50, 1, 100, 150, 1, 0},
        {"health below one kills", 10, 0, nullptr, 10, 1, 0, 0, 1, 1},
        {"one left survives", 11, 0, nullptr, 10, 1, 1, 0, 1, 0},
        {"cannot be hurt, still bleeds", 100, 0, [](ProbeBody& b) { b.takedamage = false; }, 500, 1, 100, 0, 1, 0},
        {"no blood shown", 100, 0, [](ProbeBody& b) { b.showdamage = false; }, 20, 1, 80, 0, 0, 0},
        {"god mode", 100, 50, [](ProbeBody& b) { b.setGodMode(true); }, 500, -1, 100, 50, 1, 0},
        {"dying ignores it entirely", 100, 0, [](ProbeBody& b) { b.dying = true; }, 50, 1, 100, 0, 0, 0},
        {"limbo ignores it entirely", 100, 0, [](ProbeBody& b) { b.inlimbo = true; }, 50, 1, 100, 0, 0, 0},
        {"invincibility scales, integer part of 12.5", 100, 0,
         [](ProbeBody& b) {
             b.hasinvinc = true;
             b.damagetakenfactor = 0.5f;
         },
         25, 1, 88, 0, 1, 0},
        {"invincibility drops it after the blood", 100, 40,
         [](ProbeBody& b) {
             b.hasinvinc = true;
             b.damagetakenfactor = 0.0f;
         },
         25, 1, 100, 40, 1, 0},
        {"refused type", 100, 0, [](ProbeBody& b) { b.refusedType = 4; }, 10, 4, 100, 0, 1, 0},
        {"adjusted amount", 100, 0, [](ProbeBody& b) { b.damageScale = 2; }, 10, 1, 80, 0, 1, 0},
        {"negative pain heals", 50, 10, nullptr, -30, 1, 80, 10, 1, 0},
        {"healing stops at the cap", 150, 0, nullptr, -500, 1, 200, 0, 1, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ProbeBody b;
        makeHurtable(b, c.health, c.armour);
        if (c.prepare)
            c.prepare(b);
        const bool wasDying = b.dying;
        b.takeDamage(c.amount, c.type);
        EXPECT_EQ(b.health, c.wantHealth);
        EXPECT_EQ(b.armour, c.wantArmour);
        EXPECT_EQ(b.bloodShown, c.wantBlood);
        EXPECT_EQ(b.deathEffectsShown, c.wantDeaths);
        EXPECT_EQ(b.dying, wasDying || c.wantDeaths > 0);
        // The last life ends with removal at the next move step.
        EXPECT_EQ(b.cancleanup, c.wantDeaths > 0);
    }
}

// The last death fires every game body among the targets, in list order,
// once per listing; plain bodies are skipped.
TEST_F(GameBodyTest, LivesGoThroughLimboAndTheLastDeathFiresTargets)
{
    ProbeBody target, other;
    Body plain;
    ProbeBody b;
    makeHurtable(b, 40, 0);
    b.numlives = 3;
    b.initialhealth = 60;
    b.vel.set(10.0f, 5.0f);
    b.addTarget(&target);
    b.addTarget(&plain);
    b.addTarget(&other);
    b.addTarget(&target);

    for (int death = 1; death <= 2; ++death) {
        b.takeDamage(100, 1);
        ASSERT_TRUE(b.inlimbo) << "death " << death;
        EXPECT_EQ(b.numlives, 3 - death);
        EXPECT_FALSE(b.dying);
        EXPECT_FALSE(b.visible);
        EXPECT_FALSE(b.solid);
        EXPECT_TRUE(b.vel.isZero());
        EXPECT_FLOAT_EQ(b.revivetime - GameBody::now(), GameBody::limboMillis);
        EXPECT_TRUE(target.triggeredBy.empty());

        // Still in limbo before the revival time: held still and hidden.
        b.vel.set(3.0f, 3.0f);
        b.think(0.025f);
        EXPECT_TRUE(b.inlimbo);
        EXPECT_TRUE(b.vel.isZero());
        b.takeDamage(100, 1);
        EXPECT_EQ(b.numlives, 3 - death) << "no death while in limbo";

        // Revival comes once more than 3000 ms of level time have passed.
        BasicTimer& clock = GameplaySingleton::get().levelTimer;
        clock.currentTime += GameBody::limboMillis;
        b.think(0.025f);
        EXPECT_TRUE(b.inlimbo) << "exactly 3000 ms is not yet past";
        clock.currentTime += 1.0f;
        b.think(0.025f);
        EXPECT_FALSE(b.inlimbo);
        EXPECT_TRUE(b.visible);
        EXPECT_TRUE(b.solid);
        EXPECT_EQ(b.health, 60);
    }
    EXPECT_FALSE(b.cancleanup);

    b.takeDamage(100, 1);
    EXPECT_EQ(b.numlives, 0);
    EXPECT_FALSE(b.inlimbo);
    EXPECT_TRUE(b.dying);
    EXPECT_TRUE(b.cancleanup);
    EXPECT_EQ(b.deathEffectsShown, 3);
    EXPECT_EQ(target.triggeredBy, (std::vector<GameBody*>{&b, &b}));
    EXPECT_EQ(other.triggeredBy, (std::vector<GameBody*>{&b}));
    EXPECT_FLOAT_EQ(b.deathtime - GameBody::now(), b.deathdelay);

    b.die();
    EXPECT_EQ(b.numlives, 0) << "dying blocks a second death";
}

TEST_F(GameBodyTest, OwnershipFollowsDeathAndDeletion)
{
    GameBody spawner;
    auto a = std::make_unique<GameBody>();
    auto b = std::make_unique<GameBody>();
    spawner.adopt(a.get());
    spawner.adopt(b.get());
    spawner.numalive = 2;

    // An owned body that dies for good leaves its owner's list.
    a->takedamage = true;
    a->takeDamage(500, 1);
    EXPECT_EQ(a->getOwner(), nullptr);
    EXPECT_EQ(spawner.getOwned(), (std::vector<GameBody*>{b.get()}));
    EXPECT_EQ(spawner.numalive, 1);

    // A body in limbo keeps its owner.
    b->numlives = 2;
    b->die();
    EXPECT_EQ(b->getOwner(), &spawner);

    // The owner dying for good releases what it owns.
    spawner.die();
    EXPECT_EQ(b->getOwner(), nullptr);
    EXPECT_TRUE(spawner.getOwned().empty());

    // Deleting either side leaves no dangling link.
    auto parent = std::make_unique<GameBody>();
    auto child = std::make_unique<GameBody>();
    auto orphan = std::make_unique<GameBody>();
    parent->adopt(child.get());
    parent->adopt(orphan.get());
    parent->numalive = 2;
    child.reset();
    EXPECT_EQ(parent->getOwned(), (std::vector<GameBody*>{orphan.get()}));
    EXPECT_EQ(parent->numalive, 1);
    parent.reset();
    EXPECT_EQ(orphan->getOwner(), nullptr);

    // Listed twice by mistake: one removal takes one entry.
    GameBody owner, twice;
    owner.adopt(&twice);
    owner.adopt(&twice);
    owner.numalive = 2;
    owner.removeOwned(&twice);
    EXPECT_EQ(owner.getOwned(), (std::vector<GameBody*>{&twice}));
    EXPECT_EQ(owner.numalive, 1);
}

TEST_F(GameBodyTest, LevelAttributesHealthLivesAndGlow)
{
    GameBody b;
    b.readAttributes({{"Health", "50"}, {"LIVES", "3"}, {"GLOW", "true"}, {"GlowSteps", "4"}, {"unknown", "x"}});
    EXPECT_EQ(b.health, 50);
    EXPECT_EQ(b.maxhealth, 50);
    EXPECT_EQ(b.initialhealth, 50);
    EXPECT_EQ(b.numlives, 3);
    EXPECT_TRUE(b.hasGlow) << "Body's attributes are read too, names in any case";
    EXPECT_EQ(b.glowsteps, 4);

    GameBody absurd;
    absurd.hasGlow = true;
    absurd.readAttributes({{"health", "99999999999999999999"}, {"lives", "many"}, {"glow", "TRUE"}});
    EXPECT_EQ(absurd.health, 2147483647);
    EXPECT_EQ(absurd.numlives, 0);
    EXPECT_FALSE(absurd.hasGlow) << "only a lower-case true turns the glow on";
}

// Every key, Body's first, in the order the writer puts it, with a value
// unlike its default: read and written again it must come back unchanged.
TEST_F(GameBodyTest, SavedStateRoundTripInKeyOrder)
{
    const worldtest::SavedKeys state = {
        {"renderpos", "1,2,3"}, {"oldpos", "4,5,0"}, {"pos", "6.5,-7.25,0"}, {"vel", "100,-200,0"},
        {"frozenvel", "1,1,0"}, {"constantvelocity", "0,30,0"}, {"nonmassmover", "true"}, {"isfiring", "true"},
        {"nextthink", "1234.500000"}, {"gravitymultiplier", "0.500000"}, {"liquidfriction", "0.250000"},
        {"inliquid", "true"}, {"inliquidlastframe", "false"}, {"cancleanup", "true"},
        {"texture", "data/images/crate.png"}, {"autoid", "9"}, {"health", "42"}, {"maxhealth", "150"},
        {"armour", "17"}, {"maxarmour", "99"}, {"takedamage", "true"}, {"showdamage", "false"}, {"dying", "true"},
        {"deathtime", "1234.500000"}, {"deathdelay", "250.000000"}, {"nextpaintime", "77.000000"},
        {"notarget", "true"}, {"numalive", "3"}, {"maxalive", "5"}, {"ownerid", "7"}, {"hasquad", "true"},
        {"quadtime", "9000.000000"}, {"damagefactor", "4.000000"}, {"hasinvinc", "true"},
        {"invinctime", "8000.000000"}, {"damagetakenfactor", "0.250000"}, {"numlives", "2"}, {"inlimbo", "true"},
        {"revivetime", "4500.000000"}, {"initialhealth", "80"}};
    TiXmlElement saved("state");
    for (const auto& [key, value] : state)
        saved.SetAttribute(key.c_str(), value.c_str());

    GameBody copy;
    copy.readState(&saved);
    // A few fields by name, so two keys swapped on both sides still show.
    EXPECT_TRUE(copy.pos.equals(Vector(6.5f, -7.25f)));
    EXPECT_TRUE(copy.vel.equals(Vector(100, -200)));
    EXPECT_FLOAT_EQ(copy.gravitymultiplier, 0.5f);
    EXPECT_EQ(copy.texture, "data/images/crate.png");
    EXPECT_EQ(copy.autoid, 9);
    EXPECT_EQ(copy.maxhealth, 150);
    EXPECT_EQ(copy.maxarmour, 99);
    EXPECT_FLOAT_EQ(copy.deathtime, 1234.5f);
    EXPECT_FLOAT_EQ(copy.damagetakenfactor, 0.25f);
    EXPECT_EQ(copy.ownerid, 7);
    EXPECT_EQ(copy.getOwner(), nullptr) << "the owner is linked at assembly, not by reading";

    // Written again with its owner linked; the id comes from the link.
    GameBody owner;
    owner.autoid = 7;
    owner.adopt(&copy);
    copy.ownerid = 0;
    EXPECT_EQ(worldtest::savedKeys(copy), state);

    TiXmlElement empty("state");
    GameBody blank;
    blank.readState(&empty);
    EXPECT_EQ(blank.health, 0) << "a missing key reads as 0";
    EXPECT_EQ(blank.numlives, 0);
    EXPECT_FALSE(blank.showdamage);
    EXPECT_FLOAT_EQ(blank.damagefactor, 0.0f);
}

TEST_F(GameBodyTest, BeforeTargetsLinksTheSavedOwner)
{
    const auto add = [&](int autoid, int ownerid) {
        auto* b = new GameBody;
        b->autoid = autoid;
        b->ownerid = ownerid;
        game.addBody(b, false);
        return b;
    };
    add(6, 0);
    GameBody* owner = add(5, 0);
    GameBody* child = add(0, 5);
    GameBody* stray = add(0, 99);
    child->beforeTargets();
    stray->beforeTargets();
    EXPECT_EQ(child->getOwner(), owner);
    EXPECT_EQ(owner->getOwned(), (std::vector<GameBody*>{child}));
    EXPECT_EQ(stray->getOwner(), nullptr);

    child->ownerid = 0;
    child->beforeTargets();
    EXPECT_EQ(child->getOwner(), nullptr);
    EXPECT_TRUE(owner->getOwned().empty());
}
