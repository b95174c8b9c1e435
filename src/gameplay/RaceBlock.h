#pragma once
// A movable block of a block-pushing race. It remembers where the level put
// it, so a race reset (or the end block re-arming) can send it back there.
#include "world/gamebody/GameBody.h"

class RaceBlock : public GameBody {
public:
    RaceBlock();
    std::unique_ptr<Body> clone() const override;
    // The home position is where the block stands when the level starts.
    void levelStart() override;
    void restored() override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;

    // Back home, at rest, not delivered.
    virtual void reset();

    Vector home;
    bool delivered = false;
};
