#pragma once
// One row of the upgrade screen; a text item the HUD dims while the player
// cannot afford it.
#include "render/TextHudItem.h"

class UpgradeLevelText : public TextHudItem {
public:
    // Cash the row needs.
    int cost = 0;
};
