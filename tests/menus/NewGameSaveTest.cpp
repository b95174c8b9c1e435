// New Game saves the run as its first level starts. That save is the game's
// own: announcing it would cover the first level's first lesson, which the
// player is standing in.
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "../gui/GUITestSupport.h"
#include "../resources/TempDir.h"
#include "gameplay/DefaultGameplay.h"
#include "gui/TextBox.h"
#include "menus/MainInterface.h"
#include "menus/MenuFrame.h"
#include "menus/NewAdventureMenu.h"
#include "render/GameHUD.h"

namespace {
// A floor, the start, and a message zone over the start.
const char* const lessonLevel =
    "<level name=\"shed\"><Objects>"
    "<P type=\"default\" idname=\"floor\"><params solid=\"true\" mass=\"0\"/><verts><v origin=\"-100,-10\"/>"
    "<v origin=\"100,-10\"/><v origin=\"100,0\"/><v origin=\"-100,0\"/></verts></P>"
    "<P type=\"spawnpoint\" idname=\"start\"><params solid=\"false\" entity=\"true\" visible=\"false\"/>"
    "<verts><v origin=\"0,8\"/><v origin=\"16,8\"/><v origin=\"16,24\"/><v origin=\"0,24\"/></verts>"
    "<attributes><a name=\"startpoint\" value=\"true\"/></attributes></P>"
    "<P type=\"messagebody\" idname=\"lesson\"><params solid=\"false\" entity=\"true\" visible=\"false\"/>"
    "<verts><v origin=\"-20,0\"/><v origin=\"40,0\"/><v origin=\"40,64\"/><v origin=\"-20,64\"/></verts>"
    "<attributes><a name=\"message\" value=\"Walk this way\"/><a name=\"triggeronce\" value=\"true\"/>"
    "</attributes></P>"
    "</Objects></level>";

class NewGameSaveTest : public GUITest {
protected:
    void SetUp() override
    {
        GUITest::SetUp();
        game.startGameplay();
        auto main = std::make_unique<MainInterface>();
        gui().getRoot().addChild(std::move(main));
        gui().setScreenSize(screenW, screenH);
        dir.write("maps/shed.xml", lessonLevel);
        dir.write("data/adventures/shed.xml", "<adventure name=\"Shed\" startlevel=\"shed\"/>");
    }

    void runUntilSaved()
    {
        for (int i = 0; i < 200 && game.isSaveRequested(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            game.runFrame();
        }
        ASSERT_FALSE(game.isSaveRequested());
    }

    TempDir dir;
};
}

TEST_F(NewGameSaveTest, TheFirstSaveKeepsTheLessonOnScreenAndLaterSavesAreAnnounced)
{
    MenuFrame::showScreen(NewAdventureMenu::screenName);
    auto* menu = dynamic_cast<NewAdventureMenu*>(gui().findComponent(NewAdventureMenu::screenName));
    ASSERT_NE(menu, nullptr);
    menu->getSaveName().setText("first");
    ASSERT_TRUE(menu->begin());
    runUntilSaved();
    EXPECT_TRUE(std::ifstream("saves/first.xml").good());
    auto* gameplay = dynamic_cast<DefaultGameplay*>(game.getGameplay());
    ASSERT_NE(gameplay, nullptr);
    GameHUD* hud = &gameplay->getHud();
    for (int i = 0; i < 20; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        game.runFrame();
    }
    std::vector<std::string> shown;
    for (const auto& message : hud->getMessages())
        shown.push_back(message.text);
    EXPECT_EQ(shown, std::vector<std::string>{"Walk this way"});

    // The player's own save says so.
    game.requestSave();
    runUntilSaved();
    EXPECT_EQ(hud->lastMessage(), "Game saved");
}
