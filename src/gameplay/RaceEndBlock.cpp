#include "gameplay/RaceEndBlock.h"

#include <cstdlib>

#include "gameplay/DefaultGameplay.h"
#include "gameplay/RaceBlock.h"
#include "world/geometry/TextForm.h"

RaceEndBlock::RaceEndBlock() { type = "raceendblock"; }

std::unique_ptr<Body> RaceEndBlock::clone() const { return std::make_unique<RaceEndBlock>(); }

void RaceEndBlock::readAttributes(const std::map<std::string, std::string>& attrs)
{
    RaceTriggerBody::readAttributes(attrs);
    if (const std::string* v = findAttribute(attrs, "startbody"))
        startBody = *v;
    if (const std::string* v = findAttribute(attrs, "targettime"))
        targetTime = static_cast<float>(std::atof(v->c_str()));
    if (const std::string* v = findAttribute(attrs, "blocks")) {
        deliveries.clear();
        for (const std::string& blockId : splitTokens(*v, ","))
            deliveries[blockId] = false;
    }
}

void RaceEndBlock::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (!other || other->type != "raceblock")
        return;
    auto* block = dynamic_cast<RaceBlock*>(other);
    DefaultGameplay* g = gameplay();
    if (!block || !g || !g->isRaceActive() || block->delivered)
        return;

    deliveries[block->id] = true;
    deliveredBlocks.push_back(block);
    block->delivered = true;

    for (const auto& entry : deliveries)
        if (!entry.second)
            return;
    g->finishRace();
    activate();
}

void RaceEndBlock::think(float)
{
    if (!checkersThink())
        return;
    for (RaceBlock* block : deliveredBlocks)
        block->reset();
    deliveredBlocks.clear();
    for (auto& entry : deliveries)
        entry.second = false;
}
