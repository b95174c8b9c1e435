#include "world/movers/DetailBody.h"

DetailBody::DetailBody()
{
    type = "detail";
    thinks = false;
    thinkInterval = 200.0f;
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> DetailBody::clone() const { return std::make_unique<DetailBody>(); }

void DetailBody::think(float) {}
