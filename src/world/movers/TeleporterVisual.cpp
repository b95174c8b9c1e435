#include "world/movers/TeleporterVisual.h"

TeleporterVisual::TeleporterVisual()
{
    type = "teleportervisual";
    kind = 6;
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> TeleporterVisual::clone() const { return std::make_unique<TeleporterVisual>(); }

void TeleporterVisual::afterTargets()
{
    GameBody::afterTargets();
    startEffect("teleporter");
}
