#pragma once
// One 20-pixel row of a list box. A click selects it through its list.
#include <string>

#include "gui/GUIComponent.h"

class ListBox;

class ListBoxItem : public GUIComponent {
public:
    static constexpr float rowHeight = 20.0f;

    explicit ListBoxItem(std::string text = "");

    void draw(IRenderer& renderer) override;
    // Selects the row (the list plays the tick and fires "selchange").
    void clicked(float px, float py, int button) override;
    // The wheel scrolls the list instead of pressing the row.
    void mouseDown(float px, float py, int button) override;

    void setText(const std::string& t) { text = t; }
    const std::string& getText() const { return text; }
    bool isSelected() const { return selected; }
    void setSelected(bool s) { selected = s; }
    // Not owned: the list this row belongs to.
    void setList(ListBox* l) { list = l; }

private:
    std::string text;
    bool selected = false;
    ListBox* list = nullptr;
};
