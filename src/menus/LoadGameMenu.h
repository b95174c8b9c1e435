#pragma once
// "Load Game": the saves under saves/, newest first, with their levels,
// dates and play times, the selected one's thumbnail large beside them, and
// deleting a save once the player confirms. Loading waits for the next
// frame while a level runs (behind a fade) and happens at once from the
// menus alone.
#include <string>

#include "menus/MenuFrame.h"

class ConfirmPanel;
class Label;
class Picture;
class SaveListBox;

class LoadGameMenu : public MenuFrame {
public:
    static constexpr const char* screenName = "loadgame";
    static constexpr const char* defaultPicture = "data/images/defaultgame.png";
    static constexpr const char* noSelection = "No save is selected";

    LoadGameMenu();

    // Lists saves/ afresh; nothing is selected.
    void onShow() override;
    // The selected save's thumbnail and fields, or the default picture.
    void showSelection();
    // Loads the selected save; false when none is selected.
    bool loadSelected();
    // Asks before deleting the selected save; false when none is selected.
    bool askDelete();
    // Removes the selected save and its thumbnail.
    bool deleteSelected();

    SaveListBox& getList() { return *list; }
    Picture& getPicture() { return *picture; }
    Label& getCaption() { return *caption; }
    Label& getDetail() { return *detail; }
    ConfirmPanel& getConfirm() { return *confirm; }

private:
    SaveListBox* list = nullptr;
    Picture* picture = nullptr;
    Label* caption = nullptr;
    Label* detail = nullptr;
    ConfirmPanel* confirm = nullptr;
};
