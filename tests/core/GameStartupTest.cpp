// The start-up scripts, video-mode changes and the registries' messages as the
// player sees them in the console.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "console/RegistryFixture.h"
#include "gameplay/DefaultGameplay.h"
#include "gui/GUIManager.h"
#include "world/body/Body.h"

namespace {
class GameStartupTest : public HeadlessGameFixture {
protected:
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
        for (const std::string& line : consoleLines())
            text += line + "\n";
        return text;
    }
    // Runs the start-up scripts: files the player has not written are no failure.
    void expectQuietStart()
    {
        const std::string log = stdoutOf([&] { game->runStartupScripts(); });
        EXPECT_EQ(consoleText().find("Couldn't"), std::string::npos) << consoleText();
        EXPECT_EQ(log.find("NOT Found"), std::string::npos) << log;
    }
};
}

TEST_F(GameStartupTest, ScriptsRunInOrderAndDefaultsOnlyBeforeAConfigThatNamesKeys)
{
    dir.write("data/default.cfg", "rec default\n");
    dir.write("data/userconfig.txt", "rec user\ntoggle flip\n");
    dir.write("data/autoexec.txt", "rec autoexec\n");
    GameVar* flip = intVar("flip", "0");
    // A first start: no config.txt is no failure.
    expectQuietStart();
    // The user's script runs twice, so a toggle in it cancels itself.
    EXPECT_EQ(takeCalls(), (Calls{"rec|default", "rec|user", "rec|user", "rec|autoexec"}));
    EXPECT_EQ(flip->intValue, 0);

    dir.write("data/config.txt", "bind a +moveleft\nrec config\n");
    game->runStartupScripts();
    EXPECT_EQ(takeCalls(), (Calls{"rec|config", "rec|user", "rec|user", "rec|autoexec"}));

    // As a start on unreadable data used to write it: variables, no keys.
    dir.write("data/config.txt", "//key bindings\n\n//variables\nrec config\n");
    game->runStartupScripts();
    EXPECT_EQ(takeCalls(), (Calls{"rec|default", "rec|config", "rec|user", "rec|user", "rec|autoexec"}));

    // Every key unbound by the player is still the player's choice, and so is
    // a config written after "unbindall": no key left at all.
    for (const char* config :
         {"bind k \nbind a \nrec config\n", "//key bindings\n\nunbindall\n\n//variables\nrec config\n"}) {
        dir.write("data/config.txt", config);
        game->runStartupScripts();
        EXPECT_EQ(takeCalls(), (Calls{"rec|config", "rec|user", "rec|user", "rec|autoexec"})) << config;
    }
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
    for (const char* line :
         {"Couldn't exec data/missing.txt\n", "Usage: exec <filename>\n",
          "Invalid Usage! Proper Usage: set varname value\n", "Invalid Usage! Proper Usage: toggle varname\n",
          "    alpha = 3 : \n", "    Found 1 Variables\n", "    exec : execute a script file\n",
          "    Found 1 Commands\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line << text;
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

TEST_F(VideoRestartTest, RestartsApplyTheModeAndDropCachedTexturesButResdbgKeepsTheSettings)
{
    run("set vidwidth 800");
    run("set vidheight 600");
    run("vidrestart");
    expectEveryoneKnowsTheSize(800, 600);
    EXPECT_EQ(body->textureId, -1);
    EXPECT_EQ(game->getPlayer()->textureId, -1);

    // Called directly, the restart stores the mode in the variables.
    game->restartVideo(640, 480, true);
    EXPECT_EQ(findVar("vidwidth")->intValue, 640);
    EXPECT_EQ(findVar("vidheight")->intValue, 480);
    EXPECT_EQ(findVar("vidfullscreen")->intValue, 1);

    // resdbg goes back to 1024x768 in a window and leaves the settings alone.
    body->textureId = 7;
    run("set vidwidth 1920");
    run("set vidheight 1080");
    run("set vidfullscreen 1");
    run("resdbg");
    expectEveryoneKnowsTheSize(1024, 768);
    EXPECT_FALSE(game->getRenderer()->isFullscreen());
    EXPECT_EQ(body->textureId, -1);
    dir.write("data/.keep", "");
    game->writeConfig("data/config.txt", true);
    const std::string written = TempDir::read("data/config.txt");
    EXPECT_NE(written.find("vidwidth 1920\n"), std::string::npos);
    EXPECT_NE(written.find("vidfullscreen 1\n"), std::string::npos);
}
