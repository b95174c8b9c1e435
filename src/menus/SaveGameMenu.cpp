#include "menus/SaveGameMenu.h"

#include <fstream>
#include <utility>

#include "core/Game.h"
#include "gui/Label.h"
#include "gui/Picture.h"
#include "gui/TextBox.h"
#include "menus/ConfirmPanel.h"
#include "menus/NewAdventureMenu.h"
#include "menus/SaveListBox.h"
#include "menus/SaveMenuLayout.h"
#include "menus/ScreenListener.h"

namespace {
class SaveGameMenuListener : public ScreenListener<SaveGameMenu> {
public:
    using ScreenListener::ScreenListener;
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "selchange")
            screen.showSelection();
        else if (command == "savenow")
            screen.save();
        else if (command == "overwrite")
            screen.saveConfirmed();
    }
};

std::string trimmed(const std::string& text)
{
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}
}

SaveGameMenu::SaveGameMenu()
    : MenuFrame("Save Game", screenName, SaveMenuLayout::frameWidth, SaveMenuLayout::frameHeight)
{
    using namespace SaveMenuLayout;
    addHeadings(*this);
    list = addRelative(makeList(buttonY - 52.0f - listY));
    forwardActions(*list);

    constexpr float saveWidth = 72.0f;
    addLabel("Name:", margin, buttonY + 2.0f, 50.0f, 26.0f);
    auto box = std::make_unique<TextBox>();
    box->setBounds(margin + 50.0f, buttonY + 2.0f, listWidth - 60.0f - saveWidth, 26.0f);
    // Room for the quotes around a name of the longest length.
    box->setMaxLength(Game::maxSaveNameLength + 2);
    box->setAcceptsQuotes(true);
    box->setName("savename");
    box->setCommand("savenow");
    nameBox = addRelative(std::move(box));
    forwardActions(*nameBox);
    addLabel("Up to " + std::to_string(Game::maxSaveNameLength) + " letters, digits, spaces, '-', '_' or '.'",
             margin, buttonY - 46.0f, listWidth, 18.0f);

    picture = addRelative(makePicture(defaultPicture));
    caption = addLabel("", pictureX, captionY, pictureWidth, lineHeight);
    message = addLabel("", pictureX, detailY, pictureWidth, lineHeight);
    addButton("Save", "savenow", margin + listWidth - saveWidth, buttonY, saveWidth, buttonHeight, false);
    confirm = addRelative(makeConfirm(*this));
    addActionListener(std::make_unique<SaveGameMenuListener>(*this));
}

void SaveGameMenu::onShow()
{
    confirm->setEnabled(false);
    waitingFor.clear();
    list->refresh();
    list->select(-1);
    nameBox->setText(NewAdventureMenu::freeSaveName());
    picture->setImage(defaultPicture);
    caption->setText("");
    message->setText("");
}

void SaveGameMenu::showSelection()
{
    const SaveInfo* save = list->selectedSave();
    if (!save)
        return;
    nameBox->setText(save->name);
    picture->setImage(SaveMenuLayout::freshThumbnail(save->name, defaultPicture));
    caption->setText(SaveListBox::captionText(*save));
    message->setText(SaveListBox::detailText(*save));
}

std::string SaveGameMenu::typedName() const { return Game::saveNameFromArguments(trimmed(nameBox->getText())); }

bool SaveGameMenu::save()
{
    const std::string name = typedName();
    if (name.empty()) {
        message->setText("Type a name for the save first");
        return false;
    }
    if (!Game::isSaveName(name)) {
        message->setText(name.size() > Game::maxSaveNameLength
                             ? "Names are at most " + std::to_string(Game::maxSaveNameLength) + " characters"
                             : "That name has characters a save cannot use");
        return false;
    }
    if (std::ifstream(Game::savePath(name)).good()) {
        confirm->ask("Write over the save " + name + "?", "overwrite");
        return false;
    }
    return saveConfirmed();
}

bool SaveGameMenu::saveConfirmed()
{
    Game* game = Game::current();
    const std::string name = typedName();
    if (!game || !game->isLevelLoaded() || !Game::isSaveName(name)) {
        message->setText("There is no game to save");
        return false;
    }
    game->setPendingSaveName(name);
    game->requestSave();
    waitingFor = name;
    message->setText("Saving...");
    return true;
}

void SaveGameMenu::finishSave()
{
    Game* game = Game::current();
    if (waitingFor.empty() || (game && game->isSaveRequested()))
        return;
    const std::string name = std::exchange(waitingFor, std::string());
    list->refresh(name);
    const SaveInfo* save = list->selectedSave();
    picture->setImage(SaveMenuLayout::freshThumbnail(name, defaultPicture));
    caption->setText(save ? SaveListBox::captionText(*save) : name);
    message->setText(save && save->readable ? "Saved as " + name : "The save could not be written");
}

void SaveGameMenu::draw(IRenderer& renderer)
{
    if (enabled)
        finishSave();
    MenuFrame::draw(renderer);
}
