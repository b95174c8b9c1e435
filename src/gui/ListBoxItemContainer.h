#pragma once
// The tall strip of rows inside a list box, moved up and down behind the
// list's window as it scrolls. It keeps the selected row.
#include "gui/GUIComponent.h"

class ListBoxItem;

class ListBoxItemContainer : public GUIComponent {
public:
    ListBoxItem* getSelected() const { return selected; }
    void setSelected(ListBoxItem* item) { selected = item; }

private:
    ListBoxItem* selected = nullptr;
};
