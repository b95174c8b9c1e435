#include "gameplay/RaceBlock.h"

#include <tinyxml.h>

#include "core/Game.h"
#include "sound/ISound.h"

RaceBlock::RaceBlock() { type = "raceblock"; }

std::unique_ptr<Body> RaceBlock::clone() const { return std::make_unique<RaceBlock>(); }

void RaceBlock::levelStart() { home = pos; }

void RaceBlock::restored()
{
    // Saved games from before the home position was stored.
    if (home.isZero())
        home = pos;
}

void RaceBlock::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    if (const char* h = element->Attribute("home"))
        home.fromString(h);
    const char* d = element->Attribute("delivered");
    delivered = d && std::string(d) == "true";
}

void RaceBlock::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("home", home.toString());
    element->SetAttribute("delivered", delivered ? "true" : "false");
}

void RaceBlock::reset()
{
    delivered = false;
    if (Game* game = Game::current())
        if (ISound* sound = game->getSound())
            sound->playIdAt(15, pos, 0);
    setPosition(home);
    vel = Vector();
}
