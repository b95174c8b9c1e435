#pragma once
// A weapon lying in the level: always taken, it gives the weapon and some of
// its ammunition. The factory makes one per weapon item name; a level may
// name the weapon with "weapontype" and the ammo with "ammo".
#include <string>

#include "gameplay/items/RespawnableBody.h"

class WeaponBase : public RespawnableBody {
public:
    explicit WeaponBase(const std::string& typeName = "weaponbase");
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;

    std::string weaponType;
    int ammoAmount = 10;
};
