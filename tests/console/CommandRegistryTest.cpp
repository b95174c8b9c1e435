#include "console/RegistryFixture.h"

class CommandRegistryTest : public RegistryFixture {};

TEST_F(CommandRegistryTest, WordsSplitOnBlanksOnly)
{
    CommandRegistry& r = CommandRegistry::instance();
    r.parseCommandLine("  set   chasecam   1  ");
    EXPECT_EQ(r.commandName, "set");
    EXPECT_EQ(r.arguments, (Calls{"chasecam", "1"}));
    EXPECT_EQ(r.argumentCount, 2);
    EXPECT_EQ(r.argumentLine, "chasecam 1");

    // Tabs belong to words, there is no quoting, and the name keeps its case.
    r.parseCommandLine("Say\tit \"two words\"");
    EXPECT_EQ(r.commandName, "Say\tit");
    EXPECT_EQ(r.arguments, (Calls{"\"two", "words\""}));

    r.parseCommandLine("    ");
    EXPECT_EQ(r.commandName, "");
    EXPECT_EQ(r.argumentCount, 0);
    EXPECT_EQ(r.argumentLine, "");
    EXPECT_EQ(r.arg(0), "");
    EXPECT_EQ(r.arg(-1), "");
}

TEST_F(CommandRegistryTest, FirstRegistrationWinsAndNamesAreCaseInsensitive)
{
    int first = 0, second = 0;
    GameCommand* a = registerCommand("first", "Jump", [&] { ++first; });
    GameCommand* b = registerCommand("second", "JUMP", [&] { ++second; });
    EXPECT_EQ(a, b);
    EXPECT_EQ(a->name, "jump");
    EXPECT_EQ(a->description, "first");
    EXPECT_EQ(CommandRegistry::instance().findCommand("jUmP"), a);
    run("JUMP");
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
    EXPECT_NE(CommandRegistry::instance().findCommand("LISTCMDS"), nullptr);
}

TEST_F(CommandRegistryTest, TextSplitsIntoCallsAtSemicolonsAndStopsAtComments)
{
    record("bind");
    registerCommand("nested", "outer", [] { CommandRegistry::instance().execute("rec inner;rec inner2"); });
    const struct {
        const char* text;
        Calls expected;
    } cases[] = {
        {"rec a;rec b//rec c;rec d", {"rec|a", "rec|b"}},
        {"r/*x;y*/ec 1;rec 2", {"rec|1", "rec|2"}},  // the block comment joins "r" and "ec"
        {"rec 1/*/;rec 2", {"rec|1", "rec|2"}},      // "/*/" opens and closes at once
        {"rec 1;rec 2/* never closed; rec 3", {"rec|1", "rec|2"}},
        {"rec 1/**/", {"rec|1"}},
        {" \t\n rec 1 ;; ;rec 2\n\t ", {"rec|1", "rec|2"}},
        // Bound text is one command, but only after a leading "bind ".
        {"bind p pause; quit", {"bind|p|pause;|quit"}},
        {"rec x; bind q rec; rec y", {"rec|x", "bind|q|rec", "rec|y"}},
        {"nosuch 1;rec after", {"rec|after"}},
        // A command may run text while it runs.
        {"outer;rec last", {"rec|inner", "rec|inner2", "rec|last"}},
    };
    for (const auto& c : cases) {
        run(c.text);
        EXPECT_EQ(takeCalls(), c.expected) << c.text;
    }
    EXPECT_EQ(CommandRegistry::instance().pendingText, "");
    EXPECT_NE(run("nosuch 1").find("Unknown Command: nosuch\n"), std::string::npos);
}

