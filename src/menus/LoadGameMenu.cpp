#include "menus/LoadGameMenu.h"

#include <cstdio>
#include <fstream>

#include "console/ConsolePrint.h"
#include "core/Game.h"
#include "gui/Label.h"
#include "gui/Picture.h"
#include "menus/ConfirmPanel.h"
#include "menus/SaveListBox.h"
#include "menus/SaveMenuLayout.h"
#include "menus/ScreenListener.h"
#include "render/IRenderer.h"

namespace {
class LoadGameMenuListener : public ScreenListener<LoadGameMenu> {
public:
    using ScreenListener::ScreenListener;
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "selchange")
            screen.showSelection();
        else if (command == "loadgame")
            screen.loadSelected();
        else if (command == "deletesave")
            screen.askDelete();
        else if (command == "deleteconfirmed")
            screen.deleteSelected();
    }
};
}

LoadGameMenu::LoadGameMenu()
    : MenuFrame("Load Game", screenName, SaveMenuLayout::frameWidth, SaveMenuLayout::frameHeight)
{
    using namespace SaveMenuLayout;
    addHeadings(*this);
    list = addRelative(makeList(buttonY - 8.0f - listY));
    forwardActions(*list);
    picture = addRelative(makePicture(defaultPicture));
    caption = addLabel(noSelection, pictureX, captionY, pictureWidth, lineHeight);
    detail = addLabel("", pictureX, detailY, pictureWidth, lineHeight);
    const float right = margin + listWidth;
    addButton("Load Game", "loadgame", right - 2.0f * buttonWidth - 10.0f, buttonY, buttonWidth, buttonHeight, true);
    addButton("Delete", "deletesave", right - buttonWidth, buttonY, buttonWidth, buttonHeight, false);
    confirm = addRelative(makeConfirm(*this));
    addActionListener(std::make_unique<LoadGameMenuListener>(*this));
}

void LoadGameMenu::onShow()
{
    confirm->setEnabled(false);
    list->refresh();
    list->select(-1);
    showSelection();
}

void LoadGameMenu::showSelection()
{
    const SaveInfo* save = list->selectedSave();
    if (!save) {
        picture->setImage(defaultPicture);
        caption->setText(noSelection);
        detail->setText("");
        return;
    }
    picture->setImage(SaveMenuLayout::freshThumbnail(save->name, defaultPicture));
    caption->setText(SaveListBox::captionText(*save));
    detail->setText(SaveListBox::detailText(*save));
}

bool LoadGameMenu::loadSelected()
{
    const SaveInfo* save = list->selectedSave();
    Game* game = Game::current();
    if (!game || !save)
        return false;
    const std::string name = save->name;
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

bool LoadGameMenu::askDelete()
{
    const SaveInfo* save = list->selectedSave();
    if (!save)
        return false;
    confirm->ask("Delete the save " + save->name + "?", "deleteconfirmed");
    return true;
}

bool LoadGameMenu::deleteSelected()
{
    const SaveInfo* save = list->selectedSave();
    if (!save)
        return false;
    const std::string name = save->name;
    if (std::remove(Game::savePath(name).c_str()) != 0) {
        conPrint("Could not delete the save " + name);
        return false;
    }
    std::remove(Game::thumbnailPath(name).c_str());
    std::printf("Deleted save game: %s\n", Game::savePath(name).c_str());
    conPrint("Deleted the save " + name);
    list->refresh();
    list->select(-1);
    showSelection();
    return true;
}
