#pragma once
// A plain crate for testing physics in levels: movable, unbreakable.
#include "world/gamebody/GameBody.h"

class DebugMoveable : public GameBody {
public:
    DebugMoveable();
    std::unique_ptr<Body> clone() const override;
};
