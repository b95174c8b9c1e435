#pragma once
// Receives the actions widgets report: a button click, a list selection, a
// new key binding. Widgets own their listeners and call them in the order
// they were added.
#include <string>

class GUIComponent;

class ActionListener {
public:
    virtual ~ActionListener() = default;

    // Called by GUIComponent::fireAction with the widget's command string
    // ("closeframe", "selchange", a button's own command) and the widget
    // that fired.
    virtual void actionPerformed(const std::string& command, GUIComponent* source) = 0;
};
