// A config.txt written before a control existed gets that control's key at
// the next start, once, unless the player's own bindings say otherwise.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>

#include "console/RegistryFixture.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "input/GameInput.h"
#include "render/NullRenderer.h"
#include "resources/TempDir.h"
#include "sound/NullSound.h"

namespace {
class BindingsCatchUpTest : public RegistryFixture {
protected:
    void SetUp() override
    {
        RegistryFixture::SetUp();
        game = std::make_unique<Game>(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
        game->installGameInput(std::make_unique<GameInput>());
        scratch.write("data/default.cfg", "bind a +moveleft\nbind f1 controlshelp\n");
    }
    void TearDown() override
    {
        game.reset();
        RegistryFixture::TearDown();
    }
    // A start as the game makes it: the variable at its declared default first.
    void start()
    {
        createVar("bindsversion", "0", "")->setType("int");
        game->runStartupScripts();
    }
    std::string f1() const { return game->getGameInput()->getBinding("f1"); }

    TempDir scratch;
    std::unique_ptr<Game> game;
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
            scratch.write("data/config.txt", c.config);
        if (!c.userconfig.empty())
            scratch.write("data/userconfig.txt", c.userconfig);
        start();
        EXPECT_EQ(f1(), c.expected);
        EXPECT_EQ(findVar("bindsversion")->intValue, 1);
    }
}

TEST_F(BindingsCatchUpTest, APlayerWhoUnbindsF1AfterTheCatchUpKeepsThatAcrossStarts)
{
    scratch.write("data/config.txt", "unbindall\nbind a +moveleft\n");
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
