// The start-up scripts, video-mode changes and the registries' messages as the
// player sees them in the console.
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "console/CommandRegistry.h"
#include "console/ConLine.h"
#include "console/Console.h"
#include "console/RegistryFixture.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "gameplay/DefaultGameplay.h"
#include "gui/GUIManager.h"
#include "render/NullRenderer.h"
#include "resources/TempDir.h"
#include "sound/NullSound.h"
#include "world/body/Body.h"

namespace {
class GameStartupTest : public RegistryFixture {
protected:
    void SetUp() override
    {
        RegistryFixture::SetUp();
        game = std::make_unique<Game>(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
    }
    void TearDown() override
    {
        game.reset();
        RegistryFixture::TearDown();
    }
    GameVar* intVar(const std::string& name, const std::string& value)
    {
        GameVar* v = createVar(name, value, "");
        v->setType("int");
        return v;
    }
    // Everything the console shows, one line each.
    std::string consoleText() const
    {
        std::string text;
        for (const auto& line : game->getConsole()->getLines())
            text += line->text + "\n";
        return text;
    }

    TempDir scratch;
    std::unique_ptr<Game> game;
};
}

TEST_F(GameStartupTest, ScriptsRunInOrderAndDefaultsOnlyBeforeTheFirstConfig)
{
    scratch.write("data/default.cfg", "rec default\n");
    scratch.write("data/userconfig.txt", "rec user\ntoggle flip\n");
    scratch.write("data/autoexec.txt", "rec autoexec\n");
    GameVar* flip = intVar("flip", "0");
    game->runStartupScripts();
    // The user's script runs twice, so a toggle in it cancels itself.
    EXPECT_EQ(calls, (std::vector<std::string>{"rec|default", "rec|user", "rec|user", "rec|autoexec"}));
    EXPECT_EQ(flip->intValue, 0);

    calls.clear();
    scratch.write("data/config.txt", "bind a +moveleft\nrec config\n");
    game->runStartupScripts();
    EXPECT_EQ(calls, (std::vector<std::string>{"rec|config", "rec|user", "rec|user", "rec|autoexec"}));
}

TEST_F(GameStartupTest, AConfigWithoutBindingsStillGetsTheDefaults)
{
    // As a start on unreadable data used to write it: variables, no keys.
    scratch.write("data/default.cfg", "rec default\n");
    scratch.write("data/config.txt", "//key bindings\n\n//variables\nrec config\n");
    game->runStartupScripts();
    EXPECT_EQ(calls, (std::vector<std::string>{"rec|default", "rec|config"}));

    // Every key unbound by the player is still the player's choice.
    calls.clear();
    scratch.write("data/config.txt", "bind k \nbind a \nrec config\n");
    game->runStartupScripts();
    EXPECT_EQ(calls, (std::vector<std::string>{"rec|config"}));

    // So is a config written after "unbindall": no key left at all.
    calls.clear();
    scratch.write("data/config.txt", "//key bindings\n\nunbindall\n\n//variables\nrec config\n");
    game->runStartupScripts();
    EXPECT_EQ(calls, (std::vector<std::string>{"rec|config"}));
}

TEST_F(GameStartupTest, ScriptsThePlayerHasNotWrittenAreNoFailure)
{
    // A first start: no config.txt, no userconfig.txt, no autoexec.txt.
    scratch.write("data/default.cfg", "rec default\n");
    std::fflush(stdout);
    ::testing::internal::CaptureStdout();
    game->runStartupScripts();
    std::fflush(stdout);
    const std::string log = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(calls, (std::vector<std::string>{"rec|default"}));
    EXPECT_EQ(consoleText().find("Couldn't"), std::string::npos) << consoleText();
    EXPECT_EQ(log.find("NOT Found"), std::string::npos) << log;
}

TEST_F(GameStartupTest, RegistryMessagesReachTheConsole)
{
    run("exec missing.txt");
    run("exec");
    run("set");
    run("toggle");
    intVar("alpha", "3");
    run("listvars al");
    run("listcmds exe");
    const std::string text = consoleText();
    EXPECT_NE(text.find("Couldn't exec data/missing.txt\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Usage: exec <filename>\n"), std::string::npos);
    EXPECT_NE(text.find("Invalid Usage! Proper Usage: set varname value\n"), std::string::npos);
    EXPECT_NE(text.find("Invalid Usage! Proper Usage: toggle varname\n"), std::string::npos);
    EXPECT_NE(text.find("    alpha = 3 : \n"), std::string::npos);
    EXPECT_NE(text.find("    Found 1 Variables\n"), std::string::npos);
    EXPECT_NE(text.find("    exec : execute a script file\n"), std::string::npos);
    EXPECT_NE(text.find("    Found 1 Commands\n"), std::string::npos);
}

class VideoRestartTest : public GameStartupTest {
protected:
    void SetUp() override
    {
        GameStartupTest::SetUp();
        intVar("vidwidth", "1024");
        intVar("vidheight", "768");
        intVar("vidfullscreen", "0");
        game->startGameplay();
        game->registerCommands();
        game->getRenderer()->setVideoMode(1024, 768, false);
        body = std::make_unique<Body>();
        body->setTexture("data/images/x.png");
        body->textureId = 7;
        game->addBody(body.get(), true);
        game->getPlayer()->textureId = 9;
    }
    void TearDown() override
    {
        game->removeBody(body.get());
        GameStartupTest::TearDown();
    }
    void expectEveryoneKnowsTheSize(int w, int h)
    {
        EXPECT_EQ(game->getRenderer()->getWidth(), w);
        EXPECT_EQ(game->getConsole()->getWidth(), w);
        EXPECT_EQ(game->getConsole()->getHeight(), h);
        EXPECT_EQ(game->getGUIManager()->getScreenWidth(), w);
        EXPECT_EQ(game->getGUIManager()->getScreenHeight(), h);
        auto* gameplay = dynamic_cast<DefaultGameplay*>(game->getGameplay());
        ASSERT_NE(gameplay, nullptr);
        EXPECT_EQ(gameplay->getScreenWidth(), w);
        EXPECT_EQ(gameplay->getScreenHeight(), h);
    }
    std::unique_ptr<Body> body;
};

TEST_F(VideoRestartTest, VidrestartAppliesTheVariablesAndDropsCachedTextures)
{
    run("set vidwidth 800");
    run("set vidheight 600");
    run("vidrestart");
    expectEveryoneKnowsTheSize(800, 600);
    EXPECT_EQ(body->textureId, -1);
    EXPECT_EQ(game->getPlayer()->textureId, -1);
}

TEST_F(VideoRestartTest, RestartVideoStoresTheMode)
{
    game->restartVideo(640, 480, true);
    expectEveryoneKnowsTheSize(640, 480);
    EXPECT_EQ(findVar("vidwidth")->intValue, 640);
    EXPECT_EQ(findVar("vidheight")->intValue, 480);
    EXPECT_EQ(findVar("vidfullscreen")->intValue, 1);
    EXPECT_EQ(body->textureId, -1);
}

TEST_F(VideoRestartTest, ResdbgLeavesThePlayersVideoSettingsAlone)
{
    run("set vidwidth 1920");
    run("set vidheight 1080");
    run("set vidfullscreen 1");
    run("resdbg");
    expectEveryoneKnowsTheSize(1024, 768);
    EXPECT_FALSE(game->getRenderer()->isFullscreen());
    EXPECT_EQ(body->textureId, -1);
    scratch.write("data/.keep", "");
    game->writeConfig("data/config.txt", true);
    std::ifstream in("data/config.txt");
    std::stringstream written;
    written << in.rdbuf();
    EXPECT_NE(written.str().find("vidwidth 1920\n"), std::string::npos);
    EXPECT_NE(written.str().find("vidfullscreen 1\n"), std::string::npos);
}
