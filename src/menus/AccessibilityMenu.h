#pragma once
// "Accessibility": interface scale, fire and hook as hold or toggle, screen
// flashes, glow strength and a high-contrast HUD. Each choice sets its
// variable at once, so it shows straight away and is kept in data/config.txt.
#include <string>
#include <vector>

#include "menus/MenuFrame.h"

class ValueBox;

class AccessibilityMenu : public MenuFrame {
public:
    static constexpr const char* screenName = "accessibility";

    // One row: a caption, the variable it sets and its choices with the
    // value each one stands for.
    struct Option {
        const char* caption;
        const char* var;
        std::vector<std::pair<std::string, std::string>> choices;
    };
    static const std::vector<Option>& options();

    AccessibilityMenu();

    // Shows each variable's current value (the nearest choice).
    void onShow() override;
    // The box named after a variable changed: set that variable.
    void apply(const std::string& var);
    ValueBox* boxFor(const std::string& var) const;

private:
    std::vector<ValueBox*> boxes;
};
