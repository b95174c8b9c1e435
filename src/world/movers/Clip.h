#pragma once
// An invisible wall that keeps bodies out of places (but lets doors slide
// through it).
#include "world/gamebody/GameBody.h"

class Clip : public GameBody {
public:
    Clip();
    std::unique_ptr<Body> clone() const override;
};
