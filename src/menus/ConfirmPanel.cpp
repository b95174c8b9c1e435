#include "menus/ConfirmPanel.h"

#include <cmath>

#include "gui/Button.h"
#include "gui/Label.h"

namespace {
constexpr float buttonWidth = 90.0f;
constexpr float buttonHeight = 28.0f;

class AnswerListener : public ActionListener {
public:
    AnswerListener(ConfirmPanel& panel, bool yes) : panel(panel), yes(yes) {}
    void actionPerformed(const std::string&, GUIComponent*) override { panel.answer(yes); }

private:
    ConfirmPanel& panel;
    bool yes;
};
}

ConfirmPanel::ConfirmPanel(GUIComponent& screen) : screen(screen)
{
    setName("confirm");
    setFillColour(RGBAColour(12.0f, 14.0f, 22.0f, 225.0f));
    setBorder(true);
    auto text = std::make_unique<Label>();
    text->setFont("vera", 14);
    text->setShadow(true);
    question = add(std::move(text));
    auto makeButton = [this](const char* label, const char* command, bool isYes) {
        auto button = std::make_unique<Button>();
        button->setText(label);
        button->setCommand(command);
        button->setName(std::string("confirm") + (isYes ? "yes" : "no"));
        button->addActionListener(std::make_unique<AnswerListener>(*this, isYes));
        return add(std::move(button));
    };
    yes = makeButton("Yes", "confirmyes", true);
    no = makeButton("No", noCommand, false);
    setEnabled(false);
}

void ConfirmPanel::setBounds(float newX, float newY, float w, float h)
{
    TransFrame::setBounds(newX, newY, w, h);
    const float middle = std::floor(newY - h / 2.0f);
    question->setBounds(newX + 10.0f, middle + 30.0f, w - 20.0f, 24.0f);
    const float left = std::floor(newX + (w - 2.0f * buttonWidth - 20.0f) / 2.0f);
    yes->setBounds(left, middle - 10.0f, buttonWidth, buttonHeight);
    no->setBounds(left + buttonWidth + 20.0f, middle - 10.0f, buttonWidth, buttonHeight);
}

void ConfirmPanel::ask(const std::string& text, const std::string& command)
{
    question->setText(text);
    yesCommand = command;
    setEnabled(true);
    if (GUIComponent* parent = getParent())
        parent->bringToFront(this);
}

void ConfirmPanel::answer(bool isYes)
{
    if (!enabled)
        return;
    setEnabled(false);
    screen.fireAction(isYes ? yesCommand : std::string(noCommand), this);
}

const std::string& ConfirmPanel::getQuestion() const { return question->getText(); }
