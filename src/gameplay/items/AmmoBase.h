#pragma once
// An ammunition box. One class serves every ammo type: the factory makes one
// per type name ("shotgunammo", ...), and a level may name the weapon whose
// ammo it holds with "ammotype" and the amount with "ammo".
#include <string>

#include "gameplay/items/RespawnableBody.h"

class AmmoBase : public RespawnableBody {
public:
    // `typeName` is an ammo item name such as "shotgunammo".
    explicit AmmoBase(const std::string& typeName = "ammobase");
    std::unique_ptr<Body> clone() const override;
    bool giveTo(Player& player) override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;

    // The weapon item name whose ammo type this box fills.
    std::string ammoWeapon;
    int ammoAmount = 10;
};
