#pragma once
// A button that cycles through a fixed list of values ("Yes"/"No", screen
// modes). A left click or the right arrow moves to the next value, a right
// click or the left arrow to the previous one, wrapping at both ends; each
// change ticks and fires the box's command to its listeners.
#include <string>
#include <vector>

#include "gui/Button.h"

class ValueBox : public Button {
public:
    ValueBox();

    void draw(IRenderer& renderer) override;
    // Button 1 steps forward, button 3 back.
    void clicked(float px, float py, int button) override;
    void keyDown(int symbol, int character, const std::string& keyName) override;

    void addValue(const std::string& v);
    void setValues(const std::vector<std::string>& v);
    const std::vector<std::string>& getValues() const { return values; }
    // "" when the box has no values.
    std::string getValue() const;
    int getIndex() const { return current; }
    // Shows that value without telling anyone; false when it is not in the list.
    bool setValue(const std::string& v);
    // Moves by delta values with wrap-around, ticks and fires the command.
    void cycle(int delta);

private:
    std::vector<std::string> values;
    int current = 0;
};
