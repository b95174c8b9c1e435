#pragma once
// A question laid over a menu screen's body ("Delete the save X?") with
// "Yes" and "No". It covers the screen's widgets while it is up, so nothing
// else can be clicked until it is answered; either answer hides it, and
// "Yes" fires its command to the screen.
#include <string>

#include "gui/TransFrame.h"

class Button;
class Label;

class ConfirmPanel : public TransFrame {
public:
    static constexpr const char* noCommand = "confirmno";

    // Reports answers to `screen`'s listeners. Hidden until asked.
    explicit ConfirmPanel(GUIComponent& screen);

    // Shows the question; "Yes" will fire yesCommand.
    void ask(const std::string& question, const std::string& yesCommand);
    // Lays the question and buttons out for the panel's box.
    void setBounds(float newX, float newY, float w, float h) override;
    // Hides the panel and fires the answer's command to the screen.
    void answer(bool yes);

    const std::string& getQuestion() const;

private:
    GUIComponent& screen;
    std::string yesCommand;
    Label* question = nullptr;
    Button* yes = nullptr;
    Button* no = nullptr;
};
