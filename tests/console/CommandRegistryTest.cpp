#include "console/RegistryFixture.h"

#include <vector>

using Calls = std::vector<std::string>;

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

TEST_F(CommandRegistryTest, SemicolonsSplitCommandsAndCommentsEndThem)
{
    run("rec a;rec b//rec c;rec d");
    EXPECT_EQ(calls, (Calls{"rec|a", "rec|b"}));

    calls.clear();
    run("r/*x;y*/ec 1;rec 2");  // the block comment joins "r" and "ec"
    EXPECT_EQ(calls, (Calls{"rec|1", "rec|2"}));

    calls.clear();
    run("rec 1/*/;rec 2");  // "/*/" opens and closes at once
    EXPECT_EQ(calls, (Calls{"rec|1", "rec|2"}));

    calls.clear();
    run("rec 1;rec 2/* never closed; rec 3");
    EXPECT_EQ(calls, (Calls{"rec|1", "rec|2"}));

    calls.clear();
    run("rec 1/**/");  // a comment at the very end
    EXPECT_EQ(calls, (Calls{"rec|1"}));

    calls.clear();
    run(" \t\n rec 1 ;; ;rec 2\n\t ");
    EXPECT_EQ(calls, (Calls{"rec|1", "rec|2"}));
}

TEST_F(CommandRegistryTest, BindTextIsOneCommand)
{
    std::string bound;
    registerCommand("bind a key", "bind", [&] { bound = CommandRegistry::instance().argumentLine; });
    run("bind p pause; quit");
    EXPECT_EQ(bound, "p pause; quit");
    EXPECT_TRUE(calls.empty());

    // Only a leading "bind " switches the mode.
    run("rec x; bind q rec; rec y");
    EXPECT_EQ(bound, "q rec");
    EXPECT_EQ(calls, (Calls{"rec|x", "rec|y"}));
}

TEST_F(CommandRegistryTest, UnknownCommandIsLoggedAndTheRestRuns)
{
    const std::string out = run("nosuch 1;rec after");
    EXPECT_NE(out.find("Unknown Command: nosuch\n"), std::string::npos) << out;
    EXPECT_EQ(calls, (Calls{"rec|after"}));
}

TEST_F(CommandRegistryTest, TypingAVariableNameReadsOrSetsIt)
{
    createVar("gravity", "-9.8", "");
    EXPECT_NE(run("GRAVITY").find("gravity = -9.8\n"), std::string::npos);
    run("gravity 5 6");
    EXPECT_EQ(findVar("gravity")->stringValue, "5");
    EXPECT_EQ(findVar("gravity")->intValue, 5);
}

TEST_F(CommandRegistryTest, CommandsMayRunTextWhileRunning)
{
    registerCommand("nested", "outer", [] { CommandRegistry::instance().execute("rec inner;rec inner2"); });
    run("outer;rec last");
    EXPECT_EQ(calls, (Calls{"rec|inner", "rec|inner2", "rec|last"}));
    EXPECT_EQ(CommandRegistry::instance().pendingText, "");
}

TEST_F(CommandRegistryTest, ClearCommandsEmptiesTheTable)
{
    CommandRegistry::instance().clearCommands();
    EXPECT_TRUE(CommandRegistry::instance().getCommands().empty());
    EXPECT_NE(run("rec").find("Unknown Command: rec"), std::string::npos);
}
