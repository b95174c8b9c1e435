#include <gtest/gtest.h>

#include <SDL.h>

#include "gui/GUITestSupport.h"
#include "gui/Frame.h"
#include "gui/KeyBindBox.h"
#include "gui/ListBox.h"
#include "gui/ListBoxColumn.h"
#include "gui/ListBoxItem.h"
#include "gui/ListBoxItemContainer.h"
#include "gui/Scrollbar.h"
#include "gui/Slider.h"
#include "gui/SliderListener.h"
#include "gui/TextArea.h"
#include "gui/TextBox.h"
#include "gui/TextLayout.h"
#include "gui/ValueBox.h"

namespace {
class ValueLog : public SliderListener {
public:
    void valueChanged(GUIComponent*, float value) override { values.push_back(value); }
    std::vector<float> values;
};

class WidgetTest : public GUITest {
protected:
    template <class T>
    T* place(std::unique_ptr<T> w, float x, float y, float width, float height)
    {
        w->setBounds(x, y, width, height);
        w->setName("w");
        T* raw = gui().getRoot().add(std::move(w));
        listen(*raw);
        return raw;
    }
    void focus(GUIComponent& c) { clickAt(c.getX() + 2.0f, c.getY() - 2.0f); }
};
}

TEST_F(WidgetTest, SliderAndScrollbarMapTheGrabberToTheirRange)
{
    Slider* s = place(std::make_unique<Slider>(), 100.0f, 300.0f, 160.0f, 20.0f);
    ValueLog heard;
    s->setListener(&heard);
    EXPECT_FLOAT_EQ(s->getValue(), 0.0f);
    EXPECT_FLOAT_EQ(s->getGrabber().getWidth(), 20.0f);

    // Grab it at the left end and drag far past the right end.
    moveTo(105.0f, 290.0f);
    press();
    moveTo(185.0f, 290.0f);
    EXPECT_FLOAT_EQ(s->getValue(), 80.0f / 140.0f * 20.0f);
    moveTo(700.0f, 290.0f);
    release();
    EXPECT_FLOAT_EQ(s->getValue(), 20.0f);
    EXPECT_FLOAT_EQ(s->getGrabber().getX(), 240.0f);
    EXPECT_FLOAT_EQ(heard.values.back(), 20.0f);
    EXPECT_EQ(sound().played, (std::vector<std::string>{"data/sounds/gui/MouseTick.wav 0 100",
                                                        "data/sounds/gui/MouseSquare.wav 0 100"}));

    s->setValue(25.0f);
    EXPECT_FLOAT_EQ(s->getValue(), 20.0f);
    s->setValue(-3.0f);
    EXPECT_FLOAT_EQ(s->getValue(), 0.0f);
    s->setValue(10.0f);
    EXPECT_FLOAT_EQ(s->getGrabber().getX() + 10.0f, 100.0f + 10.0f + 70.0f);

    s->setNotify(false);
    const size_t told = heard.values.size();
    s->setValue(5.0f);
    EXPECT_EQ(heard.values.size(), told);

    // A click on the track centres the grabber there; the keys and the wheel step.
    s->setNotify(true);
    clickAt(250.0f, 290.0f);
    EXPECT_FLOAT_EQ(s->getValue(), 20.0f);
    key(SDLK_LEFT);
    EXPECT_FLOAT_EQ(s->getValue(), 19.0f);
    clickAt(250.0f, 290.0f, 4);
    EXPECT_FLOAT_EQ(s->getValue(), 18.0f);
    s->setRange(10.0f, 12.0f);
    EXPECT_FLOAT_EQ(s->getValue(), 12.0f);

    // A scrollbar is a slider standing up, running down from its minimum.
    Scrollbar* bar = place(std::make_unique<Scrollbar>(), 400.0f, 300.0f, 20.0f, 120.0f);
    bar->setRange(0.0f, 50.0f);
    EXPECT_FLOAT_EQ(bar->getGrabber().getY(), 300.0f);
    drag(410.0f, 295.0f, 410.0f, 245.0f);
    EXPECT_FLOAT_EQ(bar->getValue(), 25.0f);
    bar->setValue(50.0f);
    EXPECT_FLOAT_EQ(bar->getGrabber().getY() - bar->getGrabber().getHeight(), 180.0f);
}

TEST_F(WidgetTest, ListBoxAddsSelectsAndRemovesRows)
{
    ListBox* list = place(std::make_unique<ListBox>(), 100.0f, 400.0f, 160.0f, 100.0f);
    EXPECT_EQ(list->getSelectedIndex(), -1);
    EXPECT_EQ(list->getSelectedItem(), nullptr);
    const float before = list->getContainer().getHeight();
    ListBoxItem* a = list->addItem("alpha");
    ListBoxItem* b = list->addItem("beta");
    ListBoxItem* c = list->addItem("gamma");
    EXPECT_FLOAT_EQ(list->getContainer().getHeight() - before, 60.0f);
    EXPECT_FLOAT_EQ(a->getY(), 400.0f);
    EXPECT_FLOAT_EQ(b->getY(), 380.0f);
    EXPECT_FLOAT_EQ(c->getY(), 360.0f);
    EXPECT_FLOAT_EQ(c->getWidth(), 140.0f);

    clickAt(150.0f, 375.0f);
    EXPECT_EQ(list->getSelectedIndex(), 1);
    EXPECT_TRUE(b->isSelected());
    clickAt(150.0f, 355.0f);
    EXPECT_EQ(list->getSelectedIndex(), 2);
    EXPECT_FALSE(b->isSelected());
    EXPECT_EQ(actions, (std::vector<std::string>{"selchange w", "selchange w"}));
    key(SDLK_UP);
    EXPECT_EQ(list->getSelectedIndex(), 1);
    keys({SDLK_HOME, SDLK_UP});
    EXPECT_EQ(list->getSelectedIndex(), 0);
    EXPECT_EQ(actions.size(), 4u);

    list->removeItem(7);
    list->removeItem(-1);
    EXPECT_EQ(list->getItemCount(), 3);
    list->removeItem(0);
    EXPECT_EQ(list->getSelectedIndex(), -1);
    EXPECT_EQ(list->getItem(0)->getText(), "beta");
    EXPECT_FLOAT_EQ(list->getItem(0)->getY(), 400.0f);
    list->select(1);
    EXPECT_EQ(list->getSelectedItem()->getText(), "gamma");
    list->clear();
    EXPECT_EQ(list->getItemCount(), 0);
    EXPECT_EQ(list->getSelectedIndex(), -1);
    EXPECT_FLOAT_EQ(list->getContainer().getHeight(), before);
    key(SDLK_DOWN);
    EXPECT_EQ(list->getSelectedIndex(), -1);

    // Columns keep their order and widths; setBounds re-lays every row.
    list->addColumn("Name", 90);
    list->addColumn("Time", 50);
    ASSERT_EQ(list->getColumns().size(), 2u);
    EXPECT_EQ(list->getColumns()[1]->width, 50);
    list->addItem("x\t1");
    list->setBounds(0.0f, 300.0f, 300.0f, 100.0f);
    EXPECT_FLOAT_EQ(list->getItem(0)->getWidth(), 280.0f);
    EXPECT_FLOAT_EQ(list->getItem(0)->getX(), 0.0f);
}

TEST_F(WidgetTest, ListBoxScrollsNoFurtherThanItsEnds)
{
    ListBox* list = place(std::make_unique<ListBox>(), 100.0f, 400.0f, 160.0f, 100.0f);
    for (int i = 0; i < 12; ++i)
        list->addItem("row " + std::to_string(i));
    const ListBoxItemContainer& strip = list->getContainer();
    auto top = [&] { return strip.getY(); };
    auto bottom = [&] { return strip.getY() - strip.getHeight(); };
    EXPECT_FLOAT_EQ(top(), 400.0f);

    clickAt(150.0f, 390.0f, 4);
    EXPECT_FLOAT_EQ(top(), 400.0f);
    for (int i = 0; i < 20; ++i)
        clickAt(150.0f, 390.0f, 5);
    EXPECT_FLOAT_EQ(bottom(), 300.0f);
    EXPECT_GE(top(), 400.0f);
    // Rows scrolled out of the window take no clicks through it.
    EXPECT_EQ(gui().getRoot().componentAt(150.0f, 405.0f), &gui().getRoot());
    EXPECT_EQ(static_cast<ListBoxItem*>(gui().getRoot().componentAt(150.0f, 305.0f))->getText(), "row 11");

    // Selecting a row off screen scrolls it into view.
    focus(*list->getItem(11));
    key(SDLK_HOME);
    EXPECT_EQ(list->getSelectedIndex(), 0);
    EXPECT_FLOAT_EQ(top(), 400.0f);
    key(SDLK_END);
    EXPECT_FLOAT_EQ(bottom(), 300.0f);

    // A short list never scrolls.
    while (list->getItemCount() > 3)
        list->removeItem(0);
    EXPECT_FLOAT_EQ(top(), 400.0f);
    clickAt(150.0f, 390.0f, 5);
    EXPECT_FLOAT_EQ(top(), 400.0f);
}

TEST_F(WidgetTest, TextBoxEditsAtItsCursorWithinItsLimit)
{
    TextBox* box = place(std::make_unique<TextBox>(), 100.0f, 300.0f, 160.0f, 24.0f);
    focus(*box);
    EXPECT_TRUE(actions.empty());
    sound().played.clear();

    keys({SDLK_BACKSPACE, SDLK_LEFT});
    EXPECT_EQ(box->getCursor(), 0u);
    EXPECT_TRUE(sound().played.size() == 2u);
    keys({SDLK_a, SDLK_b, SDLK_1, SDLK_SPACE});
    key(SDLK_c, KMOD_RSHIFT);
    EXPECT_EQ(box->getText(), "ab1 C");
    key(SDLK_RIGHT);
    EXPECT_EQ(box->getCursor(), 5u);
    keys({SDLK_HOME, SDLK_x});
    EXPECT_EQ(box->getText(), "xab1 C");
    keys({SDLK_RIGHT, SDLK_BACKSPACE});
    EXPECT_EQ(box->getText(), "xb1 C");
    key(SDLK_DELETE);
    EXPECT_EQ(box->getText(), "x1 C");
    keys({SDLK_END, SDLK_DELETE, SDLK_BACKSPACE});
    EXPECT_EQ(box->getText(), "x1 ");

    // Punctuation a save name cannot hold types nothing, and makes no sound.
    const size_t sounds = sound().played.size();
    keys({SDLK_SLASH, SDLK_SEMICOLON, SDLK_F1});
    EXPECT_EQ(box->getText(), "x1 ");
    EXPECT_EQ(sound().played.size(), sounds);

    box->setMaxLength(4);
    keys({SDLK_y, SDLK_z});
    EXPECT_EQ(box->getText(), "x1 y");
    EXPECT_EQ(sound().played.size(), sounds + 1);
    key(SDLK_RETURN);
    EXPECT_EQ(actions.size(), 1u) << "Return fires the box's command";
    box->setText("much too long");
    EXPECT_EQ(box->getText(), "much");
    EXPECT_EQ(box->getCursor(), 4u);
}

TEST_F(WidgetTest, ValueBoxCyclesBothWays)
{
    ValueBox* box = place(std::make_unique<ValueBox>(), 100.0f, 300.0f, 120.0f, 24.0f);
    EXPECT_EQ(box->getValue(), "");
    clickAt(110.0f, 290.0f);
    EXPECT_TRUE(actions.empty());
    box->setValues({"a", "b", "c"});
    for (int i = 0; i < 3; ++i)
        clickAt(110.0f, 290.0f);
    EXPECT_EQ(box->getValue(), "a");
    EXPECT_EQ(actions.size(), 3u);
    keys({SDLK_LEFT, SDLK_LEFT});
    EXPECT_EQ(box->getValue(), "b");
    EXPECT_EQ(actions.back(), "valuechange w");
    // The right button and the right key go the other way round.
    clickAt(110.0f, 290.0f, 3);
    EXPECT_EQ(box->getValue(), "a");
    keys({SDLK_RIGHT});
    EXPECT_EQ(box->getValue(), "b");
    EXPECT_TRUE(box->setValue("c"));
    EXPECT_FALSE(box->setValue("d"));
    EXPECT_EQ(box->getIndex(), 2);
}

class KeyBindBoxTest : public WidgetTest {
protected:
    void SetUp() override
    {
        WidgetTest::SetUp();
        game.installGameInput(std::make_unique<GameInput>());
        game.getGameInput()->setBinding("mouse1", "+attack");
        box = place(std::make_unique<KeyBindBox>(), 100.0f, 300.0f, 140.0f, 24.0f);
        box->setBindCommand("+attack");
    }
    GameInput& input() { return *game.getGameInput(); }
    KeyBindBox* box = nullptr;
};

TEST_F(KeyBindBoxTest, TheNextButtonPressedAnywhereReplacesBothKeys)
{
    input().setBinding("k", "+attack");
    focus(*box);
    moveTo(600.0f, 50.0f);
    press(3);
    release(3);
    EXPECT_EQ(input().getBinding("mouse2"), "+attack");
    EXPECT_EQ(input().getBinding("k"), "");
    EXPECT_EQ(input().getBinding("mouse1"), "");
    EXPECT_EQ(box->getShown(), "mouse2");
    EXPECT_EQ(actions, (std::vector<std::string>{"bindupdate w"}));
    EXPECT_EQ(gui().getFocus(), box);
}

TEST_F(KeyBindBoxTest, EscapeGivesUpLosingFocusDisarmsAndHeldKeysRepeatingAreNoChoice)
{
    auto frame = std::make_unique<Frame>();
    Frame* f = gui().getRoot().add(std::move(frame));
    f->setBounds(300.0f, 500.0f, 200.0f, 200.0f);
    box->setBindCommand("+moveleft");
    EXPECT_EQ(box->getShown(), "unbound");
    focus(*box);
    key(SDLK_ESCAPE);
    EXPECT_FALSE(box->isWaiting());
    EXPECT_TRUE(actions.empty());
    EXPECT_EQ(input().findKeyFor("+moveleft"), "unbound");
    EXPECT_TRUE(gui().isVisible());

    focus(*box);
    gui().setFocus(f);
    EXPECT_FALSE(box->isWaiting());
    key(SDLK_a);
    EXPECT_EQ(input().getBinding("a"), "");

    // A repeat of a key held before arming is no choice; its next press is.
    InputManager& in = game.getInputManager();
    in.keyEvent(true, SDLK_RIGHT, 0);
    focus(*box);
    in.keyEvent(true, SDLK_RIGHT, 0);
    EXPECT_TRUE(box->isWaiting());
    EXPECT_EQ(input().getBinding("right"), "");
    in.keyUp(SDLK_RIGHT);
    in.keyEvent(true, SDLK_RIGHT, 0);
    EXPECT_EQ(input().getBinding("right"), "+moveleft");
}

TEST_F(WidgetTest, TextAreaWrapsAndScrollsWithinItsLinesAndItsBarFollows)
{
    TextArea* area = place(std::make_unique<TextArea>(), 100.0f, 400.0f, 200.0f, 90.0f);
    for (int i = 0; i < 10; ++i)
        area->addLine("line " + std::to_string(i));
    const int visible = TextLayout::linesFitting(90.0f);
    ASSERT_EQ(visible, 5);
    EXPECT_EQ(area->getMaxFirstLine(), 5);
    focus(*area);
    key(SDLK_PAGEDOWN);
    EXPECT_EQ(area->getFirstLine(), 4);
    key(SDLK_PAGEDOWN);
    EXPECT_EQ(area->getFirstLine(), 5);
    EXPECT_FLOAT_EQ(area->getScrollbar().getValue(), 5.0f);
    clickAt(150.0f, 380.0f, 4);
    EXPECT_EQ(area->getFirstLine(), 4);
    area->getScrollbar().setValue(1.0f);
    EXPECT_EQ(area->getFirstLine(), 1);
    area->scrollTo(-8);
    EXPECT_EQ(area->getFirstLine(), 0);
    area->setText("short");
    EXPECT_EQ(area->getMaxFirstLine(), 0);

    // Lines wrap at blanks and cut long words; without a font a character is 7 pixels.
    EXPECT_EQ(TextLayout::wrap("one two three", 50.0f, nullptr),
              (std::vector<std::string>{"one two", "three"}));
    EXPECT_EQ(TextLayout::wrap("abcdefghij", 35.0f, nullptr), (std::vector<std::string>{"abcde", "fghij"}));
    EXPECT_EQ(TextLayout::wrap("a\n\nb", 100.0f, nullptr), (std::vector<std::string>{"a", "", "b"}));
    EXPECT_EQ(TextLayout::wrap("x", 0.0f, nullptr), (std::vector<std::string>{"x"}));
}
