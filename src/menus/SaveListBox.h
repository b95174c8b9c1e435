#pragma once
// The list of save games both save menus show: one row per save, newest
// first, with its level's title, when it was written and the play time,
// quick saves and checkpoints marked; a line says so when there are none.
#include <string>
#include <vector>

#include "core/SaveInfo.h"
#include "gui/ListBox.h"

class SaveListBox : public ListBox {
public:
    static constexpr const char* emptyText = "There are no saves yet";
    // Column headings, in the order of the row's cells.
    static const std::vector<std::string>& headings();

    SaveListBox();

    // Reads saves/ again; the save of that name stays (or becomes) selected.
    void refresh(const std::string& keepSelected = "");
    // Null when nothing is selected.
    const SaveInfo* selectedSave() const;
    const std::vector<SaveInfo>& getSaves() const { return saves; }
    // Lays the columns out for the new width.
    void setBounds(float newX, float newY, float w, float h) override;
    // The rows, or the empty-list line.
    void draw(IRenderer& renderer) override;

    // Name (with its kind), title, date and time, play time; tab separated.
    static std::string rowText(const SaveInfo& save);
    // Under the thumbnail: "quicksave - Quick save: Quay", then
    // "25 Nov 2026 17:04, played 12:05".
    static std::string captionText(const SaveInfo& save);
    static std::string detailText(const SaveInfo& save);

private:
    std::vector<SaveInfo> saves;
};
