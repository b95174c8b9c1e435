#include <gtest/gtest.h>

#include <SDL.h>

#include <cmath>

#include "gui/Button.h"
#include "gui/Frame.h"
#include "gui/GUITestSupport.h"
#include "gui/ImageButton.h"
#include "gui/Label.h"
#include "gui/TextBox.h"
#include "gui/WidgetGallery.h"

namespace {
// Logs its hover changes into a shared list.
class Probe : public GUIComponent {
public:
    Probe(std::string n, std::vector<std::string>& log) : log(log) { setName(std::move(n)); }
    void onMouseEnter() override { log.push_back("enter " + getName()); }
    void onMouseExit() override { log.push_back("exit " + getName()); }

private:
    std::vector<std::string>& log;
};

std::unique_ptr<Frame> frameAt(float x, float y, const std::string& name)
{
    auto f = std::make_unique<Frame>();
    f->setBounds(x, y, 300.0f, 200.0f);
    f->setName(name);
    return f;
}

std::unique_ptr<Button> buttonAt(float relX, float relY, const std::string& name)
{
    auto b = std::make_unique<Button>();
    b->setBounds(relX, relY, 100.0f, 30.0f);
    b->setName(name);
    b->setCommand("do_" + name);
    return b;
}
}

TEST(GUIComponentTest, ChildrenPlacedRelativeAndMovedWithParent)
{
    GUIComponent parent;
    parent.setBounds(100.0f, 500.0f, 300.0f, 200.0f);
    GUIComponent* child = parent.addRelative(buttonAt(10.0f, 40.0f, "b"));
    EXPECT_TRUE(isAt(*child, 110.0f, 460.0f));
    parent.setPosition(0.0f, 400.0f);
    EXPECT_TRUE(isAt(*child, 10.0f, 360.0f));
    EXPECT_EQ(child->getParent(), &parent);

    EXPECT_TRUE(parent.contains(0.0f, 400.0f));
    EXPECT_TRUE(parent.contains(300.0f, 200.0f));
    EXPECT_FALSE(parent.contains(300.1f, 300.0f));
    EXPECT_FALSE(parent.contains(100.0f, 199.0f));
    EXPECT_TRUE(parent.intersects(250.0f, 250.0f, 100.0f, 100.0f));
    EXPECT_FALSE(parent.intersects(301.0f, 250.0f, 100.0f, 100.0f));

    auto taken = parent.removeChild(child, false);
    EXPECT_EQ(taken.get(), child);
    EXPECT_EQ(child->getParent(), nullptr);
    EXPECT_TRUE(parent.getChildren().empty());
    EXPECT_EQ(parent.removeChild(child, true), nullptr);
}

class GUIManagerTest : public GUITest {};

TEST_F(GUIManagerTest, HoverMovesInOneMotionAndHitTestingFindsTheDeepestWidgetOfTheTopmostFrame)
{
    std::vector<std::string> log;
    gui().getRoot().add(std::make_unique<Probe>("a", log))->setBounds(0.0f, 100.0f, 50.0f, 50.0f);
    gui().getRoot().add(std::make_unique<Probe>("b", log))->setBounds(50.1f, 100.0f, 50.0f, 50.0f);
    moveTo(10.0f, 80.0f);
    moveTo(20.0f, 80.0f);
    EXPECT_EQ(log, (std::vector<std::string>{"enter a"}));
    moveTo(70.0f, 80.0f);
    EXPECT_EQ(log, (std::vector<std::string>{"enter a", "enter b", "exit a"}));
    EXPECT_EQ(gui().getHovered()->getName(), "b");
    moveTo(400.0f, 400.0f);
    EXPECT_EQ(log.back(), "exit b");
    EXPECT_EQ(gui().getHovered(), &gui().getRoot());

    Frame* back = gui().getRoot().add(frameAt(100.0f, 500.0f, "back"));
    Button* backButton = back->addRelative(buttonAt(50.0f, 50.0f, "backbutton"));
    Frame* front = gui().getRoot().add(frameAt(120.0f, 480.0f, "front"));
    // The first child is on top: "back" covers "front" where they overlap.
    EXPECT_EQ(gui().getRoot().componentAt(200.0f, 430.0f), backButton);
    gui().getRoot().bringToFront(front);
    EXPECT_EQ(gui().getRoot().componentAt(200.0f, 430.0f), front);
    // Hidden widgets take no hits.
    front->setEnabled(false);
    EXPECT_EQ(gui().getRoot().componentAt(200.0f, 430.0f), backButton);
    backButton->setEnabled(false);
    EXPECT_EQ(gui().getRoot().componentAt(200.0f, 430.0f), back);
    // The unnamed root is no match for "".
    EXPECT_EQ(gui().findComponent("nothing"), nullptr);
    EXPECT_EQ(gui().findComponent(""), nullptr);
}

TEST_F(GUIManagerTest, FocusingAWidgetRaisesItsFrameAndDeletingItLeavesNoFocusBehind)
{
    Frame* first = gui().getRoot().add(frameAt(0.0f, 500.0f, "first"));
    Frame* second = gui().getRoot().add(frameAt(400.0f, 500.0f, "second"));
    Button* inSecond = second->addRelative(buttonAt(20.0f, 50.0f, "inner"));
    Label* caption = first->addRelative(std::make_unique<Label>());
    EXPECT_EQ(gui().getRoot().getChildren().front().get(), first);

    click(*inSecond);
    EXPECT_EQ(gui().getFocus(), inSecond);
    EXPECT_TRUE(inSecond->isFocused());
    EXPECT_EQ(gui().getRoot().getChildren().front().get(), second);

    // A label cannot hold the focus as such, but its frame still comes forward.
    clickAt(caption->getX() + 5.0f, caption->getY() - 5.0f);
    EXPECT_FALSE(inSecond->isFocused());
    EXPECT_EQ(gui().getRoot().getChildren().front().get(), first);

    gui().setFocus(&gui().getRoot());
    EXPECT_EQ(gui().getFocus(), caption);

    // A frame deleted under a pressed button leaves no hover or focus behind.
    moveTo(inSecond->getX() + 5.0f, inSecond->getY() - 5.0f);
    press();
    ASSERT_EQ(gui().getFocus(), inSecond);
    gui().getRoot().removeChild(second, true);
    release();
    moveTo(10.0f, 10.0f);
    key(SDLK_a);
    EXPECT_EQ(gui().getFocus(), &gui().getRoot());
}

TEST_F(GUIManagerTest, FramesDraggedByTheirTitleBarStayOnScreen)
{
    Frame* f = gui().getRoot().add(frameAt(100.0f, 500.0f, "f"));
    Button* b = f->addRelative(buttonAt(20.0f, 50.0f, "b"));
    // Dragged far off either corner, the frame stops at the window's edges.
    drag(200.0f, 490.0f, -500.0f, 2000.0f);
    EXPECT_TRUE(isAt(*f, 0.0f, static_cast<float>(screenH)));
    EXPECT_FLOAT_EQ(b->getX(), 20.0f);
    drag(100.0f, 590.0f, 2000.0f, -500.0f);
    EXPECT_TRUE(isAt(*f, screenW - 300.0f, 200.0f));
}

TEST_F(GUIManagerTest, KeysGoToTheFocusAndEscapeOrTheCloseButtonClosesItsFrame)
{
    Frame* f = gui().getRoot().add(frameAt(100.0f, 500.0f, "f"));
    auto box = std::make_unique<TextBox>();
    box->setBounds(10.0f, 40.0f, 150.0f, 24.0f);
    TextBox* text = f->addRelative(std::move(box));
    text->setText("");
    clickAt(text->getX() + 5.0f, text->getY() - 5.0f);
    key(SDLK_h);
    key(SDLK_i, KMOD_LSHIFT);
    EXPECT_EQ(text->getText(), "hI");

    // The text box has no use for Escape: its frame closes, and keys then
    // fall through to the root (which, with no level, leaves the GUI up).
    key(SDLK_ESCAPE);
    EXPECT_FALSE(f->isEnabled());
    key(SDLK_ESCAPE);
    EXPECT_TRUE(gui().isVisible());
    key(SDLK_j);
    EXPECT_EQ(text->getText(), "hI");

    // Shown again, its close button hides it with a sound of its own.
    f->setEnabled(true);
    sound().played.clear();
    ASSERT_NE(f->getCloseButton(), nullptr);
    EXPECT_TRUE(isAt(*f->getCloseButton(), 380.0f, 493.0f));
    clickAt(385.0f, 488.0f);
    EXPECT_FALSE(f->isEnabled());
    EXPECT_EQ(sound().played, (std::vector<std::string>{"data/sounds/gui/MenuSmoothClose.wav 0 100"}));
    // Closed, it takes no more hits.
    EXPECT_EQ(gui().getRoot().componentAt(200.0f, 400.0f), &gui().getRoot());
}

TEST_F(GUIManagerTest, InterfaceScaleGrowsTheTreeAsFarAsTheWindowHasRoom)
{
    struct Case {
        float wanted;
        int w, h;
        float scale;
    };
    // Every screen keeps the 640 x 480 units it is laid out in.
    const Case cases[] = {{2.0f, 1920, 1080, 2.0f}, {2.0f, 640, 480, 1.0f}, {2.0f, 1024, 768, 1.6f},
                          {1.5f, 1920, 1080, 1.5f}, {5.0f, 3840, 2160, 2.0f}, {0.2f, 1920, 1080, 1.0f},
                          {2.0f, 320, 200, 1.0f},   {std::nanf(""), 1920, 1080, 1.0f}};
    for (const Case& c : cases)
        EXPECT_FLOAT_EQ(GUIManager::fittingScale(c.wanted, c.w, c.h), c.scale) << c.w << "x" << c.h;

    // The root covers the window, in units of the scale.
    gui().setScreenSize(1920, 1080);
    EXPECT_TRUE(isAt(gui().getRoot(), 0.0f, 1080.0f));
    EXPECT_FLOAT_EQ(gui().getRoot().getWidth(), 1920.0f);
    createVar("uiscale", "2", "");
    gui().setScreenSize(1920, 1080);
    EXPECT_FLOAT_EQ(gui().getRoot().getWidth(), 960.0f);
    EXPECT_FLOAT_EQ(gui().getRoot().getHeight(), 540.0f);
    EXPECT_EQ(gui().getScreenWidth(), 960);
    // A click in window pixels lands on the widget drawn twice as large,
    // even with no motion before it (the GUI opened under a still mouse).
    Button* b = gui().getRoot().add(buttonAt(100.0f, 300.0f, "go"));
    listen(*b);
    gui().mouseDown(300.0f, 1080.0f - 570.0f, 1);
    gui().mouseUp(300.0f, 1080.0f - 570.0f, 1);
    EXPECT_EQ(actions, (std::vector<std::string>{"do_go go"}));
    EXPECT_EQ(sound().played, (std::vector<std::string>{"data/sounds/gui/MouseTick.wav 0 100"}));
    EXPECT_FLOAT_EQ(gui().getCursor().x, 150.0f);
}

TEST_F(GUIManagerTest, TheGalleryOpensOnceWithEveryWidgetAndTakesTheInput)
{
    game.getInputManager().setCurrentTarget("game");
    gui().setVisible(false);
    WidgetGallery* g = WidgetGallery::open(game);
    ASSERT_NE(g, nullptr);
    EXPECT_TRUE(gui().isVisible());
    EXPECT_EQ(game.getInputManager().getCurrentTarget(), "gui");
    EXPECT_EQ(gui().getFocus(), g);
    for (const char* name : {"button", "imagebutton", "textbox", "valuebox", "keybindbox", "slider", "clock",
                             "picture", "transframe", "textcontainer", "listbox", "textarea", "textview"})
        EXPECT_NE(g->findComponent(name), nullptr) << name;
    g->close();
    EXPECT_EQ(WidgetGallery::open(game), g);
    EXPECT_TRUE(g->isEnabled());
    EXPECT_EQ(gui().getRoot().getChildren().size(), 1u);
    // Centred in the 800 x 600 window.
    EXPECT_TRUE(isAt(*g, 90.0f, 530.0f));
}
