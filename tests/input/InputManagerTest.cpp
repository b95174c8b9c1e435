#include "TestPaths.h"
#include <gtest/gtest.h>

#include <SDL.h>

#include <cctype>
#include <set>
#include <string>
#include <vector>

#include "console/RegistryFixture.h"
#include "gui/GUIManager.h"
#include "input/InputManager.h"
#include "input/InputTarget.h"

namespace {
const std::string keymaps = testSourceDir() + "/data/keymaps.xml";

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
    void activate() override { events.push_back("activate"); }
    void deactivate() override { events.push_back("deactivate"); }
    std::vector<std::string> events;
};

class InputManagerTest : public HeadlessGameFixture {
protected:
    void SetUp() override
    {
        HeadlessGameFixture::SetUp();
        ASSERT_TRUE(input().loadKeyNames(keymaps));
        input().addTarget("game", &gameTarget);
    }
    InputManager& input() { return game->getInputManager(); }
    void press(int symbol, int character = 0) { input().keyEvent(true, symbol, character); }
    // A real (empty) level file.
    void loadEmptyLevel()
    {
        dir.write("maps/empty.xml", "<level><Objects/></level>");
        game->loadLevel("empty", "");
    }

    RecordingTarget gameTarget;
};
}

TEST(KeyMapTest, NamesEveryKeyInBindingStyle)
{
    InputManager input;
    ASSERT_TRUE(input.loadKeyNames(keymaps));
    const std::pair<int, const char*> named[] = {
        {SDLK_RETURN, "return"}, {SDLK_KP_ENTER, "kp_enter"}, {SDLK_BACKSPACE, "backspace"},
        {SDLK_PAGEUP, "pageup"}, {SDLK_PAGEDOWN, "pagedown"}, {SDLK_UP, "up"}, {SDLK_DOWN, "down"},
        {SDLK_TAB, "tab"}, {SDLK_BACKQUOTE, "`"}, {SDLK_ESCAPE, "ESCAPE"}, {SDLK_SPACE, "space"},
        {SDLK_QUOTEDBL, "\""}, {SDLK_LESS, "<"}, {SDLK_F15, "f15"}, {SDLK_KP0, "kp0"}, {SDLK_LSHIFT, "lshift"},
        {SDLK_WORLD_95, "world_95"}, {SDLK_UNKNOWN, ""}, {9999, ""}};
    for (const auto& [code, name] : named)
        EXPECT_EQ(input.keyName(code), name) << code;
    for (char c : std::string("abcdefghijklmnopqrstuvwxyz0123456789"))
        EXPECT_EQ(input.keyName(c), std::string(1, c));

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
}

TEST(KeyMapTest, FilesAreReadLenientlyButBrokenOnesLeaveKeysUnnamed)
{
    TempDir dir;
    dir.write("dup_keymaps.xml", "<anything><key sdlcode=\"97\" keyname=\"first\"/><k sdlcode=\"97\" "
                                 "keyname=\"second\"/><x keyname=\"nocode\"/></anything>");
    InputManager input;
    ASSERT_TRUE(input.loadKeyNames("dup_keymaps.xml"));
    EXPECT_EQ(input.keyName(97), "second") << "the later entry for a code wins";
    EXPECT_EQ(input.keyName(0), "nocode") << "a missing code reads as 0, like atoi";

    dir.write("broken_keymaps.xml", "<keys><key sdlcode=\"97\" keyname=\"a\"");
    for (const char* file : {"no/such/keymaps.xml", "broken_keymaps.xml"}) {
        InputManager unnamed;
        const std::string out = stdoutOf([&] { EXPECT_FALSE(unnamed.loadKeyNames(file)); });
        EXPECT_NE(out.find("Could not load keymap file: " + std::string(file) + "\n"), std::string::npos) << out;
        EXPECT_EQ(unnamed.keyName(SDLK_a), "");
    }
}

TEST(ModifierTest, SplitsTheSdlMaskIntoItsBits)
{
    InputManager input;
    input.setModifiers(KMOD_LSHIFT | KMOD_CAPS | KMOD_RCTRL);
    for (int bit = 0; bit < 16; ++bit)
        EXPECT_EQ(input.getModifier(bit), bit == 0 || bit == 7 || bit == 13) << bit;
}

TEST_F(InputManagerTest, BackquoteOpensAndClosesTheConsoleAndReturnsToTheLastTarget)
{
    input().setTarget("game");
    press(SDLK_BACKQUOTE, '`');
    EXPECT_TRUE(game->getConsole()->isVisible());
    EXPECT_EQ(input().getCurrentTarget(), "console");
    EXPECT_EQ(input().getPreviousTarget(), "game");
    // The backquote and what is typed after it go to the console, not to the game.
    press(SDLK_k, 'k');
    EXPECT_EQ(gameTarget.events, (std::vector<std::string>{"activate", "deactivate"}));

    press(SDLK_BACKQUOTE, '`');
    EXPECT_FALSE(game->getConsole()->isVisible());
    EXPECT_TRUE(game->getConsole()->getInput().empty());
    EXPECT_EQ(input().getCurrentTarget(), "game");
    // Closing returns without the hooks; the key then reaches the game.
    EXPECT_EQ(gameTarget.events.back(), "down 96 96 `");
    EXPECT_EQ(gameTarget.events.size(), 3u);
}

TEST_F(InputManagerTest, EscapeOpensTheGuiStopsTheWorldAndIsNotPassedOn)
{
    // The game starts in the menus, which cannot be hidden without a level.
    EXPECT_EQ(stdoutOf([&] { press(SDLK_ESCAPE, 27); }) + stdoutOf([&] { input().hideGUI(); }), "");
    EXPECT_TRUE(game->getGUIManager()->isVisible());
    EXPECT_EQ(input().getCurrentTarget(), "gui");

    loadEmptyLevel();
    gameTarget.events.clear();

    EXPECT_EQ(stdoutOf([&] { press(SDLK_ESCAPE, 27); }), "Show GUI\n");
    EXPECT_TRUE(game->getGUIManager()->isVisible());
    EXPECT_FALSE(game->isWorldRunning());
    EXPECT_EQ(input().getCurrentTarget(), "gui");
    EXPECT_EQ(gameTarget.events, (std::vector<std::string>{"deactivate"}));

    // Escape again reaches the GUI, whose root hides it and resumes the game.
    EXPECT_EQ(stdoutOf([&] { press(SDLK_ESCAPE, 27); }), "Hide GUI\n");
    EXPECT_FALSE(game->getGUIManager()->isVisible());
    EXPECT_TRUE(game->isWorldRunning());
    EXPECT_EQ(input().getCurrentTarget(), "game");

    // With the console open, Escape is the console's.
    RecordingTarget console;
    press(SDLK_BACKQUOTE, '`');
    input().addTarget("console", &console);
    press(SDLK_ESCAPE, 27);
    EXPECT_FALSE(game->getGUIManager()->isVisible());
    EXPECT_TRUE(game->isWorldRunning());
    EXPECT_EQ(console.events, (std::vector<std::string>{"down 27 27 ESCAPE"}));
}

TEST_F(InputManagerTest, LevelLoadedFromTheOpenConsoleGetsTheKeysWhenItCloses)
{
    for (int run = 0; run < 2; ++run) {  // from the menus, then from a level
        press(SDLK_BACKQUOTE, '`');
        loadEmptyLevel();
        EXPECT_EQ(input().getCurrentTarget(), "console");
        EXPECT_FALSE(game->getGUIManager()->isVisible());
        press(SDLK_BACKQUOTE, '`');
        EXPECT_EQ(input().getCurrentTarget(), "game");
    }
    // Even a console that was its own previous target hands the keys on.
    input().setTarget("console");
    input().setTarget("console");
    game->getConsole()->setVisible(true);
    press(SDLK_BACKQUOTE, '`');
    EXPECT_EQ(input().getCurrentTarget(), "game");
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
