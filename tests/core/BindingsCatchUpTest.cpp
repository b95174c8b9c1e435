// A config.txt written before a control existed gets that control's key at
// the next start, once, unless the player's own bindings say otherwise.
#include <gtest/gtest.h>

#include <cstdio>

#include "console/RegistryFixture.h"
#include "input/GameInput.h"

namespace {
class BindingsCatchUpTest : public HeadlessGameFixture {
protected:
    void SetUp() override
    {
        HeadlessGameFixture::SetUp();
        game->installGameInput(std::make_unique<GameInput>());
        dir.write("data/default.cfg", "bind a +moveleft\nbind f1 controlshelp\n");
    }
    // A start as the game makes it: the variable at its declared default first.
    void start()
    {
        createVar("bindsversion", "0", "")->setType("int");
        game->runStartupScripts();
    }
    std::string f1() const { return game->getGameInput()->getBinding("f1"); }
};
}

TEST_F(BindingsCatchUpTest, AnOlderConfigGetsF1UnlessThePlayersBindingsSayOtherwise)
{
    const struct {
        const char* name;
        std::string config;
        std::string userconfig;
        std::string expected;
    } cases[] = {
        {"first start", "", "", "controlshelp"},
        {"older config", "unbindall\nbind a +moveleft\n", "", "controlshelp"},
        {"F1 taken", "unbindall\nbind f1 quit\n", "", "quit"},
        {"overlay on another key", "unbindall\nbind h controlshelp\n", "", ""},
        {"F1 freed in userconfig", "unbindall\nbind a +moveleft\n", "unbind f1\n", ""},
        {"F1 unbound since", "unbindall\nbind a +moveleft\nbind f1 \nbindsversion 1\n", "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::remove("data/config.txt");
        std::remove("data/userconfig.txt");
        if (!c.config.empty())
            dir.write("data/config.txt", c.config);
        if (!c.userconfig.empty())
            dir.write("data/userconfig.txt", c.userconfig);
        start();
        EXPECT_EQ(f1(), c.expected);
        EXPECT_EQ(findVar("bindsversion")->intValue, 1);
    }
}

TEST_F(BindingsCatchUpTest, APlayerWhoUnbindsF1AfterTheCatchUpKeepsThatAcrossStarts)
{
    dir.write("data/config.txt", "unbindall\nbind a +moveleft\n");
    start();
    ASSERT_EQ(f1(), "controlshelp");
    run("unbind f1");
    for (int i = 0; i < 2; ++i) {
        game->writeConfig("data/config.txt", true);
        start();
        EXPECT_EQ(f1(), "") << "start " << i;
        EXPECT_EQ(game->getGameInput()->getBinding("a"), "+moveleft");
    }
}
