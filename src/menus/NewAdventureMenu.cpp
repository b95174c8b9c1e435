#include "menus/NewAdventureMenu.h"

#include <cstdio>
#include <fstream>

#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "gameplay/Difficulty.h"
#include "gui/Button.h"
#include "gui/ListBox.h"
#include "gui/TextBox.h"
#include "gui/TextContainer.h"
#include "gui/GUIManager.h"
#include "gui/TextView.h"
#include "gui/ValueBox.h"
#include "menus/ScreenListener.h"

namespace {
constexpr float frameWidth = 470.0f;

class NewAdventureMenuListener : public ScreenListener<NewAdventureMenu> {
public:
    using ScreenListener::ScreenListener;
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "selchange")
            screen.showSelection();
        else if (command == "begin")
            screen.begin();
    }
};

bool fileExists(const std::string& path) { return std::ifstream(path).good(); }
}

NewAdventureMenu::NewAdventureMenu() : MenuFrame("Choose Adventure", screenName, frameWidth, 364.0f)
{
    auto listBox = std::make_unique<ListBox>();
    listBox->setBounds(15.0f, 42.0f, 190.0f, 160.0f);
    listBox->setName("adventures");
    list = addRelative(std::move(listBox));
    forwardActions(*list);

    auto text = std::make_unique<TextView>();
    text->setBounds(215.0f, 42.0f, frameWidth - 230.0f, 160.0f);
    text->setName("description");
    description = addRelative(std::move(text));

    addLabel("Difficulty:", 15.0f, 214.0f, 130.0f, 26.0f);
    auto levels = std::make_unique<ValueBox>();
    levels->setBounds(150.0f, 214.0f, 170.0f, 26.0f);
    levels->setValues({Difficulty::name(Difficulty::easy), Difficulty::name(Difficulty::normal),
                       Difficulty::name(Difficulty::hard)});
    levels->setName("difficulty");
    difficulty = addRelative(std::move(levels));

    constexpr float rowY = 248.0f;
    addLabel("Save game name:", 15.0f, rowY, 130.0f, 26.0f);
    auto box = std::make_unique<TextBox>();
    box->setBounds(150.0f, rowY, 170.0f, 26.0f);
    box->setMaxLength(Game::maxSaveNameLength);
    box->setText("save1");
    box->setName("savename");
    box->setCommand("begin");
    saveName = addRelative(std::move(box));
    forwardActions(*saveName);
    addButton("Begin!", "begin", frameWidth - 135.0f, rowY - 2.0f, 120.0f, 30.0f, true);

    addLabel("Up to " + std::to_string(Game::maxSaveNameLength) +
                 " letters, digits, spaces, '-', '_' or '.'",
             15.0f, rowY + 30.0f, frameWidth - 30.0f, 16.0f);

    auto note = std::make_unique<TextContainer>();
    note->setBounds(15.0f, rowY + 48.0f, frameWidth - 30.0f, 56.0f);
    note->setName("message");
    message = addRelative(std::move(note));
    addActionListener(std::make_unique<NewAdventureMenuListener>(*this));
}

void NewAdventureMenu::onShow()
{
    adventures = Adventure::listAll();
    list->clear();
    for (const Adventure& a : adventures)
        list->addItem(a.name);
    if (!adventures.empty())
        list->select(0);
    // Each new game starts from a name no save has yet.
    saveName->setText(freeSaveName());
    difficulty->setValue(Difficulty::name(Difficulty::current()));
    say("");
    showSelection();
}

void NewAdventureMenu::showSelection()
{
    const int i = list->getSelectedIndex();
    description->setText(i >= 0 && i < static_cast<int>(adventures.size())
                             ? adventures[static_cast<size_t>(i)].description
                             : std::string());
}

std::string NewAdventureMenu::freeSaveName()
{
    for (int n = 1; n < 10000; ++n) {
        const std::string name = "save" + std::to_string(n);
        if (!fileExists(Game::savePath(name)))
            return name;
    }
    return std::string();
}

const std::string& NewAdventureMenu::getMessage() const { return message->getText(); }

void NewAdventureMenu::say(const std::string& text)
{
    message->setText(text);
    if (!text.empty())
        conPrint(text);
}

bool NewAdventureMenu::begin()
{
    Game* game = Game::current();
    if (!game)
        return false;
    const std::string name = saveName->getText();
    if (name.find_first_not_of(' ') == std::string::npos) {
        say("Type a name for the save game first");
        return false;
    }
    if (!Game::isSaveName(name)) {
        say(name.size() > Game::maxSaveNameLength
                ? "Save names are at most " + std::to_string(Game::maxSaveNameLength) + " characters"
                : "Save names are letters, digits, spaces, '-', '_' and '.' and do not start with '.'");
        return false;
    }
    if (fileExists("saves/" + name + ".xml")) {
        say("A save game called " + name + " already exists, please choose another save name");
        return false;
    }
    if (adventures.empty())
        adventures = Adventure::listAll();
    const int i = list->getSelectedIndex();
    if (adventures.empty()) {
        say("No adventure was found in data/adventures/");
        return false;
    }
    const Adventure& adventure = adventures[i >= 0 && i < static_cast<int>(adventures.size())
                                                ? static_cast<size_t>(i)
                                                : 0];
    // Chosen before the first level loads, so its pickups and the save follow it.
    if (GameVar* var = findVar("difficulty"))
        var->setInt(difficulty->getIndex());
    // A new adventure starts a new player, not the last run's.
    if (game->canLoadLevel(adventure.startlevel))
        game->resetPlayer();
    game->loadLevel(adventure.startlevel, "");
    if (!game->isLevelLoaded() || game->getCurrentLevel() != adventure.startlevel) {
        say("The adventure could not start: its first level " + adventure.startlevel + " did not load");
        return false;
    }
    say("");
    setEnabled(false);
    game->setPlaySeconds(0.0);
    game->setPendingSaveName(name);
    game->getInputManager().hideGUI();
    // The first save shows the first level; the opening story follows it.
    game->requestQuietSave();
    if (!adventure.cutscene.empty())
        game->showCutsceneAfterSave(adventure.cutscene);
    return true;
}
