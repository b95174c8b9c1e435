#pragma once
// One block of the block boss's arena; "blocktype" 0, 1 or 2 picks its look.
#include "world/gamebody/GameBody.h"

class BossBlock : public GameBody {
public:
    BossBlock();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;

    int blocktype = 0;
};
