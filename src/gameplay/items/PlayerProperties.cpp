#include "gameplay/items/PlayerProperties.h"

#include <tinyxml.h>

#include <cstdlib>
#include <iterator>

PlayerProperties::PlayerProperties()
{
    struct Row {
        int cash, level, swarm, armour, health;
        const char* what;
    };
    const Row rows[] = {
        {50, 1, 1, 1, 2, "Max Health 150"},  {75, 2, 1, 2, 2, "Max Armour 150"},
        {100, 3, 2, 2, 2, "Swarm Upgraded"}, {150, 4, 2, 2, 3, "Max Health 300"},
        {175, 5, 2, 3, 3, "Max Armour 300"}, {200, 6, 3, 3, 3, "Swarm Upgraded"},
        {250, 7, 3, 3, 4, "Max Health 400"}, {275, 8, 3, 4, 4, "Max Armour 400"},
        {300, 9, 4, 4, 4, "Swarm Upgraded"}, {350, 10, 4, 4, 5, "Max Health 500"},
        {375, 11, 4, 5, 5, "Max Armour 500"}, {400, 12, 5, 5, 5, "Swarm Upgraded"},
    };
    for (const Row& r : rows) {
        UpgradeInfo info;
        info.level = r.level;
        info.swarmLevel = r.swarm;
        info.armourLevel = r.armour;
        info.healthLevel = r.health;
        const std::string level = std::to_string(r.level);
        info.displayText = "Level " + level + " - " + r.what;
        const std::string what = r.what;
        const std::string increased = what.rfind("Swarm", 0) == 0 ? "Swarm Upgraded"
                                      : what.rfind("Max Health", 0) == 0 ? "Max Health Increased"
                                                                         : "Max Armour Increased";
        info.message = (r.level == 12 ? "Upgraded to Maximum Level " : "Upgraded to Level ") + level + " : " +
                       increased;
        upgrades[r.cash] = info;
    }
}

int PlayerProperties::maximumFor(int level)
{
    switch (level) {
    case 2: return 150;
    case 3: return 300;
    case 4: return 400;
    case 5: return 500;
    default: return 100;
    }
}

bool PlayerProperties::setHealthLevel(int level)
{
    if (level < 1 || level > maxLevel)
        return false;
    healthLevel = level;
    maxHealth = maximumFor(level);
    return true;
}

bool PlayerProperties::setArmourLevel(int level)
{
    if (level < 1 || level > maxLevel)
        return false;
    armourLevel = level;
    maxArmour = maximumFor(level);
    return true;
}

bool PlayerProperties::setSwarmLevel(int level)
{
    if (level < 1 || level > maxLevel)
        return false;
    swarmLevel = level;
    return true;
}

bool PlayerProperties::checkUpgrades()
{
    auto it = upgrades.upper_bound(cash);
    if (it == upgrades.begin())
        return false;
    const UpgradeInfo& row = std::prev(it)->second;
    // Cash is never spent, so the row only ever moves up.
    if (row.level <= currentLevel)
        return false;
    currentLevel = row.level;
    if (row.healthLevel != healthLevel)
        setHealthLevel(row.healthLevel);
    if (row.armourLevel != armourLevel)
        setArmourLevel(row.armourLevel);
    if (row.swarmLevel != swarmLevel)
        setSwarmLevel(row.swarmLevel);
    upgradeAvailable = true;
    upgradeMessage = row.message;
    return true;
}

int PlayerProperties::cashUntilNextLevel() const
{
    auto it = upgrades.upper_bound(cash);
    return it == upgrades.end() ? 0 : it->first - cash;
}

void PlayerProperties::save(TiXmlElement* element) const
{
    if (!element)
        return;
    element->SetAttribute("cash", cash);
    element->SetAttribute("swarmlevel", swarmLevel);
    element->SetAttribute("healthlevel", healthLevel);
    element->SetAttribute("armourlevel", armourLevel);
    element->SetAttribute("maxhealth", maxHealth);
    element->SetAttribute("maxarmour", maxArmour);
    element->SetAttribute("currentlevel", currentLevel);
}

void PlayerProperties::load(TiXmlElement* element)
{
    if (!element)
        return;
    auto read = [element](const char* name, int fallback) {
        const char* text = element->Attribute(name);
        return text ? std::atoi(text) : fallback;
    };
    cash = read("cash", cash);
    // Levels from a file are trusted only within the table's range.
    if (!setSwarmLevel(read("swarmlevel", swarmLevel)))
        swarmLevel = 1;
    if (!setHealthLevel(read("healthlevel", healthLevel)))
        setHealthLevel(1);
    if (!setArmourLevel(read("armourlevel", armourLevel)))
        setArmourLevel(1);
    currentLevel = read("currentlevel", currentLevel);
    if (currentLevel < 0 || currentLevel > 12)
        currentLevel = 0;
}
