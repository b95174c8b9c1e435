#include "console/RegistryFixture.h"

class ScriptTest : public RegistryFixture {};

TEST_F(ScriptTest, LinesRunInOrderWithTheirOwnComments)
{
    dir.write("data/s.txt",
              "rec 1;rec 2 // the rest is a comment; rec no\n"
              "rec 3\r\n"
              "\n"
              "/* a block comment ends with its line\n"
              "rec 4 */ rec 5\n"
              "  bind k rec; rec\r\n"
              "rec a\rb\r");
    record("bind");
    run("exec s.txt extra ignored");
    // A CR before a line end is part of the line end; one inside a line stays.
    EXPECT_EQ(calls, (Calls{"rec|1", "rec|2", "rec|3", "rec|4|*/|rec|5", "bind|k|rec;|rec", "rec|a\rb"}));
}

TEST_F(ScriptTest, MissingOrEmptyScriptsRunNothingAndOneThatExecsItselfStops)
{
    const std::string out = run("exec missing.txt;rec after");
    EXPECT_NE(out.find("NOT Found on disk: data/missing.txt\n"), std::string::npos) << out;
    EXPECT_EQ(takeCalls(), (Calls{"rec|after"}));
    dir.write("data/empty.txt", "");
    run("exec empty.txt");
    run("exec");  // usage only
    EXPECT_TRUE(calls.empty());

    dir.write("data/loop.txt", "rec x\nexec loop.txt\n");
    run("exec loop.txt");
    EXPECT_EQ(calls.size(), static_cast<std::size_t>(CommandRegistry::maxExecDepth));
    // The depth is counted per nesting, not per run.
    calls.clear();
    run("exec loop.txt");
    EXPECT_EQ(calls.size(), static_cast<std::size_t>(CommandRegistry::maxExecDepth));
}
