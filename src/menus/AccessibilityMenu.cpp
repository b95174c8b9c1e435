#include "menus/AccessibilityMenu.h"

#include <cmath>
#include <cstdlib>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "gui/ValueBox.h"
#include "menus/ScreenListener.h"

namespace {
constexpr float frameWidth = 380.0f;
constexpr float rowStep = 36.0f;
constexpr float firstRow = 46.0f;

class AccessibilityListener : public ScreenListener<AccessibilityMenu> {
public:
    using ScreenListener::ScreenListener;
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        const std::string prefix = "set_";
        if (command.compare(0, prefix.size(), prefix) == 0)
            screen.apply(command.substr(prefix.size()));
    }
};
}

const std::vector<AccessibilityMenu::Option>& AccessibilityMenu::options()
{
    static const std::vector<Option> rows = {
        {"Interface size:",
         "uiscale",
         {{"100%", "1"}, {"125%", "1.25"}, {"150%", "1.5"}, {"175%", "1.75"}, {"200%", "2"}}},
        {"Fire:", "firetoggle", {{"Hold", "0"}, {"Toggle", "1"}}},
        {"Grappling hook:", "hooktoggle", {{"Hold", "0"}, {"Toggle", "1"}}},
        {"Screen flashes:", "flashes", {{"Off", "0"}, {"Low", "1"}, {"Full", "2"}}},
        {"Glow:", "glowstrength", {{"Off", "0"}, {"Low", "1"}, {"Full", "2"}}},
        {"HUD contrast:", "hudcontrast", {{"Normal", "0"}, {"High", "1"}}},
    };
    return rows;
}

AccessibilityMenu::AccessibilityMenu()
    : MenuFrame("Accessibility", screenName, frameWidth,
                firstRow + rowStep * static_cast<float>(options().size()) + 8.0f)
{
    float y = firstRow;
    for (const Option& option : options()) {
        addLabel(option.caption, 10.0f, y, 160.0f, 26.0f);
        auto box = std::make_unique<ValueBox>();
        box->setBounds(180.0f, y, 170.0f, 26.0f);
        for (const auto& choice : option.choices)
            box->addValue(choice.first);
        box->setName(option.var);
        box->setCommand(std::string("set_") + option.var);
        ValueBox* added = addRelative(std::move(box));
        forwardActions(*added);
        boxes.push_back(added);
        y += rowStep;
    }
    addActionListener(std::make_unique<AccessibilityListener>(*this));
}

ValueBox* AccessibilityMenu::boxFor(const std::string& var) const
{
    for (ValueBox* box : boxes)
        if (box->getName() == var)
            return box;
    return nullptr;
}

void AccessibilityMenu::onShow()
{
    for (const Option& option : options()) {
        const GameVar* var = findVar(option.var);
        ValueBox* box = boxFor(option.var);
        if (!var || !box)
            continue;
        // The nearest choice, so a value typed in the console still shows.
        size_t best = 0;
        double bestGap = 1.0e9;
        for (size_t i = 0; i < option.choices.size(); ++i) {
            const double gap = std::fabs(std::atof(option.choices[i].second.c_str()) - var->floatValue);
            if (gap < bestGap) {
                bestGap = gap;
                best = i;
            }
        }
        box->setValue(option.choices[best].first);
    }
}

void AccessibilityMenu::apply(const std::string& varName)
{
    ValueBox* box = boxFor(varName);
    GameVar* var = findVar(varName);
    if (!box || !var)
        return;
    for (const Option& option : options())
        if (option.var == varName && box->getIndex() >= 0 &&
            static_cast<size_t>(box->getIndex()) < option.choices.size())
            var->setString(option.choices[static_cast<size_t>(box->getIndex())].second);
}
