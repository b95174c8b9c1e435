#pragma once
// "Choose Adventure": pick an adventure and its difficulty, name the save
// game and begin. The save name must be new; beginning loads the adventure's
// start level, plays the adventure's opening cut scene and creates the save.
#include <string>
#include <vector>

#include "menus/Adventure.h"
#include "menus/MenuFrame.h"

class ListBox;
class TextBox;
class TextContainer;
class TextView;
class ValueBox;

class NewAdventureMenu : public MenuFrame {
public:
    static constexpr const char* screenName = "newadventure";

    NewAdventureMenu();

    // Lists data/adventures/ afresh.
    void onShow() override;
    // The selected adventure's description.
    void showSelection();
    // "Begin!": false, with a message on the screen, when the save name is
    // taken or empty, no adventure exists or its start level does not load.
    bool begin();

    const std::vector<Adventure>& getAdventures() const { return adventures; }
    ListBox& getList() { return *list; }
    TextBox& getSaveName() { return *saveName; }
    ValueBox& getDifficulty() { return *difficulty; }
    const std::string& getMessage() const;

    // "save1", "save2"...: the first name no save game has.
    static std::string freeSaveName();

private:
    void say(const std::string& text);

    std::vector<Adventure> adventures;
    ListBox* list = nullptr;
    TextView* description = nullptr;
    TextBox* saveName = nullptr;
    ValueBox* difficulty = nullptr;
    TextContainer* message = nullptr;
};
