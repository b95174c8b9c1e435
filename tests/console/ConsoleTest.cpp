#include <cmath>

#include "console/RegistryFixture.h"

namespace {
class ConsoleTest : public HeadlessGameFixture {
protected:
    void SetUp() override
    {
        HeadlessGameFixture::SetUp();
        createVar("con_colour", "10,20,30,200", "");
        createVar("con_height", "0.5", "");
        createVar("con_showWarnings", "1", "");
        createVar("con_showDebug", "0", "");
        console().init();
    }
    void type(const std::string& text)
    {
        for (char c : text)
            console().keyDown(c, c, std::string(1, c));
    }
    void key(const std::string& name) { console().keyDown(0, 0, name); }
};
}

TEST_F(ConsoleTest, PrintsInThreeKindsAndColoursAndTheDumpKeepsEveryLine)
{
    console().print("a");
    console().printWarning("w");
    console().printDebug("d");
    console().printColoured("c", 1, 2, 3, 4);
    const auto& lines = console().getLines();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_TRUE(lines[0]->flags.hasFlag(ConLine::Normal));
    EXPECT_EQ(lines[0]->colour, RGBAColour(27, 209, 255, 255));
    EXPECT_TRUE(lines[1]->flags.hasFlag(ConLine::Warning));
    EXPECT_EQ(lines[1]->colour, RGBAColour(225, 0, 0, 255));
    EXPECT_TRUE(lines[2]->flags.hasFlag(ConLine::Debug));
    EXPECT_EQ(lines[2]->colour, RGBAColour(0, 225, 0, 255));
    EXPECT_EQ(lines[3]->colour, RGBAColour(1, 2, 3, 4));
    // A text is one line, whatever it holds.
    console().print("two\nparts");
    EXPECT_EQ(console().getLines().size(), 5u);

    // The dump keeps the debug line the screen hides, between header and footer.
    run("condump dump.txt");
    const std::string dump = TempDir::read("dump.txt");
    ASSERT_EQ(dump.rfind("=== BEGINNING OF CONSOLE DUMP ===\nTimeStamp: ", 0), 0u) << dump;
    EXPECT_NE(dump.find("\n\n\na\nw\nd\nc\ntwo\nparts\n\n\n=== END OF CONSOLE DUMP ===\n"), std::string::npos) << dump;
    EXPECT_FALSE(console().dump("/nonexistent-dir/x/condump.txt"));
}

TEST_F(ConsoleTest, ViewFollowsNewLinesUnlessScrolledBackAndAFloodIsCapped)
{
    for (int i = 0; i < 30; ++i)
        console().print("line " + std::to_string(i));
    EXPECT_EQ(console().getScrollLine(), 29);
    EXPECT_EQ(console().getLastLine(), 29);

    // Page keys move by what a page shows; the wheel by three lines.
    const int page = console().getPageLines();
    ASSERT_GT(page, 1);
    key("pageup");
    EXPECT_EQ(console().getScrollLine(), 29 - page);
    console().mouseDown(0, 0, 5);
    EXPECT_EQ(console().getScrollLine(), 29 - page + 3);
    console().mouseDown(0, 0, 4);
    console().mouseDown(0, 0, 4);
    EXPECT_EQ(console().getScrollLine(), 29 - page - 3);
    console().print("more");
    EXPECT_EQ(console().getScrollLine(), 29 - page - 3);
    EXPECT_EQ(console().getLastLine(), 30);

    for (int i = 0; i < 10; ++i)
        key("pagedown");
    EXPECT_EQ(console().getScrollLine(), 30);  // never past the newest
    for (int i = 0; i < 10; ++i)
        key("pageup");
    EXPECT_EQ(console().getScrollLine(), 0);  // stops at the oldest
    key("end");
    EXPECT_EQ(console().getScrollLine(), 30);
    key("home");
    EXPECT_EQ(console().getScrollLine(), 0);

    // A flood is capped so it cannot exhaust memory; the view follows it from the end.
    key("end");
    for (size_t i = 0; i < Console::maxLines + 10; ++i)
        console().print("x");
    EXPECT_LE(console().getLines().size(), Console::maxLines);
    EXPECT_EQ(console().getScrollLine(), console().getLastLine());
    EXPECT_EQ(console().getLastLine(), static_cast<int>(console().getLines().size()) - 1);
}

TEST_F(ConsoleTest, TypingEditingAndTheLengthLimit)
{
    type("ab");
    key("backspace");
    EXPECT_EQ(console().getInput(), "a");
    console().keyDown(9, 9, "tab_like_but_not");  // symbol outside printable ASCII
    console().keyDown(300, 'x', "world_1");
    EXPECT_EQ(console().getInput(), "a");
    type(std::string(100, 'x'));
    EXPECT_EQ(console().getInput().size(), Console::maxInputLength);
    key("`");
    EXPECT_EQ(console().getInput().size(), Console::maxInputLength);
    console().clearInput();
    key("backspace");
    EXPECT_EQ(console().getInput(), "");

    // The cursor moves within the line; typing and deleting happen at it.
    type("mp");
    key("left");
    key("left");
    type("a");
    EXPECT_EQ(console().getInput(), "amp");
    key("right");
    type("x");
    key("backspace");
    key("left");
    key("delete");
    EXPECT_EQ(console().getInput(), "ap");
    for (int i = 0; i < 5; ++i)
        key("left");
    key("backspace");
    type("m");
    EXPECT_EQ(console().getInput(), "map");
    EXPECT_EQ(console().getCaret(), 1u);
    key("up");  // nothing in the history yet: the line stays
    console().submit();
    key("up");
    type("!");
    EXPECT_EQ(console().getInput(), "map!");
}

TEST_F(ConsoleTest, SubmitEchoesRunsAndRemembersEvenEmptyLinesForTheHistoryKeys)
{
    key("up");  // empty history: nothing happens
    EXPECT_EQ(console().getInput(), "");
    type("set gravity 9");
    key("return");
    EXPECT_EQ(findVar("gravity")->stringValue, "9");
    EXPECT_EQ(consoleLines().back(), "set gravity 9");
    key("kp_enter");
    EXPECT_EQ(consoleLines().back(), "");
    EXPECT_EQ(console().getHistory(), (std::vector<std::string>{"set gravity 9", ""}));
    EXPECT_EQ(console().getHistoryCursor(), 2);
    EXPECT_EQ(console().getInput(), "");

    for (const char* line : {"one", "two", "three"}) {
        type(line);
        key("return");
    }
    key("up");
    EXPECT_EQ(console().getInput(), "three");
    for (int i = 0; i < 5; ++i)
        key("up");
    EXPECT_EQ(console().getInput(), "set gravity 9");  // stops at the oldest
    EXPECT_EQ(console().getHistoryCursor(), 0);
    key("down");
    key("down");
    EXPECT_EQ(console().getInput(), "one");
    for (int i = 0; i < 4; ++i)
        key("down");
    EXPECT_EQ(console().getInput(), "");
    EXPECT_EQ(console().getHistoryCursor(), 5);
}

TEST_F(ConsoleTest, CompletionListsMatchesAndTakesTheShortestName)
{
    type("con_");
    key("tab");
    EXPECT_EQ(console().getMatchCount(), 4);
    EXPECT_EQ(console().getCompletion(), "con_colour");  // shortest, first in name order
    EXPECT_EQ(console().getInput(), "con_colour ");
    const auto lines = consoleLines();
    const std::vector<std::string> expected = {
        "    Auto Complete For:  con_", "    Commands:",      "    Variables:",
        "    con_colour",               "    con_height",     "    con_showdebug",
        "    con_showwarnings",         "    4 Matches For: con_", " "};
    EXPECT_EQ(lines, expected);

    console().clearInput();
    type("cond");
    key("tab");
    EXPECT_EQ(console().getInput(), "condump ");
    EXPECT_EQ(consoleLines()[consoleLines().size() - 2], "    1 Match For: cond");

    console().clearInput();
    const size_t before = consoleLines().size();
    type("zzz");
    key("tab");
    EXPECT_EQ(console().getMatchCount(), 0);
    EXPECT_EQ(console().getInput(), "zzz");
    EXPECT_EQ(consoleLines().size(), before);
}

TEST_F(ConsoleTest, ConsoleCommands)
{
    run("tester");
    auto lines = consoleLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "Warning: test warning");
    EXPECT_TRUE(console().getLines()[1]->flags.hasFlag(ConLine::Debug));

    run("time");
    EXPECT_EQ(consoleLines().back().size(), 24u);  // "Wed Jun 30 21:49:08 1993"

    run("clear");
    EXPECT_TRUE(console().getLines().empty());
    console().print("after clear");
    EXPECT_EQ(console().getScrollLine(), console().getLastLine());

    run("echo  two   words");
    EXPECT_EQ(consoleLines().back(), "two words");
    createVar("sensitivity", "1.5", "How far the cursor moves with the mouse");
    run("help sensitivity");
    EXPECT_EQ(consoleLines().back(), "sensitivity = 1.5 : How far the cursor moves with the mouse");
    run("help condump");
    EXPECT_EQ(consoleLines().back(), "condump : Dump the console");
    run("help nosuchthing");
    EXPECT_EQ(consoleLines().back(), "No command or variable called nosuchthing");

    EXPECT_FALSE(game->isQuitting());
    run("QUIT");
    EXPECT_TRUE(game->isQuitting());
}

TEST_F(ConsoleTest, DrawingKeepsTheBandOnScreenAndReadsTheBackgroundColourOnceChanged)
{
    EXPECT_EQ(Console::bandHeight(480, 0.1f), 96);
    EXPECT_EQ(Console::bandHeight(480, 0.5f), 240);
    EXPECT_EQ(Console::bandHeight(480, 5.0f), 478);
    EXPECT_EQ(Console::bandHeight(480, 1.0f), 478);
    EXPECT_EQ(Console::bandHeight(480, std::nanf("")), 478);
    console().setVisible(true);
    console().draw();
    EXPECT_EQ(console().getBackgroundColour(), RGBAColour(10, 20, 30, 200));
    setVar("con_colour", "1,2,3");  // wrong count: colour unchanged
    console().draw();
    EXPECT_EQ(console().getBackgroundColour(), RGBAColour(10, 20, 30, 200));
    setVar("con_colour", "5,6,7,8");
    console().draw();
    EXPECT_EQ(console().getBackgroundColour(), RGBAColour(5, 6, 7, 8));
    EXPECT_FALSE(findVar("con_colour")->changed);
}
