#include "TestPaths.h"
#include <gtest/gtest.h>

#include <SDL.h>

#include <fstream>
#include <sstream>

#include "console/RegistryFixture.h"
#include "input/GameInput.h"

namespace {
// A headless game whose "game" target is a GameInput, with recording
// commands "say", "pause" and the press and release of "hold", "fire",
// "left", "right" and "up".
class GameInputTest : public HeadlessGameFixture {
protected:
    void SetUp() override
    {
        HeadlessGameFixture::SetUp();
        for (const char* name : {"+hold", "-hold", "+fire", "-fire", "say", "pause", "+left", "-left", "+right",
                                 "-right", "+up", "-up"})
            record(name);
        game->installGameInput(std::make_unique<GameInput>());
        game->getInputManager().setTarget("game");
    }
    GameInput& input() { return *game->getGameInput(); }
    // Presses and releases a key by name, as the input manager would.
    void tap(const std::string& key)
    {
        input().keyDown(0, 0, key);
        input().keyUp(0, 0, key);
    }
};
}

TEST_F(GameInputTest, ReleaseRunsOnlyPlusSegmentsAsMinus)
{
    run("bind a +hold;+fire 3;say x");
    input().keyDown(0, 0, "a");
    EXPECT_EQ(takeCalls(), (Calls{"+hold", "+fire|3", "say|x"}));
    input().keyUp(0, 0, "a");
    EXPECT_EQ(takeCalls(), (Calls{"-hold", "-fire|3"}));

    // A segment with a leading blank is not a "+" segment on release.
    EXPECT_EQ(GameInput::releaseCommands("+a;;+b;c;+; +d"), (Calls{"-a", "-b", "-"}));
    EXPECT_TRUE(GameInput::releaseCommands("").empty());
}

TEST_F(GameInputTest, AHeldKeysRepeatedPressesRunItsBindingOnce)
{
    run("bind f12 say shot");
    // The window system repeats a held key's press until it is released.
    for (int i = 0; i < 5; ++i)
        input().keyDown(0, 0, "f12");
    input().keyUp(0, 0, "f12");
    input().keyDown(0, 0, "F12");
    EXPECT_EQ(calls, (Calls{"say|shot", "say|shot"}));
    // Losing the input forgets what was held: the next press counts.
    input().deactivate();
    input().keyDown(0, 0, "f12");
    EXPECT_EQ(calls.size(), 3u);
}

TEST_F(GameInputTest, MouseButtonsAndWheelBindLikeKeys)
{
    for (const char* line :
         {"bind mouse1 +hold", "bind MOUSE2 +fire 1", "bind mwheelup say up", "bind mwheeldown say down",
          "bind mouse3 say middle"})
        run(line);
    // The last button has no name: nothing.
    for (int button :
         {SDL_BUTTON_LEFT, SDL_BUTTON_RIGHT, SDL_BUTTON_MIDDLE, SDL_BUTTON_WHEELUP, SDL_BUTTON_WHEELDOWN, 9}) {
        game->getInputManager().mouseButtonDown(5, 5, button);
        game->getInputManager().mouseButtonUp(5, 5, button);
    }
    EXPECT_EQ(calls, (Calls{"+hold", "-hold", "+fire|1", "-fire|1", "say|middle", "say|up", "say|down"}));
    EXPECT_EQ(input().mouseName(9), "");
}

TEST_F(GameInputTest, UnbindKeepsTheKeyWithAnEmptyCommandAndBindingsAreListedAndWrittenWhole)
{
    run("bind p pause");
    run("bind k say hi; say ho");  // kept whole, not run as two commands
    run("bind ; +hold;+fire 2");  // odd key names survive as they are
    run("unbind P");
    tap("p");
    EXPECT_TRUE(calls.empty());
    ASSERT_EQ(input().getBindings().count("p"), 1u);

    game->getConsole()->clearInput();
    run("listbinds");
    EXPECT_EQ(consoleLines(), (std::vector<std::string>{"    Key Bindings", "    ; is +hold;+fire 2",
                                                        "    k is say hi; say ho"}));

    std::ostringstream out;
    input().writeBindings(out);
    EXPECT_EQ(out.str(), "\n//key bindings\n\nunbindall\nbind ; +hold;+fire 2\nbind k say hi; say ho\nbind p \n\n");

    run("unbindall");
    tap("k");
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(input().getBindings().empty());
}

TEST_F(GameInputTest, BindFoldsCaseAnswersQueriesAndFindsTheKeyForACommand)
{
    run("bind P SAY Hello   World");
    EXPECT_EQ(input().getBinding("p"), "say hello world");
    input().keyDown(SDLK_p, 'P', "P");
    EXPECT_EQ(takeCalls(), (Calls{"say|hello|world"}));

    run("bind");
    run("bind x");
    run("bind Q say it");
    run("bind q");
    run("unbind");
    run("bind unbound say never");
    EXPECT_EQ(consoleLines(), (std::vector<std::string>{"Usage: bind <key> <command>", "e.g.: bind p pause",
                                                        "x is unbound", "q is say it", "Usage: unbind <key>",
                                                        "e.g.: unbind p"}));
    EXPECT_EQ(input().getBindings().count("unbound"), 0u);

    run("bind w +hold");
    run("bind up +hold");
    EXPECT_EQ(input().findKeyFor("+hold"), "up") << "the first key in name order";
    EXPECT_EQ(input().findKeyFor("say it"), "q");
    EXPECT_EQ(input().findKeyFor("say"), "unbound");
}

TEST_F(GameInputTest, VirtualCursorFollowsScaledMotionAndStaysOnScreen)
{
    setVar("sensitivity", "2");
    input().init();  // picks the variable up
    InputManager& manager = game->getInputManager();
    manager.mouseMotion(300, 200, 10, 5);
    EXPECT_FLOAT_EQ(input().getMouseX(), 20.0f);
    EXPECT_FLOAT_EQ(input().getMouseY(), 10.0f);
    EXPECT_FLOAT_EQ(input().getMouseDX(), 20.0f);

    for (float d : {-1e9f, 5000.0f, -30.0f, 1e30f, 250.0f})
        for (float e : {3.0f, -1e7f, 900.0f}) {
            manager.mouseMotion(0, 0, d, e);
            EXPECT_GE(input().getMouseX(), 0.0f);
            EXPECT_LE(input().getMouseX(), 640.0f);
            EXPECT_GE(input().getMouseY(), 0.0f);
            EXPECT_LE(input().getMouseY(), 480.0f);
        }
    manager.mouseMotion(0, 0, 1e9f, -1e9f);
    EXPECT_FLOAT_EQ(input().getMouseX(), 640.0f);
    EXPECT_FLOAT_EQ(input().getMouseY(), 0.0f);
}

TEST_F(GameInputTest, ShippedDefaultsBindTheControlsAPlayerExpects)
{
    std::ifstream file(testSourceDir() + "/data/default.cfg");
    ASSERT_TRUE(file.good());
    for (std::string line; std::getline(file, line);)
        run(line);
    const std::pair<const char*, const char*> bound[] = {
        {"a", "+moveleft"}, {"d", "+moveright"}, {"w", "+moveup"}, {"s", "+movedown"},
        {"left", "+moveleft"}, {"right", "+moveright"}, {"up", "+moveup"}, {"down", "+movedown"},
        {"mouse1", "+attack"}, {"mouse2", "+fire 1"}, {"mwheelup", "nextweap"}, {"mwheeldown", "prevweap"},
        {"1", "useitem grapple"}, {"9", "useitem lightninggun"},
        // Escape and the console key keep their own jobs.
        {"escape", ""}, {"`", ""}};
    for (const auto& [key, command] : bound)
        EXPECT_EQ(input().getBinding(key), command) << key;
    for (const char* command :
         {"+showupgrades", "+showmap", "pause", "screenshot", "savegame quicksave", "loadgame quicksave"})
        EXPECT_NE(input().findKeyFor(command), "unbound") << command;
}

namespace {
// Synthetic SDL joystick events go through the input manager as the event
// pump would hand them on.
class JoystickInputTest : public GameInputTest {
protected:
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

TEST_F(JoystickInputTest, ButtonsPressAndReleaseTheirBindingPerPadWhileTheGameHasTheInput)
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

    game->getInputManager().setTarget("console");
    button(1, 0, true);
    EXPECT_TRUE(calls.empty());
    game->getInputManager().setTarget("game");
    button(1, 0, false);
    EXPECT_EQ(takeCalls(), (Calls{"-up"}));

    SDL_Event key{};
    key.type = SDL_KEYDOWN;
    EXPECT_FALSE(feed(key)) << "not a pad event";
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

TEST_F(JoystickInputTest, AimStickPointsTheWayItLastLeanedUntilTheMouseMoves)
{
    createVar("joy_aimx", "4", "");
    createVar("joy_aimy", "5", "");
    Vector aim;
    EXPECT_FALSE(input().getAimStick(aim));
    axis(3, 8000);  // inside the dead zone: the mouse still aims
    EXPECT_FALSE(input().getAimStick(aim));

    axis(3, 32767);
    ASSERT_TRUE(input().getAimStick(aim));
    EXPECT_FLOAT_EQ(aim.x, 1.0f);
    EXPECT_FLOAT_EQ(aim.y, 0.0f);
    axis(4, -32767);  // stick pushed up: SDL's y runs down, the world's up
    ASSERT_TRUE(input().getAimStick(aim));
    EXPECT_NEAR(aim.x, 0.7071f, 1e-3);
    EXPECT_NEAR(aim.y, 0.7071f, 1e-3);
    // Letting go keeps the direction; the stick's axes still bind as keys.
    run("bind joy1_axis4_plus +fire");
    axis(3, 0);
    axis(4, 0);
    ASSERT_TRUE(input().getAimStick(aim));
    EXPECT_NEAR(aim.x, 0.7071f, 1e-3);
    EXPECT_NEAR(aim.y, 0.7071f, 1e-3);
    calls.clear();
    axis(3, 30000);
    EXPECT_EQ(calls, (Calls{"+fire"}));
    ASSERT_TRUE(input().getAimStick(aim));
    EXPECT_FLOAT_EQ(aim.x, 1.0f);

    input().mouseMove(0, 0, 3, 4);
    EXPECT_FALSE(input().getAimStick(aim));

    // Aiming off: the axes are only bindable directions.
    run("set joy_aimx 0");
    run("set joy_aimy 0");
    axis(3, 0);
    axis(3, -32768);
    EXPECT_FALSE(input().getAimStick(aim));
}
