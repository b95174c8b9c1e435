#include "gameplay/GameplayFixture.h"

class PlayerControlsTest : public GameplayFixture {
protected:
    void setMode(int mode) { setVar("movemode", std::to_string(mode)); }
    Vector force(float step = 0.025f) { return input->computeForce(*player, step); }
};

TEST_F(PlayerControlsTest, ForcesInEachModeTheJumpAllowanceAndDamping)
{
    setMode(2);
    const float m = player->mass;
    GameplayInput::moveRight = true;
    player->onGround = true;
    EXPECT_FLOAT_EQ(force().x, 190.0f * m);
    EXPECT_FLOAT_EQ(force().x, 80.0f * m);  // the contact was used up

    // Left and right together cancel out.
    GameplayInput::moveLeft = true;
    player->onGround = true;
    EXPECT_FLOAT_EQ(force().x, 0.0f);
    GameplayInput::moveRight = false;
    EXPECT_FLOAT_EQ(force().x, -80.0f * m);

    // Down pushes down whether or not the player stands on something.
    GameplayInput::moveLeft = false;
    GameplayInput::moveDown = true;
    EXPECT_FLOAT_EQ(force().y, -320.0f * m);

    // Up pushes on the ground step plus every step until the air time passes 0.3 s.
    input->releaseAll();
    GameplayInput::moveUp = true;
    player->onGround = true;
    int pushes = 0;
    while (pushes < 40 && force().y > 0.0f)
        ++pushes;
    EXPECT_GE(pushes, 12);
    EXPECT_LE(pushes, 13);
    EXPECT_FALSE(player->canJump);
    // Once refused the push stays refused, however long up is held...
    for (int i = 0; i < 20; ++i)
        EXPECT_FLOAT_EQ(force().y, 0.0f);
    // ...until the player lands again.
    player->onGround = true;
    EXPECT_FLOAT_EQ(force().y, 320.0f * m);
    EXPECT_TRUE(player->canJump);
    EXPECT_FLOAT_EQ(player->airTime, 0.025f);

    // Free mode thrusts the same every way, up as well.
    setMode(1);
    input->releaseAll();
    GameplayInput::moveUp = true;
    GameplayInput::moveRight = true;
    Vector f = force();
    EXPECT_FLOAT_EQ(f.x, 300.0f * m);
    EXPECT_FLOAT_EQ(f.y, 300.0f * m);
    GameplayInput::moveDown = true;
    EXPECT_FLOAT_EQ(force().y, 0.0f);

    // Damping works on the raw velocity, and not at all for a zero step.
    input->releaseAll();
    player->vel = Vector(100.0f, -50.0f);
    f = force(0.025f);
    EXPECT_FLOAT_EQ(f.x, -90.0f);
    EXPECT_FLOAT_EQ(f.y, 45.0f);
    f = force(0.0f);
    EXPECT_FLOAT_EQ(f.x, 0.0f);
    EXPECT_FLOAT_EQ(f.y, 0.0f);

    // A dead player is not pushed.
    player->dead = true;
    GameplayInput::moveRight = true;
    input->applyControls(player, 0.025f);
    EXPECT_FLOAT_EQ(player->vel.x, 100.0f);
}

TEST_F(PlayerControlsTest, CommandsHoldAndReleaseAndATapStillCountsForItsStep)
{
    loadLevel();
    frames(4);
    const float x = player->pos.x;
    // Pressed and let go between two steps, as a quick key tap is.
    run("+moveright");
    EXPECT_TRUE(GameplayInput::moveRight);
    run("-moveright");
    EXPECT_FALSE(GameplayInput::moveRight);
    frame();
    EXPECT_GT(player->vel.x, 0.0f);
    // Only that step: the push is not held on.
    const float vel = player->vel.x;
    frames(4);
    EXPECT_LT(player->vel.x, vel);
    EXPECT_GT(player->pos.x, x);

    // Losing the input lets go of everything, and a tap it let go of does not come back.
    run("+moveleft");
    run("+attack");
    EXPECT_TRUE(GameplayInput::attack);
    input->deactivate();
    EXPECT_FALSE(GameplayInput::moveLeft);
    EXPECT_FALSE(GameplayInput::attack);
    frame();
    EXPECT_GE(player->vel.x, 0.0f);

    run("+fire 3");
    EXPECT_TRUE(GameplayInput::fireById);
    EXPECT_EQ(GameplayInput::fireWeaponId, 3);
    run("-fire");
    EXPECT_FALSE(GameplayInput::fireById);
    EXPECT_EQ(GameplayInput::fireWeaponId, 3);

    run("god");
    EXPECT_TRUE(player->isGodMode());
    run("god");
    EXPECT_FALSE(player->isGodMode());
    run("invis");
    EXPECT_TRUE(player->notarget);
}

TEST_F(PlayerControlsTest, ControlsLeaveThePlayersOwnFrictionAlone)
{
    // Running and braking come from the forces alone; the body's contact
    // friction and static grip stay at the values every body starts with.
    setMode(2);
    loadLevel();
    player->setPosition(Vector(-500.0f, 8.0f));
    frames(10);
    GameplayInput::moveRight = true;
    frames(20);
    EXPECT_FLOAT_EQ(player->friction, 0.01f);
    EXPECT_FLOAT_EQ(player->staticFrictionSpeed, 0.1f);
    GameplayInput::moveRight = false;
    const float running = player->vel.x;
    frames(20);
    EXPECT_FLOAT_EQ(player->friction, 0.01f);
    EXPECT_FLOAT_EQ(player->staticFrictionSpeed, 0.1f);
    // Released on the flat it slows down without stopping dead.
    EXPECT_GT(running, 40.0f);
    EXPECT_LT(player->vel.x, running);
    EXPECT_GT(player->vel.x, 0.5f);
}

// Held keys carry the player to a goal: walking climbs steps up to 8 units
// but neither passes nor creeps up a 12-unit one; a jump (up let go after 16
// steps) lands on a ledge twice the player's height; it swims up out of a
// pool 48 deep, deeper than the best jump; and on the shipped test level the
// stairs of 8-unit steps need no jump and the pool is left by swimming up to
// the step and out. In free mode it flies up and on against gravity.
TEST_F(PlayerControlsTest, HeldKeysReachTheirGoals)
{
    const std::string pool = box("default", "rim_west", 400, 0, 480, 48) +
                             box("default", "rim_east", 560, 0, 640, 48) +
                             box("water", "pool", 480, 0, 560, 40, "mass=\"0\" solid=\"false\" entity=\"true\"");
    const auto step = [](float height) { return box("default", "stepblock", -400, 0, -200, height); };
    struct Case {
        const char* name;
        const char* shipped;  // else the fixture level with `extra`
        std::string extra;
        Vector from;
        int upSteps;  // 0: up is never pressed, -1: held throughout
        float minX, maxX, minY, maxY;
        bool reaches = true;
        int mode = 2;
    };
    const float far = 1e9f;
    const Case cases[] = {
        {"4-unit step", nullptr, step(4.0f), Vector(-500.0f, 8.0f), 0, -400.0f, far, -far, far},
        {"8-unit step", nullptr, step(8.0f), Vector(-500.0f, 8.0f), 0, -400.0f, far, -far, far},
        {"past a 12-unit step", nullptr, step(12.0f), Vector(-500.0f, 8.0f), 0, -400.0f, far, -far, far, false},
        {"up a 12-unit step", nullptr, step(12.0f), Vector(-500.0f, 8.0f), 0, -far, far, 8.5f, far, false},
        {"ledge", nullptr, "", Vector(40.0f, 8.0f), 16, 108.0f, 292.0f, 39.5f, 40.5f},
        {"deep water", nullptr, pool, Vector(520.0f, 8.0f), -1, 568.0f, far, 55.0f, 57.0f},
        {"stairs", "test", "", Vector(1216.0f, 8.0f), 0, 1390.0f, far, 55.0f, far},
        {"test pool", "test", "", Vector(1040.0f, -40.0f), -1, 1126.0f, far, 7.0f, far},
        {"free flight", nullptr, "", Vector(-500.0f, 8.0f), -1, -490.0f, far, 60.0f, far, true, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        setMode(c.mode);
        if (c.shipped)
            loadShipped(c.shipped);
        else
            loadLevel(c.extra);
        player->setPosition(c.from);
        frames(20);
        GameplayInput::moveRight = true;
        GameplayInput::moveUp = c.upSteps != 0;
        bool made = false;
        for (int i = 1; i <= 240 && !made; ++i) {
            frame();
            if (i == c.upSteps)
                GameplayInput::moveUp = false;
            const Vector& p = player->pos;
            made = p.x > c.minX && p.x < c.maxX && p.y > c.minY && p.y < c.maxY;
        }
        input->releaseAll();
        EXPECT_EQ(made, c.reaches) << "x " << player->pos.x << " y " << player->pos.y;
    }
}
