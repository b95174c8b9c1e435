#pragma once
// The factory of every body class the game's levels can name: pickups,
// weapons, level logic, movers, enemies, race pieces. The gameplay
// controller owns one and the game's own factory falls back to it.
#include <string>
#include <vector>

#include "world/level/BodyFactory.h"

class GameBodyFactory : public BodyFactory {
public:
    // Registers the whole type table (replaces the plain Body of the base).
    void registerPrototypes() override;

    // Every type name of the table, in registration order.
    static const std::vector<std::string>& typeNames();
};
