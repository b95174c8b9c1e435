#include <gtest/gtest.h>

#include <SDL.h>

#include "console/RegistryFixture.h"
#include "input/GameInput.h"
#include "input/InputManager.h"

namespace {
// A headless game whose "game" target is a GameInput; synthetic SDL joystick
// events go through the input manager as the event pump would hand them on.
class JoystickInputTest : public HeadlessGameFixture {
protected:
    void SetUp() override
    {
        HeadlessGameFixture::SetUp();
        for (const char* name : {"+left", "-left", "+right", "-right", "+up", "-up", "+fire", "-fire"})
            record(name);
        game->installGameInput(std::make_unique<GameInput>());
        game->getInputManager().setTarget("game");
    }
    bool feed(const SDL_Event& event) { return game->getInputManager().joystickEvent(event); }
    void button(int which, int number, bool down)
    {
        SDL_Event e{};
        e.jbutton = {Uint8(down ? SDL_JOYBUTTONDOWN : SDL_JOYBUTTONUP), Uint8(which), Uint8(number), Uint8(down)};
        EXPECT_TRUE(feed(e));
    }
    void hat(int number, int value)
    {
        SDL_Event e{};
        e.jhat = {SDL_JOYHATMOTION, 0, Uint8(number), Uint8(value)};
        EXPECT_TRUE(feed(e));
    }
    void axis(int number, int value)
    {
        SDL_Event e{};
        e.jaxis = {SDL_JOYAXISMOTION, 0, Uint8(number), Sint16(value)};
        EXPECT_TRUE(feed(e));
    }
};
}

TEST_F(JoystickInputTest, ButtonsPressAndReleaseTheirBindingPerPad)
{
    run("bind JOY1_BUTTON3 +fire");
    run("bind joy2_button1 +up");
    button(0, 2, true);
    EXPECT_EQ(takeCalls(), (Calls{"+fire"}));
    button(1, 0, true);  // the second pad has its own names
    button(1, 0, false);
    EXPECT_EQ(takeCalls(), (Calls{"+up", "-up"}));
    button(0, 2, false);
    EXPECT_EQ(takeCalls(), (Calls{"-fire"}));
    button(0, 7, true);  // unbound: nothing
    EXPECT_TRUE(calls.empty());
}

TEST_F(JoystickInputTest, HatChangesBecomeOnePressOrReleasePerDirection)
{
    run("bind joy1_hat_up +up");
    run("bind joy1_hat_right +right");
    run("bind joy1_hat_left +left");
    run("bind joy1_hat2_up +fire");
    hat(0, SDL_HAT_UP);
    hat(0, SDL_HAT_RIGHTUP);  // diagonal: up stays held, right joins
    EXPECT_EQ(takeCalls(), (Calls{"+up", "+right"}));
    hat(0, SDL_HAT_RIGHTUP);  // a repeat changes nothing
    EXPECT_TRUE(calls.empty());
    // Rolling straight across releases before it presses.
    hat(0, SDL_HAT_LEFT);
    EXPECT_EQ(takeCalls(), (Calls{"-up", "-right", "+left"}));
    hat(0, SDL_HAT_CENTERED);
    EXPECT_EQ(takeCalls(), (Calls{"-left"}));
    hat(1, SDL_HAT_UP);
    EXPECT_EQ(takeCalls(), (Calls{"+fire"}));
}

TEST_F(JoystickInputTest, AxesPressPastTheDeadZoneAndSwitchSidesCleanly)
{
    VariableRegistry::instance().createVar("joy_deadzone", "0.25", "stick dead zone");
    run("bind joy1_axis1_minus +left");
    run("bind joy1_axis1_plus +right");
    axis(0, 8000);  // inside a quarter of full tilt
    axis(0, -8000);
    EXPECT_TRUE(calls.empty());
    axis(0, 20000);
    axis(0, 32767);  // further along the same side: still one press
    EXPECT_EQ(takeCalls(), (Calls{"+right"}));
    axis(0, -32768);  // straight across in one event
    EXPECT_EQ(takeCalls(), (Calls{"-right", "+left"}));
    axis(0, 0);
    EXPECT_EQ(takeCalls(), (Calls{"-left"}));

    run("set joy_deadzone 0.7");
    axis(0, 20000);
    EXPECT_TRUE(calls.empty());
    axis(0, 30000);
    EXPECT_EQ(takeCalls(), (Calls{"+right"}));

    // An absurd dead zone still lets a full tilt through.
    run("set joy_deadzone 5");
    axis(0, 0);
    axis(0, 32767);
    EXPECT_EQ(takeCalls(), (Calls{"-right", "+right"}));
}

TEST_F(JoystickInputTest, OnlyTheGameTargetHearsThePad)
{
    run("bind joy1_button1 +fire");
    game->getInputManager().setTarget("console");
    button(0, 0, true);
    EXPECT_TRUE(calls.empty());
    game->getInputManager().setTarget("game");
    button(0, 0, false);
    EXPECT_EQ(takeCalls(), (Calls{"-fire"}));

    SDL_Event key{};
    key.type = SDL_KEYDOWN;
    EXPECT_FALSE(feed(key));
}

TEST_F(JoystickInputTest, AimStickPointsTheWayItLastLeanedUntilTheMouseMoves)
{
    createVar("joy_aimx", "4", "");
    createVar("joy_aimy", "5", "");
    GameInput& input = *game->getGameInput();
    Vector aim;
    EXPECT_FALSE(input.getAimStick(aim));
    axis(3, 8000);  // inside the dead zone: the mouse still aims
    EXPECT_FALSE(input.getAimStick(aim));

    axis(3, 32767);
    ASSERT_TRUE(input.getAimStick(aim));
    EXPECT_FLOAT_EQ(aim.x, 1.0f);
    EXPECT_FLOAT_EQ(aim.y, 0.0f);
    axis(4, -32767);  // stick pushed up: SDL's y runs down, the world's up
    ASSERT_TRUE(input.getAimStick(aim));
    EXPECT_NEAR(aim.x, 0.7071f, 1e-3);
    EXPECT_NEAR(aim.y, 0.7071f, 1e-3);
    // Letting go keeps the direction; the stick's axes still bind as keys.
    run("bind joy1_axis4_plus +fire");
    axis(3, 0);
    axis(4, 0);
    ASSERT_TRUE(input.getAimStick(aim));
    EXPECT_NEAR(aim.x, 0.7071f, 1e-3);
    EXPECT_NEAR(aim.y, 0.7071f, 1e-3);
    calls.clear();
    axis(3, 30000);
    EXPECT_EQ(calls, (Calls{"+fire"}));
    ASSERT_TRUE(input.getAimStick(aim));
    EXPECT_FLOAT_EQ(aim.x, 1.0f);

    input.mouseMove(0, 0, 3, 4);
    EXPECT_FALSE(input.getAimStick(aim));

    // Aiming off: the axes are only bindable directions.
    run("set joy_aimx 0");
    run("set joy_aimy 0");
    axis(3, 0);
    axis(3, -32768);
    EXPECT_FALSE(input.getAimStick(aim));
}
