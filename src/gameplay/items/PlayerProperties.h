#pragma once
// What the player has bought with cash: the upgrade level and the health,
// armour and swarm levels it sets. Upgrades are automatic: crossing a cash
// threshold of the table raises the level, and the level never goes down.
#include <map>
#include <string>

class TiXmlElement;

struct UpgradeInfo {
    int level = 0;
    int swarmLevel = 1;
    int armourLevel = 1;
    int healthLevel = 1;
    std::string displayText;
    std::string message;
};

class PlayerProperties {
public:
    static constexpr int maxLevel = 5;

    PlayerProperties();
    virtual ~PlayerProperties() = default;

    // Maximum health or armour for a level 1 to 5; 100 outside.
    static int maximumFor(int level);
    // Applies the row for the current cash; true when the level changed
    // (upgradeAvailable and upgradeMessage are then set).
    bool checkUpgrades();
    // Each refuses levels outside 1 to 5; health and armour also set their maximum.
    bool setHealthLevel(int level);
    bool setArmourLevel(int level);
    bool setSwarmLevel(int level);
    // Cash still needed for the next row; 0 at the top.
    int cashUntilNextLevel() const;

    void save(TiXmlElement* element) const;
    void load(TiXmlElement* element);

    bool upgradeAvailable = false;
    int cash = 0;
    int swarmLevel = 1;
    int healthLevel = 1;
    int armourLevel = 1;
    int maxHealth = 100;
    int maxArmour = 100;
    int currentLevel = 0;
    std::string upgradeMessage;
    // Cash threshold -> row.
    std::map<int, UpgradeInfo> upgrades;
};
