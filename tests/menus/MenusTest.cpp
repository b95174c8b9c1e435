// The menu screens driven headless: real widget trees under a MainInterface,
// actions fired by clicks, and the adventure and cut-scene files they read.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>

#include "../gui/GUITestSupport.h"
#include "../resources/TempDir.h"
#include "console/GameVar.h"
#include "core/Clock.h"
#include "core/ManualClock.h"
#include "gui/Button.h"
#include "gui/ImageButton.h"
#include "gui/KeyBindBox.h"
#include "gui/Label.h"
#include "gui/ListBox.h"
#include "gui/ListBoxItem.h"
#include "gui/Picture.h"
#include "gui/Slider.h"
#include "gui/TextBox.h"
#include "gui/ValueBox.h"
#include "menus/BouncingSmileys.h"
#include "menus/ConfirmPanel.h"
#include "menus/ControlsMenu.h"
#include "menus/CutSceneFrame.h"
#include "menus/LoadGameMenu.h"
#include "menus/MainInterface.h"
#include "menus/MainMenu.h"
#include "menus/NewAdventureMenu.h"
#include "menus/OptionsMenu.h"
#include "menus/SaveGameMenu.h"
#include "menus/SaveListBox.h"
#include "menus/SoundMenu.h"
#include "menus/VideoMenu.h"
#include "render/FixedWidthFonts.h"
#include "sound/Music.h"
#include "gameplay/player/Player.h"
#include "gameplay/DefaultGameplay.h"
#include "render/GameHUD.h"

namespace {
// A floor, the start, and a message zone over the start.
const char* const tinyLevel =
    "<level name=\"first\"><Objects>"
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

const char* const threePages =
    "<cutscene onend=\"level\" level=\"first\">"
    "<cutsceneframe background=\"data/images/metal1.png\"><text x=\"1\" y=\"2\" width=\"3\" height=\"4\">one</text>"
    "</cutsceneframe><cutsceneframe/><cutsceneframe/></cutscene>";

class MenusTest : public GUITest {
protected:
    void SetUp() override
    {
        GUITest::SetUp();
        auto main = std::make_unique<MainInterface>();
        mainInterface = main.get();
        gui().getRoot().addChild(std::move(main));
        gui().setScreenSize(screenW, screenH);
        dir.write("maps/first.xml", tinyLevel);
        dir.write("data/adventures/quay.xml",
                  "<adventure name=\"Quay\" startlevel=\"first\" description=\"Down by the water\"/>");
        dir.write("data/adventures/quay/pages.xml", threePages);
    }

    // Opens the menu screen as its button would, and hands it back.
    template <class T>
    T& show()
    {
        EXPECT_TRUE(MenuFrame::showScreen(T::screenName));
        return screen<T>(T::screenName);
    }

    // Frames 5 ms apart on the test's own clock, not the machine's, until
    // `done` holds or 200 have run.
    template <class F>
    void runFramesUntil(F done)
    {
        ManualClock clock(1000);
        Clock::install(&clock);
        game.getTimer().start();
        for (int i = 0; i < 200 && !done(); ++i) {
            clock.advance(5);
            game.runFrame();
        }
        Clock::install(nullptr);
    }

    TempDir dir;
    MainInterface* mainInterface = nullptr;
};

TEST_F(MenusTest, MainMenuButtonsOpenOneScreenAtATimeAndTheMenusShowWhileTheGUIHasTheInput)
{
    auto shown = [this] {
        std::vector<std::string> names;
        for (const auto& child : mainInterface->getChildren())
            if (child->isEnabled() && dynamic_cast<MenuFrame*>(child.get()))
                names.push_back(child->getName());
        return names;
    };
    click(screen<Button>("optionsbutton"));
    EXPECT_EQ(shown(), std::vector<std::string>{OptionsMenu::screenName});
    click(screen<Button>("controlsbutton"));
    EXPECT_EQ(shown(), std::vector<std::string>{ControlsMenu::screenName});
    key(27);
    EXPECT_EQ(shown(), std::vector<std::string>{OptionsMenu::screenName});
    key(27);
    EXPECT_EQ(shown(), std::vector<std::string>{MainMenu::screenName});

    auto& adventure = screen<NewAdventureMenu>(NewAdventureMenu::screenName);
    click(screen<Button>("newgamebutton"));
    EXPECT_EQ(shown(), std::vector<std::string>{NewAdventureMenu::screenName});
    EXPECT_EQ(gui().getFocus(), &adventure);
    ASSERT_EQ(adventure.getAdventures().size(), 1u);
    EXPECT_EQ(adventure.getAdventures()[0].name, "Quay");
    EXPECT_EQ(adventure.getList().getSelectedIndex(), 0);

    MenuFrame::showScreen(MainMenu::screenName);
    click(screen<Button>("exitbutton"));
    EXPECT_TRUE(game.isQuitting());

    // With no level to go back to, Resume keeps the menus.
    click(screen<Button>("resumebutton"));
    EXPECT_TRUE(gui().isVisible());
    EXPECT_EQ(game.getInputManager().getCurrentTarget(), "gui");
    EXPECT_TRUE(mainInterface->isEnabled());
    game.loadLevel("first", "");
    EXPECT_FALSE(gui().isVisible());
    // The first Escape opens the menus over the stopped game.
    key(27);
    EXPECT_TRUE(gui().isVisible());
    EXPECT_TRUE(mainInterface->isEnabled());
    // The console over them leaves them on screen, and closing it too.
    key('`');
    EXPECT_TRUE(mainInterface->isEnabled());
    key('`');
    EXPECT_TRUE(mainInterface->isEnabled());
    EXPECT_EQ(game.getInputManager().getCurrentTarget(), "gui");
    EXPECT_FALSE(game.isWorldRunning());
    click(screen<Button>("resumebutton"));
    EXPECT_FALSE(gui().isVisible());
    EXPECT_TRUE(game.isWorldRunning());
}

TEST_F(MenusTest, BeginWithABadOrTakenSaveNameOrAMissingStartLevelSaysSoAndStartsNothing)
{
    dir.write("saves/save1.xml", "<save/>");
    auto& menu = show<NewAdventureMenu>();
    TextBox& box = menu.getSaveName();
    // Each new game offers a name no save has yet.
    EXPECT_EQ(box.getText(), "save2");
    click(box);
    for (int i = 0; i < 5; ++i)
        key(8);  // backspace
    keys({'m', 'y', ' ', 'r', '-', '.'});
    key('-', 1);  // shift: "_"
    EXPECT_EQ(box.getText(), "my r-._");
    // The box stops at the longest name a save may have, and says so.
    for (int i = 0; i < 40; ++i)
        key('x');
    EXPECT_EQ(box.getText().size(), Game::maxSaveNameLength);
    EXPECT_TRUE(Game::isSaveName(box.getText()));
    bool hinted = false;
    for (const auto& child : menu.getChildren())
        if (auto* label = dynamic_cast<Label*>(child.get()))
            hinted = hinted || label->getText().find(std::to_string(Game::maxSaveNameLength)) != std::string::npos;
    EXPECT_TRUE(hinted);
    box.setText(".hidden");
    EXPECT_FALSE(menu.begin());
    EXPECT_NE(menu.getMessage().find("Save names are"), std::string::npos);
    box.setText("save1");
    click(screen<Button>("beginbutton"));
    EXPECT_EQ(menu.getMessage(), "A save game called save1 already exists, please choose another save name");

    dir.write("data/adventures/quay.xml", "<adventure name=\"Quay\" startlevel=\"nowhere\"/>");
    MenuFrame::showScreen(NewAdventureMenu::screenName);
    EXPECT_FALSE(menu.begin());
    EXPECT_NE(menu.getMessage().find("nowhere"), std::string::npos);
    EXPECT_FALSE(game.isLevelLoaded());
    EXPECT_FALSE(game.isSaveRequested());
    EXPECT_TRUE(menu.isEnabled());
}

TEST_F(MenusTest, BeginLoadsTheStartLevelRequestsTheSaveAndPlaysTheOpening)
{
    dir.write("data/adventures/quay.xml",
              "<adventure name=\"Quay\" startlevel=\"first\" cutscene=\"quay/pages\"><description>Long "
              "text</description></adventure>");
    auto& menu = show<NewAdventureMenu>();
    EXPECT_EQ(menu.getAdventures()[0].description, "Long text");
    menu.getSaveName().setText("mine");
    ASSERT_TRUE(menu.begin());
    EXPECT_TRUE(game.isLevelLoaded());
    EXPECT_EQ(game.getCurrentLevel(), "first");
    EXPECT_EQ(game.getPendingSaveName(), "mine");
    EXPECT_FALSE(menu.isEnabled());
    // The level is shown once and saved as it starts; then the opening
    // scene holds the world until it ends.
    auto& scene = mainInterface->getCutScene();
    EXPECT_TRUE(game.isSaveRequested());
    const uint64_t steps = game.getStepCount();
    runFramesUntil([&] {
        if (!game.isSaveRequested())
            return true;
        EXPECT_FALSE(scene.isEnabled());
        return false;
    });
    EXPECT_FALSE(game.isSaveRequested());
    // The save came after the world had stepped and been drawn.
    EXPECT_GT(game.getStepCount(), steps);
    EXPECT_TRUE(std::ifstream("saves/mine.xml").good());
    EXPECT_TRUE(scene.isEnabled());
    EXPECT_FALSE(game.isWorldRunning());
    EXPECT_EQ(game.getInputManager().getCurrentTarget(), "gui");
    game.updateMusic();
    EXPECT_EQ(game.getMusic()->getTrack(), Music::cutsceneTrack) << "the scene's music over the level";
    key(27);
    EXPECT_FALSE(scene.isEnabled());
    EXPECT_TRUE(game.isWorldRunning());
    EXPECT_FALSE(game.isSaveRequested());
}

TEST_F(MenusTest, BeginStartsANewPlayerAndItsOwnSaveLeavesTheFirstLessonOnScreen)
{
    game.startGameplay();
    auto* veteran = dynamic_cast<Player*>(game.getPlayer());
    ASSERT_NE(veteran, nullptr);
    veteran->properties.maxHealth = 500;
    veteran->properties.cash = 9000;
    veteran->properties.currentLevel = 12;
    veteran->inventory.giveAllWeapons();
    auto& menu = show<NewAdventureMenu>();
    menu.getSaveName().setText("fresh");
    ASSERT_TRUE(menu.begin());
    auto* player = dynamic_cast<Player*>(game.getPlayer());
    ASSERT_NE(player, nullptr);
    EXPECT_EQ(player->properties.maxHealth, 100);
    EXPECT_EQ(player->properties.cash, 0);
    EXPECT_EQ(player->properties.currentLevel, 0);
    EXPECT_FALSE(player->inventory.owns(8));

    // The game's own save is quiet: announcing it would cover the lesson the
    // player is standing in. A save the player asks for says so.
    runFramesUntil([&] { return !game.isSaveRequested(); });
    EXPECT_TRUE(std::ifstream("saves/fresh.xml").good());
    int frames = 0;
    runFramesUntil([&] { return ++frames > 20; });
    const GameHUD& hud = dynamic_cast<DefaultGameplay&>(*game.getGameplay()).getHud();
    std::vector<std::string> shown;
    for (const auto& message : hud.getMessages())
        shown.push_back(message.text);
    EXPECT_EQ(shown, std::vector<std::string>{"Walk this way"});
    game.requestSave();
    runFramesUntil([&] { return !game.isSaveRequested(); });
    EXPECT_EQ(hud.lastMessage(), "Game saved");
}

TEST_F(MenusTest, LoadGameListsSavesShowsTheSelectionAndDeletesOnlyAfterYes)
{
    dir.write("saves/alpha.xml", "<save currentlevel=\"first\" savedat=\"2000000000\" playtime=\"75\"/>");
    dir.write("saves/alpha.png", "not really a png");
    dir.write("saves/beta.xml", "<save/>");
    auto& menu = show<LoadGameMenu>();
    ASSERT_EQ(menu.getList().getItemCount(), 2);
    EXPECT_EQ(menu.getList().getItem(0)->getText().substr(0, 12), "alpha\tFirst\t");
    EXPECT_EQ(menu.getPicture().getImage(), LoadGameMenu::defaultPicture);
    EXPECT_EQ(menu.getCaption().getText(), "No save is selected");

    // Nothing selected: neither button does anything.
    click(screen<Button>("loadgamebutton"));
    EXPECT_TRUE(menu.isEnabled());
    EXPECT_FALSE(game.isLevelLoaded());
    ConfirmPanel& confirm = menu.getConfirm();
    click(screen<Button>("deletesavebutton"));
    EXPECT_FALSE(confirm.isEnabled());

    menu.getList().choose(menu.getList().getItem(1));
    EXPECT_EQ(menu.getPicture().getImage(), LoadGameMenu::defaultPicture);
    // "beta" is no real save: the screen says so and the list stays up.
    EXPECT_TRUE(menu.loadSelected());
    EXPECT_EQ(game.currentNotice(), "The save game beta is damaged and was not loaded");
    EXPECT_TRUE(menu.isEnabled());
    menu.getList().choose(menu.getList().getItem(0));
    EXPECT_EQ(menu.getPicture().getImage(), "saves/alpha.png");
    EXPECT_EQ(menu.getCaption().getText(), "alpha: First");
    EXPECT_NE(menu.getDetail().getText().find(", played 1:15"), std::string::npos) << menu.getDetail().getText();

    click(screen<Button>("deletesavebutton"));
    ASSERT_TRUE(confirm.isShown());
    EXPECT_EQ(confirm.getQuestion(), "Delete the save alpha?");
    // The question covers the screen: the list under it cannot be clicked.
    GUIComponent& row = *menu.getList().getItem(0);
    EXPECT_TRUE(confirm.holds(gui().getRoot().componentAt(row.getX() + 5.0f, row.getY() - 5.0f)));
    EXPECT_TRUE(std::ifstream("saves/alpha.xml").good());
    click(*confirm.findComponent("confirmyes"));
    EXPECT_FALSE(confirm.isEnabled());
    EXPECT_EQ(menu.getList().getItemCount(), 1);
    EXPECT_EQ(menu.getCaption().getText(), LoadGameMenu::noSelection);
}

TEST_F(MenusTest, SaveGameFromTheMenusAsksBeforeWritingOverAndShowsThePicture)
{
    MenuFrame::showScreen(MainMenu::screenName);
    EXPECT_FALSE(screen<Button>("savegamebutton").isEnabled());
    game.loadLevel("first", "");
    key(27);
    ASSERT_TRUE(screen<Button>("savegamebutton").isShown());
    click(screen<Button>("savegamebutton"));
    auto& menu = screen<SaveGameMenu>(SaveGameMenu::screenName);
    ASSERT_TRUE(menu.isShown());
    EXPECT_EQ(menu.getNameBox().getText(), "save1");

    // A quoted name with a space, as the save command takes it.
    click(menu.getNameBox());
    for (int i = 0; i < 5; ++i)
        key(8);
    key('\'', 1);
    keys({'m', 'y', ' ', 'r', 'u', 'n'});
    key('\'', 1);
    EXPECT_EQ(menu.getNameBox().getText(), "\"my run\"");
    EXPECT_EQ(menu.typedName(), "my run");
    click(screen<Button>("savenowbutton"));
    ASSERT_TRUE(game.isSaveRequested());
    EXPECT_EQ(game.getPendingSaveName(), "my run");
    // What the next frame does; the renderer leaves its picture beside it.
    game.saveGame();
    dir.write("saves/my run.png", "picture");
    menu.finishSave();
    EXPECT_EQ(menu.getPicture().getImage(), "saves/my run.png");
    EXPECT_EQ(menu.getMessage().getText(), "Saved as my run");
    ASSERT_NE(menu.getList().selectedSave(), nullptr);
    EXPECT_EQ(menu.getList().selectedSave()->name, "my run");

    // The same name again: asked first, and "No" writes nothing.
    click(screen<Button>("savenowbutton"));
    EXPECT_FALSE(game.isSaveRequested());
    ASSERT_TRUE(menu.getConfirm().isShown());
    EXPECT_EQ(menu.getConfirm().getQuestion(), "Write over the save my run?");
    click(*menu.getConfirm().findComponent("confirmno"));
    EXPECT_FALSE(game.isSaveRequested());
    // and "Yes" writes over it.
    click(screen<Button>("savenowbutton"));
    click(*menu.getConfirm().findComponent("confirmyes"));
    EXPECT_TRUE(game.isSaveRequested());
    EXPECT_EQ(game.getPendingSaveName(), "my run");

    // Names a save cannot have are refused on the screen.
    menu.getNameBox().setText("\"..\"");
    EXPECT_FALSE(menu.save());
    EXPECT_EQ(menu.getMessage().getText(), "That name has characters a save cannot use");
}

TEST_F(MenusTest, CutScenePagesTurnBothWaysAndTheEndOrEscapeLoadsTheLevel)
{
    game.updateMusic();
    EXPECT_EQ(game.getMusic()->getTrack(), Music::menuTrack);
    game.showCutscene("quay/pages");
    auto& scene = mainInterface->getCutScene();
    ASSERT_TRUE(scene.isEnabled());
    EXPECT_EQ(scene.getPageText(), "Page 1 of 3");
    auto& previous = screen<ImageButton>("prevframe");
    auto& next = screen<ImageButton>("nextframe");
    EXPECT_FALSE(previous.isEnabled());
    click(next);
    EXPECT_EQ(scene.getPageText(), "Page 2 of 3");
    EXPECT_TRUE(previous.isEnabled());
    click(previous);
    EXPECT_EQ(scene.getPageText(), "Page 1 of 3");
    scene.previousPage();
    EXPECT_EQ(scene.getPage(), 0);
    click(next);
    click(next);
    EXPECT_EQ(scene.getPageText(), "Page 3 of 3");
    EXPECT_FALSE(game.isLevelLoaded());
    click(next);
    EXPECT_FALSE(scene.isEnabled());
    EXPECT_TRUE(game.isLevelLoaded());
    EXPECT_EQ(game.getCurrentLevel(), "first");
    EXPECT_FALSE(gui().isVisible());
    EXPECT_TRUE(game.isWorldRunning());
    game.updateMusic();
    EXPECT_EQ(game.getMusic()->getTrack(), "") << "the level names no track";

    // Escape skips a scene, even with the focus on its back arrow hidden on the first page.
    game.unloadLevel();
    game.showCutscene("quay/pages");
    click(next);
    click(previous);
    ASSERT_FALSE(previous.isEnabled());
    key(27);
    EXPECT_FALSE(scene.isEnabled());
    EXPECT_EQ(game.getCurrentLevel(), "first");
    EXPECT_TRUE(game.isWorldRunning());
}

TEST_F(MenusTest, AMissingSceneOrTheMissingLevelAfterOneLeavesForTheMainMenu)
{
    MenuFrame::showScreen(LoadGameMenu::screenName);
    testing::internal::CaptureStdout();
    game.showCutscene("quay/absent");
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("Could not load cutscene file: data/adventures/quay/absent.xml"), std::string::npos);
    EXPECT_FALSE(mainInterface->getCutScene().isEnabled());
    EXPECT_EQ(gui().getFocus(), gui().findComponent(MainMenu::screenName));

    dir.write("data/adventures/quay/last.xml",
              "<cutscene onend=\"level\" level=\"enemies\"><cutsceneframe/></cutscene>");
    game.loadLevel("first", "");
    game.showCutscene("quay/last");
    mainInterface->getCutScene().nextPage();
    EXPECT_FALSE(game.isLevelLoaded());
    EXPECT_TRUE(gui().isVisible());
    EXPECT_TRUE(screen<MainMenu>(MainMenu::screenName).isEnabled());
}

TEST_F(MenusTest, ControlsTabsSwitchGroupsBindingsShowByDeviceAndTheSliderSetsSensitivity)
{
    auto& controls = show<ControlsMenu>();
    ASSERT_EQ(controls.getPanels().size(), 3u);
    EXPECT_EQ(controls.getBoxes().size(), 20u);
    EXPECT_EQ(controls.getPadBoxes().size(), controls.getBoxes().size());
    EXPECT_TRUE(controls.getPanels()[0]->isEnabled());
    EXPECT_FALSE(controls.getPanels()[2]->isEnabled());
    click(screen<Button>("weaps2button"));
    EXPECT_FALSE(controls.getPanels()[0]->isEnabled());
    EXPECT_TRUE(controls.getPanels()[2]->isEnabled());
    click(screen<Button>("movementbutton"));

    // Keyboard and mouse keys show first, the gamepad's in a column apart.
    game.installGameInput(std::make_unique<GameInput>());
    GameInput& input = *game.getGameInput();
    for (const char* key : {"joy1_axis2_minus", "joy1_button1", "space", "up", "w"})
        input.setBinding(key, "+moveup");
    input.setBinding("a", "+moveright");
    controls.onShow();
    auto& up = screen<KeyBindBox>("+moveup");
    auto& upPad = screen<KeyBindBox>("+moveup pad");
    EXPECT_EQ(up.getShown(), "space, up");
    EXPECT_EQ(upPad.getShown(), "joy1_axis2_minus, joy1_button1");
    // Rebinding replaces the keyboard and mouse keys only.
    up.bind("i");
    EXPECT_EQ(up.getShown(), "i");
    EXPECT_EQ(input.getBinding("w"), "");
    EXPECT_EQ(input.getBinding("joy1_button1"), "+moveup");
    EXPECT_EQ(upPad.getShown(), "joy1_axis2_minus, joy1_button1");
    // The pad column cannot be armed from the menus.
    click(upPad);
    EXPECT_FALSE(upPad.isWaiting());
    // A key taken by another action leaves the box it was shown in.
    auto& right = screen<KeyBindBox>("+moveright");
    EXPECT_EQ(right.getShown(), "a");
    screen<KeyBindBox>("+moveleft").bind("a");
    EXPECT_EQ(screen<KeyBindBox>("+moveleft").getShown(), "a");
    EXPECT_EQ(right.getShown(), "unbound");

    createVar("sensitivity", "1.0", "");
    controls.onShow();
    EXPECT_FLOAT_EQ(controls.getSensitivity().getValue(), 1.0f);
    controls.getSensitivity().setValue(2.5f);
    EXPECT_FLOAT_EQ(findVar("sensitivity")->floatValue, 2.5f);
}

TEST_F(MenusTest, VideoAndSoundScreensApplyWhatTheyShow)
{
    int w = 0;
    int h = 0;
    EXPECT_TRUE(VideoMenu::parseResolution("1920 x 1080", w, h));
    EXPECT_EQ(w, 1920);
    EXPECT_EQ(h, 1080);
    EXPECT_FALSE(VideoMenu::parseResolution("1920 x", w, h));
    EXPECT_FALSE(VideoMenu::parseResolution("-5 x 20", w, h));
    EXPECT_FALSE(VideoMenu::parseResolution("99999 x 20", w, h));
    const auto modes = VideoMenu::resolutions(1000, 700);
    EXPECT_EQ(modes.front(), "640 x 480");
    EXPECT_NE(std::find(modes.begin(), modes.end(), "1000 x 700"), modes.end());

    auto& video = show<VideoMenu>();
    ASSERT_TRUE(video.getResolution().setValue("1024 x 768"));
    video.getVsync().setValue("Off");
    const std::string out = stdoutOf([&] { EXPECT_TRUE(video.apply()); });
    EXPECT_NE(out.find("New Vid Mode: 1024 x 768"), std::string::npos);
    EXPECT_EQ(game.getRenderer()->getWidth(), 1024);
    EXPECT_EQ(getVar("vidheight")->intValue, 768);
    EXPECT_EQ(getVar("vsync")->intValue, 0);
    // The screens re-centred in the new window.
    EXPECT_FLOAT_EQ(video.getX(), std::floor((1024.0f - video.getWidth()) / 2.0f));
    EXPECT_EQ(gui().getScreenWidth(), 1024);

    createVar("musicvolume", "96", "");
    auto& sound = show<SoundMenu>();
    EXPECT_FLOAT_EQ(sound.getMusic().getValue(), 96.0f);
    sound.getMusic().setValue(40.0f);
    stdoutOf([&] { sound.apply(); });
    EXPECT_EQ(getVar("musicvolume")->intValue, 40);
}

TEST(BouncingSmileysTest, SpritesStayInsideTheWindowAsItChanges)
{
    BouncingSmileys smileys(3);
    smileys.update(800.0f, 600.0f);
    ASSERT_EQ(smileys.getSprites().size(), BouncingSmileys::images().size());
    auto inside = [&](float w, float h) {
        for (const GUISmiley& s : smileys.getSprites()) {
            EXPECT_GE(s.x - s.size / 2.0f, -0.01f);
            EXPECT_LE(s.x + s.size / 2.0f, w + 0.01f);
            EXPECT_GE(s.y - s.size / 2.0f, -0.01f);
            EXPECT_LE(s.y + s.size / 2.0f, h + 0.01f);
        }
    };
    for (int i = 0; i < 2000; ++i)
        smileys.step(0.05f);
    inside(800.0f, 600.0f);
    smileys.update(320.0f, 240.0f);
    inside(320.0f, 240.0f);
    for (int i = 0; i < 500; ++i)
        smileys.step(0.05f);
    inside(320.0f, 240.0f);
    EXPECT_EQ(smileys.componentAt(10.0f, 10.0f), nullptr);
}

TEST(CutSceneFileTest, ReadsPagesPicturesTextAndTheEndingAndBoundsHostileFiles)
{
    TempDir dir;
    dir.write("s.xml",
              "<cutscene onend=\"level\" ><scene level=\"two\" levelspawn=\"east\"/>"
              "<cutsceneframe background=\"data/images/rock1.png\">"
              "<pic x=\"10\" y=\"20.5\" width=\"30\" height=\"40\" img=\"data/images/cash.png\"/>"
              "<text x=\"1\" y=\"2\" width=\"300\" height=\"100\">First line. <br/>  Second line.</text>"
              "</cutsceneframe><cutsceneframe><text>only</text></cutsceneframe></cutscene>");
    CutScene scene;
    const std::string out = stdoutOf([&] { EXPECT_TRUE(scene.load("s.xml")); });
    EXPECT_NE(out.find("Read cutscene file sucessfully: s.xml\n"), std::string::npos);
    EXPECT_EQ(scene.onend, "level");
    EXPECT_EQ(scene.endLevel(), "two");
    EXPECT_EQ(scene.endSpawn(), "east");
    ASSERT_EQ(scene.pages.size(), 2u);
    const CutScene::Page& first = scene.pages[0];
    EXPECT_EQ(first.background, "data/images/rock1.png");
    ASSERT_EQ(first.pictures.size(), 1u);
    EXPECT_EQ(first.pictures[0].img, "data/images/cash.png");
    EXPECT_FLOAT_EQ(first.pictures[0].box.y, 20.5f);
    EXPECT_FLOAT_EQ(first.pictures[0].box.height, 40.0f);
    ASSERT_EQ(first.texts.size(), 1u);
    EXPECT_EQ(first.texts[0].text, "First line.\nSecond line.");
    EXPECT_EQ(scene.pages[1].background, CutScene::defaultBackground);
    EXPECT_EQ(scene.pages[1].texts[0].text, "only");

    // Hostile numbers and floods of pages and items are bounded.
    std::string text = "<cutscene><cutsceneframe>";
    text += "<pic x=\"nan\" y=\"1e39\" width=\"-5\" height=\"inf\"/>";
    for (int i = 0; i < 100; ++i)
        text += "<text>t</text>";
    text += "</cutsceneframe>";
    for (int i = 0; i < 300; ++i)
        text += "<cutsceneframe/>";
    text += "</cutscene>";
    dir.write("flood.xml", text);
    CutScene flood;
    stdoutOf([&] { EXPECT_TRUE(flood.load("flood.xml")); });
    ASSERT_EQ(flood.pages.size(), CutScene::maxPages);
    const CutScene::Page& crowded = flood.pages[0];
    EXPECT_EQ(crowded.pictures.size() + crowded.texts.size(), CutScene::maxItemsPerPage);
    const CutScene::Box& b = crowded.pictures[0].box;
    EXPECT_TRUE(std::isfinite(b.x));
    EXPECT_LE(b.y, 10000.0f);
    EXPECT_EQ(b.width, 0.0f);
    EXPECT_LE(b.height, 10000.0f);
}

}

// Long key names and save names are drawn inside their widgets.
TEST_F(MenusTest, LongTextStaysInsideItsWidget)
{
    auto* fonts = new FixedWidthFonts();
    game.getRenderer()->setFontRenderer(fonts);
    fonts->setRenderer(game.getRenderer());
    auto drawsInside = [&](GUIComponent& widget) {
        fonts->glyphs.clear();
        widget.draw(*game.getRenderer());
        ASSERT_FALSE(fonts->glyphs.empty()) << widget.getName();
        for (const auto& g : fonts->glyphs) {
            EXPECT_GE(g.left, widget.getX()) << widget.getName();
            EXPECT_LE(g.right, widget.getX() + widget.getWidth()) << widget.getName();
        }
    };
    game.installGameInput(std::make_unique<GameInput>());
    for (const char* key : {"joy1_axis12_minus", "joy1_button10", "backspace", "rightbracket"})
        game.getGameInput()->setBinding(key, "useitem grenadelauncher");
    screen<ControlsMenu>(ControlsMenu::screenName).onShow();
    drawsInside(screen<KeyBindBox>("useitem grenadelauncher"));
    drawsInside(screen<KeyBindBox>("useitem grenadelauncher pad"));

    // The longest name a save may have, and a long level title.
    const std::string longName(Game::maxSaveNameLength, 'W');
    dir.write("saves/" + longName + ".xml", "<save currentlevel=\"first\" title=\"" + std::string(80, 'M') + "\"/>");
    auto& menu = show<LoadGameMenu>();
    ASSERT_NE(menu.getList().getItem(0), nullptr);
    drawsInside(*menu.getList().getItem(0));
}
