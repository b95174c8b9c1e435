#pragma once
// Key bindings in three tabs (movement, weapons, weapon selection) and the
// mouse sensitivity. Binding a key in one box refreshes every box
// ("bindupdate"), since a key can only do one thing.
#include <string>
#include <vector>

#include "gui/SliderListener.h"
#include "menus/MenuFrame.h"

class KeyBindBox;
class Label;
class Slider;

class ControlsMenu : public MenuFrame, public SliderListener {
public:
    static constexpr const char* screenName = "controls";
    static constexpr float maxSensitivity = 5.0f;

    struct Row {
        const char* command;
        const char* label;
    };
    struct Group {
        const char* tab;
        const char* command;
        std::vector<Row> rows;
    };
    // The tabs and their rows, in order.
    static const std::vector<Group>& groups();

    ControlsMenu();

    // Every box reads the bindings again; the slider shows the sensitivity.
    void onShow() override;
    // The sensitivity slider moved: the variable follows at once.
    void valueChanged(GUIComponent* source, float value) override;

    // Shows the group whose tab command this is; false for another command.
    bool showGroup(const std::string& tabCommand);
    void refreshBindings();
    // The group panels, in the order of groups().
    const std::vector<GUIComponent*>& getPanels() const { return panels; }
    // The keyboard-and-mouse boxes, and beside them the gamepad ones.
    const std::vector<KeyBindBox*>& getBoxes() const { return boxes; }
    const std::vector<KeyBindBox*>& getPadBoxes() const { return padBoxes; }
    Slider& getSensitivity() { return *sensitivity; }

private:
    std::vector<GUIComponent*> panels;
    std::vector<KeyBindBox*> boxes;
    std::vector<KeyBindBox*> padBoxes;
    Slider* sensitivity = nullptr;
    Label* sensitivityText = nullptr;
};
