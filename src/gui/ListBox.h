#pragma once
// A scrolling list of selectable text rows with a scroll bar on the right.
// A click on a row (or the arrow keys) selects it and fires "selchange" with
// the list as the source. Rows may be split into columns at tabs.
#include <memory>
#include <string>
#include <vector>

#include "gui/GUIComponent.h"
#include "gui/SliderListener.h"

class ListBoxColumn;
class ListBoxItem;
class ListBoxItemContainer;
class Scrollbar;

class ListBox : public GUIComponent, public SliderListener {
public:
    static constexpr float scrollbarWidth = 20.0f;

    ListBox();
    ~ListBox() override;

    void draw(IRenderer& renderer) override;
    // Lays the rows and the scroll bar out for the new box.
    void setBounds(float newX, float newY, float w, float h) override;
    // Hits outside the list's window never reach rows scrolled out of it.
    GUIComponent* componentAt(float px, float py) override;
    // The wheel goes to the scroll bar.
    void mouseDown(float px, float py, int button) override;
    // Up, down, home and end move the selection; the rest goes to the parent.
    void keyDown(int symbol, int character, const std::string& keyName) override;
    // The scroll bar moved: the rows follow.
    void valueChanged(GUIComponent* source, float value) override;

    virtual ListBoxItem* addItem(const std::string& text);
    virtual ListBoxItem* addItem(std::unique_ptr<ListBoxItem> item);
    virtual void clear();
    // Ignores an index outside the list.
    virtual void removeItem(int index);
    // -1 when nothing is selected.
    virtual int getSelectedIndex() const;
    // Marks that row selected (and unmarks the old one); -1 clears. Fires nothing.
    virtual void select(int index);
    virtual ListBoxItem* getSelectedItem() const;
    virtual void addColumn(const std::string& columnName, int columnWidth);
    virtual void addColumnObject(std::unique_ptr<ListBoxColumn> column);
    virtual void fireSelectionChanged();

    // A user's choice: the tick, the selection, "selchange", and the row
    // scrolled into view. Rows call it when clicked.
    void choose(ListBoxItem* item);
    // One wheel notch: button 4 up, 5 down.
    void scrollWheel(int button);
    // Scrolls as little as needed to show the row.
    void scrollTo(int index);
    int getItemCount() const { return static_cast<int>(items.size()); }
    ListBoxItem* getItem(int index) const;
    const ListBoxItemContainer& getContainer() const { return *container; }
    Scrollbar& getScrollbar() { return *scrollbar; }
    const std::vector<std::unique_ptr<ListBoxColumn>>& getColumns() const { return columns; }

private:
    void layoutItems();
    // Puts the rows' top where the scroll bar says.
    void followScrollbar();
    float overflow() const;

    std::vector<ListBoxItem*> items;
    std::vector<std::unique_ptr<ListBoxColumn>> columns;
    ListBoxItemContainer* container = nullptr;
    Scrollbar* scrollbar = nullptr;
};
