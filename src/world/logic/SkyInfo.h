#pragma once
// Names the skies a level uses: loads every one of "skies" when the level is
// assembled and shows "initialsky" first; sky transitions switch between them.
// It also names the level's music ("music", a track of data/music/).
#include <string>

#include "world/gamebody/GameBody.h"

class SkyInfo : public GameBody {
public:
    SkyInfo();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void afterTargets() override;

    std::string skies;
    std::string initialsky;
    // The level's music track; "" for silence.
    std::string music;
};
