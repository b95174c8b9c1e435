#pragma once
// A marked place in the level: teleporter destinations and other spots that
// logic refers to by id. It does nothing itself.
#include "world/gamebody/GameBody.h"

class NamedPoint : public GameBody {
public:
    NamedPoint();
    std::unique_ptr<Body> clone() const override;
};
