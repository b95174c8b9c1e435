// The accessibility and difficulty options: the menu rows that set their
// variables from the shipped defaults, the fire and hook toggles, and the
// controls overlay's view of the bindings.
#include <gtest/gtest.h>

#include "../TestPaths.h"
#include "../gui/GUITestSupport.h"
#include "../resources/TempDir.h"
#include "console/GameVar.h"
#include "gui/Button.h"
#include "gui/ValueBox.h"
#include "menus/AccessibilityMenu.h"
#include "menus/ControlsHelp.h"
#include "menus/MainInterface.h"
#include "resources/ResourceManager.h"

namespace {
class AccessibilityTest : public GUITest {
protected:
    void SetUp() override
    {
        GUITest::SetUp();
        ASSERT_TRUE(TempDir::run("mkdir -p data && cp '" + testSourceDir() + "/data/gamevars.xml' data/"));
        ResourceManager::instance().clearArchives();
        ASSERT_TRUE(VariableRegistry::instance().loadVariables("data/gamevars.xml"));
        if (!game.getGameInput())
            game.installGameInput(std::make_unique<GameInput>());
        auto main = std::make_unique<MainInterface>();
        gui().getRoot().addChild(std::move(main));
        gui().setScreenSize(screenW, screenH);
    }

    TempDir dir;
};
}

TEST_F(AccessibilityTest, MenuRowsSetTheirVariablesAndShowValuesSetElsewhere)
{
    click(screen<Button>("optionsbutton"));
    click(screen<Button>("accessibilitybutton"));
    auto& menu = screen<AccessibilityMenu>(AccessibilityMenu::screenName);
    ASSERT_TRUE(menu.isEnabled());
    // Each click steps to the next choice and sets the variable at once.
    struct Case {
        const char* var;
        int clicks;
        const char* value;
    };
    const Case cases[] = {{"uiscale", 4, "2"},   {"firetoggle", 1, "1"},   {"hooktoggle", 1, "1"},
                          {"flashes", 2, "1"},   {"glowstrength", 1, "0"}, {"hudcontrast", 1, "1"}};
    for (const Case& c : cases) {
        for (int i = 0; i < c.clicks; ++i)
            click(*menu.boxFor(c.var));
        EXPECT_EQ(findVar(c.var)->stringValue, c.value) << c.var;
    }
    // The screen shows a value set elsewhere (the console) as its nearest choice.
    findVar("uiscale")->setString("1.3");
    menu.onShow();
    EXPECT_EQ(menu.boxFor("uiscale")->getValue(), "125%");
    EXPECT_EQ(findVar("difficulty")->stringValue, "1") << "the shipped default is the middle one";
}

TEST_F(AccessibilityTest, ToggledFireAndHookLatchOnOnePressAndLetGoOnTheNext)
{
    std::vector<std::string> ran;
    for (const char* name : {"+attack", "-attack", "+fire", "-fire"})
        registerCommand("", name, [&ran, name] { ran.push_back(name); });
    GameInput& input = *game.getGameInput();
    input.setBinding("mouse1", "+attack");
    input.setBinding("mouse2", "+fire 1");
    auto tap = [&](const char* key) {
        input.keyDown(-1, -1, key);
        input.keyUp(-1, -1, key);
    };
    tap("MOUSE1");
    EXPECT_EQ(ran, (std::vector<std::string>{"+attack", "-attack"}));
    ran.clear();
    findVar("firetoggle")->setInt(1);
    tap("MOUSE1");
    EXPECT_EQ(ran, (std::vector<std::string>{"+attack"}));
    tap("MOUSE1");
    EXPECT_EQ(ran, (std::vector<std::string>{"+attack", "-attack"}));
    ran.clear();
    // The hook keeps holding until its own toggle is set.
    tap("MOUSE2");
    EXPECT_EQ(ran, (std::vector<std::string>{"+fire", "-fire"}));
    ran.clear();
    findVar("hooktoggle")->setInt(1);
    tap("MOUSE2");
    input.releaseAll();
    // After a level change everything is let go: the next press starts again.
    tap("MOUSE2");
    EXPECT_EQ(ran, (std::vector<std::string>{"+fire", "+fire"}));
}

TEST_F(AccessibilityTest, ControlsHelpShowsEachDevicesKeysAsTheyAreBoundNow)
{
    GameInput& input = *game.getGameInput();
    input.setBinding("a", "+moveleft");
    input.setBinding("left", "+moveleft");
    input.setBinding("joy1_axis1_minus", "+moveleft");
    input.setBinding("mouse1", "+attack");
    input.setBinding("joy1_button3", "+attack");
    input.setBinding("1", "useitem grapple");
    input.setBinding("2", "useitem pistol");
    auto& help = screen<ControlsHelp>(ControlsHelp::screenName);
    help.refresh();
    auto row = [](const std::string& label) {
        const auto& all = ControlsHelp::actions();
        for (size_t i = 0; i < all.size(); ++i)
            if (label == all[i].label)
                return i;
        return all.size();
    };
    EXPECT_EQ(help.cell(row("Move left"), ControlsHelp::keyboard), "A, LEFT");
    EXPECT_EQ(help.cell(row("Move left"), ControlsHelp::mouse), "none");
    EXPECT_EQ(help.cell(row("Move left"), ControlsHelp::gamepad), "Left stick left");
    EXPECT_EQ(help.cell(row("Fire"), ControlsHelp::mouse), "Left button");
    EXPECT_EQ(help.cell(row("Fire"), ControlsHelp::gamepad), "X");
    EXPECT_EQ(help.cell(row("Choose weapon"), ControlsHelp::keyboard), "1 2");
    // Rebinding shows the next time it draws.
    input.setBinding("mouse1", "");
    input.setBinding("joy2_hat_up", "+attack");
    help.refresh();
    EXPECT_EQ(help.cell(row("Fire"), ControlsHelp::mouse), "none");
    EXPECT_EQ(help.cell(row("Fire"), ControlsHelp::gamepad), "X, Pad 2 D-pad up");
}
