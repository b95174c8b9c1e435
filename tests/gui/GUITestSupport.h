#pragma once
// A headless game for GUI tests: null drawing, a sound system that records
// what the widgets play, key names from the real key map, and helpers that
// drive the GUI manager with window coordinates (y down) the way SDL does.
#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "TestPaths.h"
#include "console/CommandRegistry.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "gui/ActionListener.h"
#include "gui/GUIManager.h"
#include "input/GameInput.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"

class RecordingSound : public NullSound {
public:
    int play(const std::string& name, int loops, int volume) override
    {
        played.push_back(name + " " + std::to_string(loops) + " " + std::to_string(volume));
        return -1;
    }
    std::vector<std::string> played;
};

// Remembers every action a widget reports, as "command name".
class RecordingListener : public ActionListener {
public:
    explicit RecordingListener(std::vector<std::string>& log) : log(log) {}
    void actionPerformed(const std::string& command, GUIComponent* source) override
    {
        log.push_back(command + " " + (source ? source->getName() : std::string("-")));
    }

private:
    std::vector<std::string>& log;
};

// Where a component's top-left corner is, in 2D units (y up).
inline ::testing::AssertionResult isAt(const GUIComponent& c, float x, float y)
{
    if (std::fabs(c.getX() - x) <= 1e-3f && std::fabs(c.getY() - y) <= 1e-3f)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << c.getName() << " is at " << c.getX() << "," << c.getY();
}

class GUITest : public ::testing::Test {
protected:
    static constexpr int screenW = 800;
    static constexpr int screenH = 600;

    void SetUp() override
    {
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
        game.getInputManager().loadKeyNames(testSourceDir() + "/data/keymaps.xml");
        gui().setScreenSize(screenW, screenH);
    }
    void TearDown() override
    {
        CommandRegistry::instance().reset();
        VariableRegistry::instance().clearVariables();
    }

    GUIManager& gui() { return *game.getGUIManager(); }
    // The named component as its widget type; a test fails if it is not there.
    template <class T>
    T& screen(const std::string& name)
    {
        T* found = dynamic_cast<T*>(gui().findComponent(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    RecordingSound& sound() { return *soundPtr; }
    // Listens to the widget, recording into `actions`.
    void listen(GUIComponent& c) { c.addActionListener(std::make_unique<RecordingListener>(actions)); }

    // The cursor to 2D point (x, y) (origin bottom left), as one SDL motion.
    void moveTo(float x, float y)
    {
        const float wx = x;
        const float wy = static_cast<float>(screenH) - y;
        gui().mouseMove(wx, wy, wx - lastX, wy - lastY);
        lastX = wx;
        lastY = wy;
    }
    void press(int button = 1) { gui().mouseDown(lastX, lastY, button); }
    void release(int button = 1) { gui().mouseUp(lastX, lastY, button); }
    void clickAt(float x, float y, int button = 1)
    {
        moveTo(x, y);
        press(button);
        release(button);
    }
    // A press at one point, moved to another and let go there.
    void drag(float fromX, float fromY, float toX, float toY)
    {
        moveTo(fromX, fromY);
        press();
        moveTo(toX, toY);
        release();
    }
    // A real click in the middle of the component.
    void click(GUIComponent& c) { clickAt(c.getX() + c.getWidth() / 2.0f, c.getY() - c.getHeight() / 2.0f); }
    // A key through the input manager, as the event pump delivers it.
    void key(int symbol, int modifiers = 0)
    {
        game.getInputManager().setModifiers(modifiers);
        game.getInputManager().keyEvent(true, symbol, symbol);
        game.getInputManager().setModifiers(modifiers);
        game.getInputManager().keyEvent(false, symbol, symbol);
    }
    void keys(std::initializer_list<int> symbols)
    {
        for (int symbol : symbols)
            key(symbol);
    }

    RecordingSound* soundPtr = new RecordingSound();
    Game game{std::make_unique<NullRenderer>(), std::unique_ptr<ISound>(soundPtr)};
    std::vector<std::string> actions;
    float lastX = 0.0f;
    float lastY = 0.0f;
};
