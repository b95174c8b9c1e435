#pragma once
// "Load Game": the saves under saves/ with the thumbnail of the selected one.
// Loading waits for the next frame while a level runs (behind a fade) and
// happens at once from the menus alone.
#include <string>
#include <vector>

#include "menus/MenuFrame.h"

class Label;
class ListBox;
class Picture;

class LoadGameMenu : public MenuFrame {
public:
    static constexpr const char* screenName = "loadgame";
    static constexpr const char* defaultPicture = "data/images/defaultgame.png";
    static constexpr const char* noSelection = "No save is selected";

    LoadGameMenu();

    // Lists saves/ afresh; nothing is selected.
    void onShow() override;
    // The selected save's thumbnail and name, or the default picture.
    void showSelection();
    // Loads the selected save; false when none is selected.
    bool loadSelected();

    const std::vector<std::string>& getSaves() const { return saves; }
    ListBox& getList() { return *list; }
    Picture& getPicture() { return *picture; }
    Label& getCaption() { return *caption; }

private:
    std::vector<std::string> saves;
    ListBox* list = nullptr;
    Picture* picture = nullptr;
    Label* caption = nullptr;
};
