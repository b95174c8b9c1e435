#pragma once
// "Save Game", offered while a level runs: the saves so far (picking one
// puts its name in the box, to write over it), a name box, and "Save". A
// name that is taken asks before writing over it. The save is written at
// the start of the next frame, from the picture taken as the menus opened;
// the screen then shows that thumbnail.
#include <string>

#include "menus/MenuFrame.h"

class ConfirmPanel;
class Label;
class Picture;
class SaveListBox;
class TextBox;

class SaveGameMenu : public MenuFrame {
public:
    static constexpr const char* screenName = "savegame";
    static constexpr const char* defaultPicture = "data/images/defaultgame.png";

    SaveGameMenu();

    // Lists saves/ afresh and proposes a name.
    void onShow() override;
    // The picked save's name goes into the box, its thumbnail beside it.
    void showSelection();
    // "Save": false, with the reason on screen, for a bad name or no level;
    // a taken name asks first.
    bool save();
    // Writes the save under the name in the box, whether it exists or not.
    bool saveConfirmed();
    // Once the requested save is written: its thumbnail and the list again.
    void draw(IRenderer& renderer) override;

    // The name the box holds, as the save command would read it.
    std::string typedName() const;
    SaveListBox& getList() { return *list; }
    TextBox& getNameBox() { return *nameBox; }
    Picture& getPicture() { return *picture; }
    Label& getMessage() { return *message; }
    ConfirmPanel& getConfirm() { return *confirm; }
    // The name of the save requested and not yet written, "" for none.
    const std::string& getWaitingFor() const { return waitingFor; }
    // Updates the screen when the save it asked for has been written.
    void finishSave();

private:
    SaveListBox* list = nullptr;
    TextBox* nameBox = nullptr;
    Picture* picture = nullptr;
    Label* caption = nullptr;
    Label* message = nullptr;
    ConfirmPanel* confirm = nullptr;
    std::string waitingFor;
};
