#include "console/RegistryFixture.h"

#include "console/CommandLine.h"

using Commands = std::vector<std::string>;

class CommandLineTest : public RegistryFixture {
protected:
    std::string parse(std::vector<const char*> args)
    {
        args.insert(args.begin(), "brindlequay");
        std::fflush(stdout);
        ::testing::internal::CaptureStdout();
        line.parse(static_cast<int>(args.size()), args.data());
        std::fflush(stdout);
        return ::testing::internal::GetCapturedStdout();
    }
    CommandLine line;
};

TEST_F(CommandLineTest, SetCommandsAreSeparatedFromTheRest)
{
    const std::string log = parse({"+set", "vidwidth", "800", "+rec", "a", "b", "+SET", "Gravity", "-5",
                                   "+settle", "+rec;rec", "c"});
    EXPECT_EQ(log, "");
    EXPECT_EQ(line.getSetCommands(), (Commands{"set vidwidth 800", "SET Gravity -5"}));
    EXPECT_EQ(line.getOtherCommands(), (Commands{"rec a b", "settle", "rec;rec c"}));

    line.runSetCommands();
    EXPECT_EQ(findVar("vidwidth")->intValue, 800);
    EXPECT_FLOAT_EQ(findVar("gravity")->floatValue, -5.0f);
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(line.getSetCommands().empty());

    line.runOtherCommands();
    EXPECT_EQ(calls, (Commands{"rec|a|b", "rec", "rec|c"}));
    line.runOtherCommands();  // each runs once
    EXPECT_EQ(calls.size(), 3u);
}

TEST_F(CommandLineTest, MalformedWordsAreReportedAndSkipped)
{
    const std::string log = parse({"map", "test", "+", "loose", "+rec", "x", ""});
    EXPECT_NE(log.find("Command line: ignoring \"map\""), std::string::npos) << log;
    EXPECT_NE(log.find("Command line: ignoring \"test\""), std::string::npos) << log;
    EXPECT_NE(log.find("Command line: ignoring a \"+\" without a command"), std::string::npos) << log;
    EXPECT_NE(log.find("Command line: ignoring \"loose\""), std::string::npos) << log;
    EXPECT_EQ(line.getOtherCommands(), (Commands{"rec x "}));
    EXPECT_TRUE(line.getSetCommands().empty());

    EXPECT_EQ(parse({}), "");
    EXPECT_TRUE(line.getOtherCommands().empty());
}
