#include "TestPaths.h"
#include <gtest/gtest.h>

#include <SDL.h>

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "console/Console.h"
#include "core/Game.h"
#include "gui/GUIManager.h"
#include "input/InputManager.h"
#include "input/InputTarget.h"
#include "render/NullRenderer.h"
#include "resources/TempDir.h"
#include "sound/NullSound.h"

namespace {
std::string sourceFile(const std::string& rel)
{
    return testSourceDir() + "/" + rel;
}

// Remembers what reached it, so tests can see where an event went.
class RecordingTarget : public InputTarget {
public:
    void keyDown(int symbol, int character, const std::string& keyName) override
    {
        events.push_back("down " + std::to_string(symbol) + " " + std::to_string(character) + " " + keyName);
    }
    void keyUp(int symbol, int character, const std::string& keyName) override
    {
        events.push_back("up " + std::to_string(symbol) + " " + std::to_string(character) + " " + keyName);
    }
    void mouseMove(float x, float y, float dx, float dy) override
    {
        InputTarget::mouseMove(x, y, dx, dy);
        events.push_back("move");
    }
    void mouseDown(float, float, int button) override { events.push_back("press " + std::to_string(button)); }
    void mouseUp(float, float, int button) override { events.push_back("release " + std::to_string(button)); }
    void activate() override { events.push_back("activate"); }
    void deactivate() override { events.push_back("deactivate"); }
    std::vector<std::string> events;
};

class InputManagerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(input().loadKeyNames(sourceFile("data/keymaps.xml")));
        input().addTarget("game", &gameTarget);
    }
    InputManager& input() { return game.getInputManager(); }
    void press(int symbol, int character = 0) { input().keyEvent(true, symbol, character); }
    // A real (empty) level file, read from a scratch directory.
    void loadEmptyLevel()
    {
        TempDir dir;
        dir.write("maps/empty.xml", "<level><Objects/></level>");
        game.loadLevel("empty", "");
    }

    Game game{std::make_unique<NullRenderer>(), std::make_unique<NullSound>()};
    RecordingTarget gameTarget;
};
}

TEST(KeyMapTest, NamesEveryKeyInBindingStyle)
{
    InputManager input;
    ASSERT_TRUE(input.loadKeyNames(sourceFile("data/keymaps.xml")));
    EXPECT_EQ(input.keyName(SDLK_RETURN), "return");
    EXPECT_EQ(input.keyName(SDLK_KP_ENTER), "kp_enter");
    EXPECT_EQ(input.keyName(SDLK_BACKSPACE), "backspace");
    EXPECT_EQ(input.keyName(SDLK_PAGEUP), "pageup");
    EXPECT_EQ(input.keyName(SDLK_PAGEDOWN), "pagedown");
    EXPECT_EQ(input.keyName(SDLK_UP), "up");
    EXPECT_EQ(input.keyName(SDLK_DOWN), "down");
    EXPECT_EQ(input.keyName(SDLK_TAB), "tab");
    EXPECT_EQ(input.keyName(SDLK_BACKQUOTE), "`");
    EXPECT_EQ(input.keyName(SDLK_ESCAPE), "ESCAPE");
    EXPECT_EQ(input.keyName(SDLK_SPACE), "space");
    EXPECT_EQ(input.keyName(SDLK_QUOTEDBL), "\"");
    EXPECT_EQ(input.keyName(SDLK_LESS), "<");
    EXPECT_EQ(input.keyName(SDLK_F15), "f15");
    EXPECT_EQ(input.keyName(SDLK_KP0), "kp0");
    EXPECT_EQ(input.keyName(SDLK_LSHIFT), "lshift");
    EXPECT_EQ(input.keyName(SDLK_WORLD_95), "world_95");
    EXPECT_EQ(input.keyName(SDLK_UNKNOWN), "");
    EXPECT_EQ(input.keyName(9999), "");

    for (int c = 'a'; c <= 'z'; ++c)
        EXPECT_EQ(input.keyName(c), std::string(1, static_cast<char>(c)));
    for (int c = '0'; c <= '9'; ++c)
        EXPECT_EQ(input.keyName(c), std::string(1, static_cast<char>(c)));

    // One name per key, usable as a single bind word, lower case but ESCAPE.
    std::set<std::string> seen;
    for (const auto& [code, name] : input.getKeyNames()) {
        EXPECT_FALSE(name.empty()) << code;
        EXPECT_TRUE(seen.insert(name).second) << "duplicate " << name;
        EXPECT_EQ(name.find(' '), std::string::npos) << name;
        EXPECT_EQ(name.find(';'), std::string::npos) << name;
        if (code == SDLK_ESCAPE)
            continue;
        for (char ch : name)
            EXPECT_FALSE(std::isupper(static_cast<unsigned char>(ch))) << name;
    }
    EXPECT_EQ(input.getKeyNames().size(), 231u);
}

TEST(KeyMapTest, MissingOrBrokenFilesLeaveKeysUnnamed)
{
    InputManager input;
    testing::internal::CaptureStdout();
    EXPECT_FALSE(input.loadKeyNames("no/such/keymaps.xml"));
    EXPECT_NE(testing::internal::GetCapturedStdout().find("Could not load keymap file: no/such/keymaps.xml\n"),
              std::string::npos);
    EXPECT_EQ(input.keyName(SDLK_a), "");

    TempDir dir;
    {
        std::ofstream f("broken_keymaps.xml");
        f << "<keys><key sdlcode=\"97\" keyname=\"a\"";
    }
    testing::internal::CaptureStdout();
    EXPECT_FALSE(input.loadKeyNames("broken_keymaps.xml"));
    EXPECT_NE(testing::internal::GetCapturedStdout().find("Could not load keymap file"), std::string::npos);
}

TEST(KeyMapTest, LaterEntryForTheSameCodeWinsAndElementNamesAreFree)
{
    TempDir dir;
    {
        std::ofstream f("dup_keymaps.xml");
        f << "<anything><key sdlcode=\"97\" keyname=\"first\"/><k sdlcode=\"97\" keyname=\"second\"/>"
             "<x keyname=\"nocode\"/></anything>";
    }
    InputManager input;
    ASSERT_TRUE(input.loadKeyNames("dup_keymaps.xml"));
    EXPECT_EQ(input.keyName(97), "second");
    EXPECT_EQ(input.keyName(0), "nocode");  // a missing code reads as 0, like atoi
}

TEST(ModifierTest, SplitsTheSdlMaskIntoItsBits)
{
    InputManager input;
    input.setModifiers(KMOD_LSHIFT | KMOD_CAPS | KMOD_RCTRL);
    EXPECT_TRUE(input.getModifier(0));
    EXPECT_TRUE(input.getModifier(13));
    EXPECT_TRUE(input.getModifier(7));
    EXPECT_FALSE(input.getModifier(1));
    EXPECT_FALSE(input.getModifier(12));
    input.setModifiers(KMOD_NONE);
    EXPECT_FALSE(input.getModifier(0));
    EXPECT_FALSE(input.getModifier(13));
}

TEST_F(InputManagerTest, StartsWithTheGuiAndItsStandIns)
{
    EXPECT_EQ(input().getCurrentTarget(), "gui");
    EXPECT_EQ(input().getTarget("gui"), game.getGUIManager());
    EXPECT_EQ(input().getTarget("console"), game.getConsole());
    EXPECT_TRUE(game.getGUIManager()->isVisible());
    EXPECT_FALSE(game.getConsole()->isVisible());
}

TEST_F(InputManagerTest, BackquoteOpensAndClosesTheConsoleAndReturnsToTheLastTarget)
{
    input().setTarget("game");
    press(SDLK_BACKQUOTE, '`');
    EXPECT_TRUE(game.getConsole()->isVisible());
    EXPECT_EQ(input().getCurrentTarget(), "console");
    EXPECT_EQ(input().getPreviousTarget(), "game");
    // The backquote itself went to the console, not to the game.
    EXPECT_EQ(gameTarget.events, (std::vector<std::string>{"activate", "deactivate"}));

    press(SDLK_BACKQUOTE, '`');
    EXPECT_FALSE(game.getConsole()->isVisible());
    EXPECT_TRUE(game.getConsole()->getInput().empty());
    EXPECT_EQ(input().getCurrentTarget(), "game");
    // Closing returns without the hooks; the key then reaches the game.
    EXPECT_EQ(gameTarget.events.back(), "down 96 96 `");
    EXPECT_EQ(gameTarget.events.size(), 3u);
}

TEST_F(InputManagerTest, EscapeOpensTheGuiStopsTheWorldAndIsNotPassedOn)
{
    loadEmptyLevel();
    game.getGUIManager()->setVisible(false);
    EXPECT_EQ(input().getCurrentTarget(), "game");
    gameTarget.events.clear();

    testing::internal::CaptureStdout();
    press(SDLK_ESCAPE, 27);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Show GUI\n");
    EXPECT_TRUE(game.getGUIManager()->isVisible());
    EXPECT_FALSE(game.isWorldRunning());
    EXPECT_EQ(input().getCurrentTarget(), "gui");
    EXPECT_EQ(gameTarget.events, (std::vector<std::string>{"deactivate"}));

    // Escape again reaches the GUI, whose root hides it and resumes the game.
    testing::internal::CaptureStdout();
    press(SDLK_ESCAPE, 27);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Hide GUI\n");
    EXPECT_FALSE(game.getGUIManager()->isVisible());
    EXPECT_TRUE(game.isWorldRunning());
    EXPECT_EQ(input().getCurrentTarget(), "game");
}

TEST_F(InputManagerTest, LevelLoadedFromTheOpenConsoleGetsTheKeysWhenItCloses)
{
    for (int run = 0; run < 2; ++run) {  // from the menus, then from a level
        press(SDLK_BACKQUOTE, '`');
        loadEmptyLevel();
        EXPECT_EQ(input().getCurrentTarget(), "console");
        EXPECT_FALSE(game.getGUIManager()->isVisible());
        press(SDLK_BACKQUOTE, '`');
        EXPECT_EQ(input().getCurrentTarget(), "game");
    }
    // Even a console that was its own previous target hands the keys on.
    input().setTarget("console");
    input().setTarget("console");
    game.getConsole()->setVisible(true);
    press(SDLK_BACKQUOTE, '`');
    EXPECT_EQ(input().getCurrentTarget(), "game");
}

TEST_F(InputManagerTest, FirstEscapeAfterALevelLoadedFromTheMenusShowsThem)
{
    loadEmptyLevel();
    testing::internal::CaptureStdout();
    press(SDLK_ESCAPE, 27);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Show GUI\n");
    EXPECT_TRUE(game.getGUIManager()->isVisible());
    EXPECT_EQ(input().getCurrentTarget(), "gui");
}

TEST_F(InputManagerTest, EscapeWithTheConsoleOpenGoesToTheConsole)
{
    RecordingTarget console;
    loadEmptyLevel();
    game.getGUIManager()->setVisible(false);
    press(SDLK_BACKQUOTE, '`');
    input().addTarget("console", &console);  // watch what the console gets
    press(SDLK_ESCAPE, 27);
    EXPECT_FALSE(game.getGUIManager()->isVisible());
    EXPECT_TRUE(game.isWorldRunning());
    EXPECT_EQ(console.events, (std::vector<std::string>{"down 27 27 ESCAPE"}));
}

TEST_F(InputManagerTest, HideGuiNeedsALoadedLevel)
{
    testing::internal::CaptureStdout();
    press(SDLK_ESCAPE, 27);  // GUI visible, no level: stays
    input().hideGUI();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(game.getGUIManager()->isVisible());
    EXPECT_EQ(input().getCurrentTarget(), "gui");
}

TEST_F(InputManagerTest, SetTargetRunsTheHooksAndKeysGoToTheCurrentTarget)
{
    RecordingTarget other;
    input().addTarget("other", &other);
    input().setTarget("game");
    input().setTarget("other");
    EXPECT_EQ(input().getPreviousTarget(), "game");
    EXPECT_EQ(gameTarget.events, (std::vector<std::string>{"activate", "deactivate"}));
    EXPECT_EQ(other.events, (std::vector<std::string>{"activate"}));

    input().setModifiers(KMOD_LSHIFT);
    press(SDLK_a, 'A');
    input().keyEvent(false, SDLK_a, 'A');  // a release carries the symbol twice
    input().keyUp(SDLK_F1);
    EXPECT_EQ(other.events, (std::vector<std::string>{"activate", "down 97 65 a", "up 97 97 a", "up 282 282 f1"}));

    // A target name nobody registered swallows events harmlessly.
    input().setTarget("nobody");
    press(SDLK_a, 'a');
    input().mouseMotion(1, 2, 3, 4);
    input().mouseButtonDown(1, 2, 1);
}

TEST_F(InputManagerTest, MouseMotionKeepsScreenAndWorldPositionsForTheTarget)
{
    input().setTarget("game");
    input().mouseMotion(100.0f, 30.0f, 5.0f, -2.0f);
    EXPECT_EQ(input().getRawX(), 100.0f);
    EXPECT_EQ(input().getRawDY(), -2.0f);
    // Screen coordinates count up from the bottom of the 480-pixel window.
    EXPECT_FLOAT_EQ(input().getScreenMouse()->x, 100.0f);
    EXPECT_FLOAT_EQ(input().getScreenMouse()->y, 450.0f);
    EXPECT_FLOAT_EQ(gameTarget.getScreenMouse().y, 450.0f);
    // The null renderer unprojects nothing: its "outside the view" answer.
    EXPECT_FLOAT_EQ(gameTarget.getWorldMouse().z, -512.0f);
    EXPECT_FLOAT_EQ(gameTarget.getMouseX(), 100.0f);
    EXPECT_FLOAT_EQ(gameTarget.getMouseDX(), 5.0f);

    input().mouseButtonDown(100.0f, 30.0f, 3);
    input().mouseButtonUp(100.0f, 30.0f, 3);
    EXPECT_EQ(gameTarget.events.back(), "release 3");
    EXPECT_EQ(gameTarget.events[gameTarget.events.size() - 2], "press 3");
}

TEST(InputTargetTest, BaseLogsOnlyLeftClicks)
{
    InputTarget target;
    testing::internal::CaptureStdout();
    target.mouseDown(10.0f, 20.5f, 1);
    target.mouseDown(10.0f, 20.5f, 3);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "left click at 10, 20.5\n");
    EXPECT_FALSE(target.getUses2D());
    EXPECT_TRUE(Console().getUses2D());
}
