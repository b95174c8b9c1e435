#pragma once
// The swirl drawn over a teleporter pad; purely decoration.
#include "world/gamebody/GameBody.h"

class TeleporterVisual : public GameBody {
public:
    TeleporterVisual();
    std::unique_ptr<Body> clone() const override;
    void afterTargets() override;
};
