#include "menus/MainInterface.h"

#include <algorithm>
#include <cmath>

#include "core/Game.h"
#include "gui/Button.h"
#include "gui/GUIManager.h"
#include "menus/AccessibilityMenu.h"
#include "menus/BouncingSmileys.h"
#include "menus/ControlsHelp.h"
#include "menus/ControlsMenu.h"
#include "menus/CutSceneFrame.h"
#include "menus/LoadGameMenu.h"
#include "menus/MainMenu.h"
#include "menus/MenuFrame.h"
#include "menus/NewAdventureMenu.h"
#include "menus/OptionsMenu.h"
#include "menus/SaveGameMenu.h"
#include "menus/SoundMenu.h"
#include "menus/VideoMenu.h"
#include "render/IRenderer.h"

namespace {
constexpr float taskButtonWidth = 130.0f;
constexpr float taskButtonHeight = 30.0f;
constexpr float logoAspect = 4.0f;

class TaskbarListener : public ActionListener {
public:
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "mainmenu")
            MenuFrame::showScreen(MainMenu::screenName);
        else if (command == "options")
            MenuFrame::showScreen(OptionsMenu::screenName);
        else if (command == "savegame")
            MenuFrame::showScreen(SaveGameMenu::screenName);
        else if (command == "resume") {
            // Without a level there is nothing to return to: the GUI stays.
            if (Game* game = Game::current())
                game->getInputManager().hideGUI();
        }
    }
};
}

MainInterface::MainInterface() : smileys(std::make_unique<BouncingSmileys>())
{
    setName(componentName);
    setBackground("data/images/techbase.png");
    cutScene = add(std::make_unique<CutSceneFrame>());
    // Screens start hidden except the main menu; the first is on top.
    add(std::make_unique<ControlsMenu>())->setEnabled(false);
    add(std::make_unique<AccessibilityMenu>())->setEnabled(false);
    add(std::make_unique<ControlsHelp>())->setEnabled(false);
    add(std::make_unique<VideoMenu>())->setEnabled(false);
    add(std::make_unique<SoundMenu>())->setEnabled(false);
    add(std::make_unique<OptionsMenu>())->setEnabled(false);
    add(std::make_unique<LoadGameMenu>())->setEnabled(false);
    add(std::make_unique<SaveGameMenu>())->setEnabled(false);
    add(std::make_unique<NewAdventureMenu>())->setEnabled(false);
    add(std::make_unique<MainMenu>());

    auto bar = std::make_unique<TransFrame>();
    bar->setFillColour(RGBAColour(10.0f, 16.0f, 28.0f, 200.0f));
    bar->setName("taskbar");
    const char* const entries[][2] = {
        {"Main Menu", "mainmenu"}, {"Save Game", "savegame"}, {"Options", "options"}, {"Resume Game", "resume"}};
    for (const auto& entry : entries) {
        auto button = std::make_unique<Button>();
        button->setText(entry[0]);
        button->setCommand(entry[1]);
        button->setName(std::string(entry[1]) + "button");
        button->setClickSound(MenuFrame::openSound);
        button->addActionListener(std::make_unique<TaskbarListener>());
        taskButtons.push_back(bar->add(std::move(button)));
    }
    saveButton = taskButtons[1];
    saveButton->setEnabled(false);
    taskbar = add(std::move(bar));
}

MainInterface::~MainInterface() = default;

void MainInterface::update(float w, float h)
{
    setBounds(0.0f, h, w, h);
    smileys->update(w, h);
    layoutTaskbar();
    TransFrame::update(w, h);
}

void MainInterface::layoutTaskbar()
{
    taskbar->setBounds(x, y - height + MenuFrame::taskbarHeight, width, MenuFrame::taskbarHeight);
    const float gap = 10.0f;
    const auto shown = static_cast<float>(
        std::count_if(taskButtons.begin(), taskButtons.end(), [](const GUIComponent* b) { return b->isEnabled(); }));
    const float total = shown * taskButtonWidth + (shown - 1.0f) * gap;
    float left = std::floor(x + (width - total) / 2.0f);
    const float top = std::floor(y - height + (MenuFrame::taskbarHeight + taskButtonHeight) / 2.0f);
    for (GUIComponent* button : taskButtons) {
        if (!button->isEnabled())
            continue;
        button->setBounds(left, top, taskButtonWidth, taskButtonHeight);
        left += taskButtonWidth + gap;
    }
}

void MainInterface::toggle()
{
    // The console opening over the menus keeps them on screen; only play
    // takes them away.
    Game* game = Game::current();
    setEnabled(!game || (game->getGUIManager()->isVisible() && game->getInputManager().getCurrentTarget() != "game"));
    // Saving is offered only over a level in play, not over a cut scene.
    saveButton->setEnabled(game && game->isLevelLoaded() && !cutScene->isEnabled());
    layoutTaskbar();
}

void MainInterface::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    renderer.setTexturing(true);
    renderer.setBlending(false);
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    renderer.drawImage(x, y, 0.0f, width, height, getBackground());
    smileys->draw(renderer);
    const float logoW = std::floor(std::min(width * 0.8f, std::min(640.0f, (MenuFrame::logoBand - 16.0f) * logoAspect)));
    const float logoH = std::floor(logoW / logoAspect);
    const float logoX = std::floor(x + (width - logoW) / 2.0f);
    const float logoY = std::floor(y - std::max(4.0f, (MenuFrame::logoBand - logoH) / 2.0f));
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    renderer.drawImage(logoX, logoY, 0.0f, logoW, logoH, logoGlowImage, true, true);
    renderer.setAlphaBlend();
    renderer.drawImage(logoX, logoY, 0.0f, logoW, logoH, logoImage, false, true);
    drawChildren(renderer);
}
