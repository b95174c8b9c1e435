#include "menus/LoadGameMenu.h"

#include <fstream>
#include <set>

#include "core/Game.h"
#include "gui/Label.h"
#include "gui/ListBox.h"
#include "gui/Picture.h"
#include "menus/ScreenListener.h"
#include "render/IRenderer.h"
#include "resources/FileOps.h"

namespace {
constexpr float frameWidth = 470.0f;

class LoadGameMenuListener : public ScreenListener<LoadGameMenu> {
public:
    using ScreenListener::ScreenListener;
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "selchange")
            screen.showSelection();
        else if (command == "loadgame")
            screen.loadSelected();
    }
};
}

LoadGameMenu::LoadGameMenu() : MenuFrame("Load Game", screenName, frameWidth, 290.0f)
{
    auto listBox = std::make_unique<ListBox>();
    listBox->setBounds(15.0f, 42.0f, 180.0f, 232.0f);
    listBox->setName("saves");
    list = addRelative(std::move(listBox));
    forwardActions(*list);

    auto thumbnail = std::make_unique<Picture>();
    thumbnail->setBounds(210.0f, 42.0f, 244.0f, 183.0f);
    thumbnail->setImage(defaultPicture);
    thumbnail->setName("thumbnail");
    picture = addRelative(std::move(thumbnail));
    caption = addLabel(noSelection, 210.0f, 226.0f, 244.0f, 18.0f);
    addButton("Load Game", "loadgame", 272.0f, 248.0f, 120.0f, 28.0f, true);
    addActionListener(std::make_unique<LoadGameMenuListener>(*this));
}

void LoadGameMenu::onShow()
{
    std::set<std::string> files;
    FileOps::listFolder("saves", "*.xml", files);
    saves.clear();
    list->clear();
    for (const std::string& file : files) {
        saves.push_back(file.substr(0, file.size() - 4));
        list->addItem(saves.back());
    }
    showSelection();
}

void LoadGameMenu::showSelection()
{
    const int i = list->getSelectedIndex();
    if (i < 0 || i >= static_cast<int>(saves.size())) {
        picture->setImage(defaultPicture);
        caption->setText(noSelection);
        return;
    }
    const std::string& name = saves[static_cast<size_t>(i)];
    const std::string thumbnail = "saves/" + name + ".png";
    // A save made again since it was last shown has a new picture.
    if (Game* game = Game::current())
        if (IRenderer* renderer = game->getRenderer())
            renderer->unloadTexture(thumbnail);
    picture->setImage(std::ifstream(thumbnail).good() ? thumbnail : std::string(defaultPicture));
    caption->setText(name);
}

bool LoadGameMenu::loadSelected()
{
    const int i = list->getSelectedIndex();
    Game* game = Game::current();
    if (!game || i < 0 || i >= static_cast<int>(saves.size()))
        return false;
    const std::string& name = saves[static_cast<size_t>(i)];
    // The frame only carries out requests while a level runs.
    if (game->isLevelLoaded()) {
        setEnabled(false);
        game->requestLoad(name);
        game->getInputManager().hideGUI();
    } else {
        game->loadGame(name);
        // A save that cannot be loaded leaves the list up to pick another.
        setEnabled(!game->isLevelLoaded());
    }
    return true;
}
