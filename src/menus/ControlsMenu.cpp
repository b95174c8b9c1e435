#include "menus/ControlsMenu.h"

#include <algorithm>
#include <cstdio>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "gui/Button.h"
#include "gui/KeyBindBox.h"
#include "gui/Label.h"
#include "gui/Slider.h"
#include "menus/ScreenListener.h"

namespace {
constexpr float frameWidth = 610.0f;
constexpr float labelWidth = 150.0f;
constexpr float boxWidth = 160.0f;
// Pad names are long ("joy1_axis2_minus"): their column is the wider.
constexpr float padBoxWidth = frameWidth - 60.0f - labelWidth - boxWidth;
constexpr float rowHeight = 28.0f;
constexpr float tabsY = 40.0f;
constexpr float headingsY = 76.0f;
constexpr float rowsY = 104.0f;
constexpr size_t mostRows = 9;
constexpr float sliderY = rowsY + rowHeight * mostRows + 14.0f;
constexpr float frameHeight = sliderY + 40.0f;

class ControlsListener : public ScreenListener<ControlsMenu> {
public:
    using ScreenListener::ScreenListener;
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "bindupdate")
            screen.refreshBindings();
        else
            screen.showGroup(command);
    }
};
}

const std::vector<ControlsMenu::Group>& ControlsMenu::groups()
{
    static const std::vector<Group> all = {
        {"General", "movement",
         {{"+moveleft", "Left"},
          {"+moveright", "Right"},
          {"+moveup", "Up"},
          {"+movedown", "Down"},
          {"+showupgrades", "Show Upgrades"},
          {"+showmap", "Show Map"}}},
        {"Weapons", "weaps",
         {{"nextweap", "Next Weapon"},
          {"prevweap", "Previous Weapon"},
          {"+attack", "Fire"},
          {"+fire 1", "Fire Grapple"},
          {"+fire 10", "Fire Swarm"}}},
        {"More Weapons", "weaps2",
         {{"useitem grapple", "Use Grapple"},
          {"useitem pistol", "Use Pistol"},
          {"useitem plasmagun", "Use Plasma Gun"},
          {"useitem shotgun", "Use Shotgun"},
          {"useitem chaingun", "Use Chaingun"},
          {"useitem grenadelauncher", "Use Grenade Launcher"},
          {"useitem rocketlauncher", "Use Rocket Launcher"},
          {"useitem railgun", "Use Railgun"},
          {"useitem lightninggun", "Use Lightning Gun"}}},
    };
    return all;
}

ControlsMenu::ControlsMenu() : MenuFrame("Controls Menu", screenName, frameWidth, frameHeight)
{
    const float tabWidth = (frameWidth - 40.0f) / static_cast<float>(groups().size());
    float tabX = 20.0f;
    for (const Group& group : groups()) {
        addButton(group.tab, group.command, tabX, tabsY, tabWidth - 4.0f, 28.0f, false);
        auto panel = std::make_unique<GUIComponent>();
        panel->setBounds(20.0f, rowsY, frameWidth - 40.0f, rowHeight * mostRows);
        panel->setName(group.command + std::string("panel"));
        GUIComponent* p = addRelative(std::move(panel));
        float rowY = 0.0f;
        for (const Row& row : group.rows) {
            auto label = std::make_unique<Label>();
            label->setBounds(0.0f, rowY, labelWidth, rowHeight - 4.0f);
            label->setText(row.label);
            p->addRelative(std::move(label));
            auto box = std::make_unique<KeyBindBox>();
            box->setBounds(labelWidth + 10.0f, rowY, boxWidth, rowHeight - 4.0f);
            box->setBindCommand(row.command);
            box->setName(row.command);
            KeyBindBox* b = p->addRelative(std::move(box));
            forwardActions(*b);
            boxes.push_back(b);
            auto padBox = std::make_unique<KeyBindBox>();
            padBox->setBounds(labelWidth + 20.0f + boxWidth, rowY, padBoxWidth, rowHeight - 4.0f);
            padBox->setPad(true);
            padBox->setBindCommand(row.command);
            padBox->setName(std::string(row.command) + " pad");
            padBoxes.push_back(p->addRelative(std::move(padBox)));
            rowY += rowHeight;
        }
        panels.push_back(p);
        tabX += tabWidth;
    }
    addLabel("Keyboard and mouse", 30.0f + labelWidth, headingsY, boxWidth, 24.0f);
    addLabel("Gamepad", 40.0f + labelWidth + boxWidth, headingsY, padBoxWidth, 24.0f);
    addLabel("Mouse Sensitivity:", 20.0f, sliderY - 3.0f, 140.0f, 26.0f);
    auto slider = std::make_unique<Slider>();
    slider->setBounds(170.0f, sliderY, 200.0f, 20.0f);
    slider->setRange(0.1f, maxSensitivity);
    slider->setStep(0.1f);
    slider->setName("sensitivity");
    sensitivity = addRelative(std::move(slider));
    sensitivityText = addLabel("", 380.0f, sliderY - 3.0f, 50.0f, 26.0f);
    addActionListener(std::make_unique<ControlsListener>(*this));
    showGroup("movement");
    onShow();
    sensitivity->setListener(this);
}

void ControlsMenu::onShow()
{
    refreshBindings();
    const GameVar* v = findVar("sensitivity");
    sensitivity->setNotify(false);
    sensitivity->setValue(v ? v->floatValue : 1.0f);
    sensitivity->setNotify(true);
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", static_cast<double>(sensitivity->getValue()));
    sensitivityText->setText(text);
}

void ControlsMenu::valueChanged(GUIComponent*, float value)
{
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", static_cast<double>(value));
    sensitivityText->setText(text);
    setVar("sensitivity", text);
}

bool ControlsMenu::showGroup(const std::string& tabCommand)
{
    const auto& all = groups();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Group& g) { return tabCommand == g.command; });
    if (found == all.end())
        return false;
    for (size_t i = 0; i < all.size(); ++i)
        panels[i]->setEnabled(&all[i] == &*found);
    return true;
}

void ControlsMenu::refreshBindings()
{
    for (KeyBindBox* box : boxes)
        box->refresh();
    for (KeyBindBox* box : padBoxes)
        box->refresh();
}
