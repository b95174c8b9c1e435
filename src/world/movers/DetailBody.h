#pragma once
// Scenery drawn as part of the level (pipes, signs, grime) that shots pass
// through and that never thinks.
#include "world/gamebody/GameBody.h"

class DetailBody : public GameBody {
public:
    DetailBody();
    std::unique_ptr<Body> clone() const override;
    void think(float dt) override;
};
