#include "TestPaths.h"
#include <gtest/gtest.h>

#include <SDL.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "console/CommandRegistry.h"
#include "console/Console.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "input/GameInput.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"

namespace {
// A headless game whose "game" target is a GameInput, with recording
// commands "+hold"/"-hold", "+fire"/"-fire" and "say".
class GameInputTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
        CommandRegistry::instance().registerCommands();
        VariableRegistry::instance().registerCommands();
        for (const char* name : {"+hold", "-hold", "+fire", "-fire", "say", "pause"})
            registerCommand("records the call", name, [this] {
                const CommandRegistry& r = CommandRegistry::instance();
                std::string call = r.commandName;
                for (const std::string& a : r.arguments)
                    call += " " + a;
                calls.push_back(call);
            });
        game.installGameInput(std::make_unique<GameInput>());
        game.getInputManager().setTarget("game");
    }
    void TearDown() override
    {
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
    }
    GameInput& input() { return *game.getGameInput(); }
    void run(const std::string& text) { CommandRegistry::instance().execute(text); }
    std::string quietly(const std::string& text)
    {
        testing::internal::CaptureStdout();
        run(text);
        return testing::internal::GetCapturedStdout();
    }
    // Presses and releases a key by name, as the input manager would.
    void tap(const std::string& key)
    {
        input().keyDown(0, 0, key);
        input().keyUp(0, 0, key);
    }
    std::vector<std::string> consoleText() const
    {
        std::vector<std::string> out;
        for (const auto& line : game.getConsole()->getLines())
            out.push_back(line->text);
        return out;
    }

    Game game{std::make_unique<NullRenderer>(), std::make_unique<NullSound>()};
    std::vector<std::string> calls;
};
}

TEST_F(GameInputTest, BindFoldsCaseOfKeyAndCommand)
{
    run("bind P Pause");
    EXPECT_EQ(input().getBinding("p"), "pause");
    run("bind p SAY Hello   World");
    EXPECT_EQ(input().getBindings().at("p"), "say hello world");
    input().keyDown(SDLK_p, 'P', "P");
    EXPECT_EQ(calls, (std::vector<std::string>{"say hello world"}));
}

TEST_F(GameInputTest, BoundTextKeepsItsSemicolonsAndRunsWhole)
{
    run("bind p say one; say two");
    EXPECT_TRUE(calls.empty());  // binding runs nothing
    EXPECT_EQ(input().getBinding("p"), "say one; say two");
    tap("p");
    EXPECT_EQ(calls, (std::vector<std::string>{"say one", "say two"}));
}

TEST_F(GameInputTest, ReleaseRunsOnlyPlusSegmentsAsMinus)
{
    run("bind a +hold;+fire 3;say x");
    input().keyDown(0, 0, "a");
    EXPECT_EQ(calls, (std::vector<std::string>{"+hold", "+fire 3", "say x"}));
    calls.clear();
    input().keyUp(0, 0, "a");
    EXPECT_EQ(calls, (std::vector<std::string>{"-hold", "-fire 3"}));

    // A segment with a leading blank is not a "+" segment on release.
    calls.clear();
    run("bind b +hold; +fire");
    tap("b");
    EXPECT_EQ(calls, (std::vector<std::string>{"+hold", "+fire", "-hold"}));

    EXPECT_EQ(GameInput::releaseCommands("+a;;+b;c;+"), (std::vector<std::string>{"-a", "-b", "-"}));
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
    EXPECT_EQ(calls, (std::vector<std::string>{"say shot", "say shot"}));
    // Losing the input forgets what was held: the next press counts.
    input().deactivate();
    input().keyDown(0, 0, "f12");
    EXPECT_EQ(calls.size(), 3u);
}

TEST_F(GameInputTest, MouseButtonsAndWheelBindLikeKeys)
{
    run("bind mouse1 +hold");
    run("bind MOUSE2 +fire 1");
    run("bind mwheelup say up");
    run("bind mwheeldown say down");
    run("bind mouse3 say middle");
    auto click = [&](int button) {
        game.getInputManager().mouseButtonDown(5, 5, button);
        game.getInputManager().mouseButtonUp(5, 5, button);
    };
    click(SDL_BUTTON_LEFT);
    click(SDL_BUTTON_RIGHT);
    click(SDL_BUTTON_MIDDLE);
    click(SDL_BUTTON_WHEELUP);
    click(SDL_BUTTON_WHEELDOWN);
    click(9);  // unnamed: nothing
    EXPECT_EQ(calls, (std::vector<std::string>{"+hold", "-hold", "+fire 1", "-fire 1", "say middle",
                                               "say up", "say down"}));
    EXPECT_EQ(input().mouseName(9), "");
}

TEST_F(GameInputTest, UnbindKeepsTheKeyWithAnEmptyCommand)
{
    run("bind p pause");
    run("bind k say hi");
    run("unbind P");
    tap("p");
    EXPECT_TRUE(calls.empty());
    ASSERT_EQ(input().getBindings().count("p"), 1u);

    game.getConsole()->clearInput();
    run("listbinds");
    const std::vector<std::string> text = consoleText();
    ASSERT_GE(text.size(), 2u);
    EXPECT_EQ(text[text.size() - 2], "    Key Bindings");
    EXPECT_EQ(text.back(), "    k is say hi");

    std::ostringstream out;
    input().writeBindings(out);
    EXPECT_EQ(out.str(), "\n//key bindings\n\nunbindall\nbind k say hi\nbind p \n\n");

    run("unbindall");
    tap("k");
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(input().getBindings().empty());
}

TEST_F(GameInputTest, BindQueriesAndUsage)
{
    run("bind");
    run("bind x");
    run("bind Q say it");
    run("bind q");
    run("unbind");
    run("bind unbound say never");
    EXPECT_EQ(consoleText(), (std::vector<std::string>{"Usage: bind <key> <command>", "e.g.: bind p pause",
                                                        "x is unbound", "q is say it", "Usage: unbind <key>",
                                                        "e.g.: unbind p"}));
    EXPECT_EQ(input().getBindings().count("unbound"), 0u);
}

TEST_F(GameInputTest, FindKeyForTakesTheFirstKeyInNameOrder)
{
    run("bind w +hold");
    run("bind up +hold");
    run("bind mouse2 +fire 1");
    EXPECT_EQ(input().findKeyFor("+hold"), "up");
    EXPECT_EQ(input().findKeyFor("+fire 1"), "mouse2");
    EXPECT_EQ(input().findKeyFor("+fire"), "unbound");
}

TEST_F(GameInputTest, WrittenBindingsRestoreTheSameBindings)
{
    run("bind a +hold;+fire 2");
    run("bind ; say semi");  // odd key names survive as they are
    run("bind p say a; say b");
    std::ostringstream out;
    input().writeBindings(out);

    game.installGameInput(std::make_unique<GameInput>());
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);)
        run(line);
    EXPECT_EQ(game.getGameInput()->getBindings(),
              (std::map<std::string, std::string>{{"a", "+hold;+fire 2"}, {";", "say semi"}, {"p", "say a; say b"}}));
}

TEST_F(GameInputTest, VirtualCursorFollowsScaledMotionAndStaysOnScreen)
{
    setVar("sensitivity", "2");
    input().init();  // picks the variable up
    InputManager& manager = game.getInputManager();
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

TEST_F(GameInputTest, KeysReachBindingsOnlyWhileTheGameHasTheInput)
{
    ASSERT_TRUE(game.getInputManager().loadKeyNames(testSourceDir() + "/data/keymaps.xml"));
    run("bind k say k");
    InputManager& manager = game.getInputManager();
    manager.keyEvent(true, SDLK_k, 'k');
    manager.keyUp(SDLK_k);
    manager.keyEvent(true, SDLK_BACKQUOTE, '`');  // console opens
    manager.keyEvent(true, SDLK_k, 'k');
    manager.keyEvent(true, SDLK_BACKQUOTE, '`');  // and closes
    manager.keyEvent(true, SDLK_k, 'k');
    EXPECT_EQ(calls, (std::vector<std::string>{"say k", "say k"}));
}

TEST_F(GameInputTest, ShippedDefaultsBindTheControlsAPlayerExpects)
{
    std::ifstream file(testSourceDir() + "/data/default.cfg");
    ASSERT_TRUE(file.good());
    for (std::string line; std::getline(file, line);)
        run(line);
    const GameInput& in = input();
    EXPECT_EQ(in.getBinding("a"), "+moveleft");
    EXPECT_EQ(in.getBinding("d"), "+moveright");
    EXPECT_EQ(in.getBinding("w"), "+moveup");
    EXPECT_EQ(in.getBinding("s"), "+movedown");
    EXPECT_EQ(in.getBinding("left"), "+moveleft");
    EXPECT_EQ(in.getBinding("right"), "+moveright");
    EXPECT_EQ(in.getBinding("up"), "+moveup");
    EXPECT_EQ(in.getBinding("down"), "+movedown");
    EXPECT_EQ(in.getBinding("mouse1"), "+attack");
    EXPECT_EQ(in.getBinding("mouse2"), "+fire 1");
    EXPECT_EQ(in.getBinding("mwheelup"), "nextweap");
    EXPECT_EQ(in.getBinding("mwheeldown"), "prevweap");
    EXPECT_EQ(in.getBinding("1"), "useitem grapple");
    EXPECT_EQ(in.getBinding("9"), "useitem lightninggun");
    EXPECT_NE(in.findKeyFor("+showupgrades"), "unbound");
    EXPECT_NE(in.findKeyFor("+showmap"), "unbound");
    EXPECT_NE(in.findKeyFor("pause"), "unbound");
    EXPECT_NE(in.findKeyFor("screenshot"), "unbound");
    EXPECT_NE(in.findKeyFor("savegame quicksave"), "unbound");
    EXPECT_NE(in.findKeyFor("loadgame quicksave"), "unbound");
    // Escape and the console key keep their own jobs.
    EXPECT_EQ(in.getBinding("escape"), "");
    EXPECT_EQ(in.getBinding("`"), "");
}

namespace {
class CountingInput : public GameInput {
public:
    void releaseAll() override { ++releases; }
    int releases = 0;
};
}

TEST_F(GameInputTest, LosingTheInputReleasesHeldControls)
{
    auto owned = std::make_unique<CountingInput>();
    CountingInput* counting = owned.get();
    game.installGameInput(std::move(owned));
    InputManager& manager = game.getInputManager();
    ASSERT_EQ(manager.getCurrentTarget(), "game");
    manager.keyEvent(true, SDLK_BACKQUOTE, '`');
    EXPECT_EQ(counting->releases, 1);
    manager.keyEvent(true, SDLK_BACKQUOTE, '`');  // back without the hooks
    EXPECT_EQ(counting->releases, 1);
}
