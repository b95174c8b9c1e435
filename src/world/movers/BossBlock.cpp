#include "world/movers/BossBlock.h"

#include "world/level/LevelValues.h"

BossBlock::BossBlock() { type = "bossblock"; }

std::unique_ptr<Body> BossBlock::clone() const { return std::make_unique<BossBlock>(); }

void BossBlock::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (!sameName(name, "blocktype"))
            continue;
        blocktype = readInt(value);
        if (blocktype >= 0 && blocktype <= 2) {
            setTexture("data/images/bossblock" + std::to_string(blocktype + 1) + ".png");
            // The level's params said untextured; without this it is a white box.
            textured = true;
        }
    }
}
