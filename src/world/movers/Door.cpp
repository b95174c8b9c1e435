#include "world/movers/Door.h"

Door::Door()
{
    type = "door";
    thinks = true;
    thinkInterval = 100.0f;
    nonmassmover = true;
    showdamage = false;
    restitution = 0.0f;
    normaliseTexCoords = false;
}

std::unique_ptr<Body> Door::clone() const { return std::make_unique<Door>(); }

void Door::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    readSlideAttributes(attrs);
}

void Door::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    readSlideState(element);
}

void Door::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    writeSlideState(element);
}

void Door::afterTargets()
{
    GameBody::afterTargets();
    rememberStart(*this);
}

bool Door::collidesWith(Body* other) { return !(other && other->kind == 13); }

void Door::onTriggered(GameBody*) { beginOpening(*this); }

void Door::think(float dt)
{
    GameBody::think(dt);
    slideThink(*this, now());
}

void Door::step(float dt)
{
    GameBody::step(dt);
    slideStep(*this, dt);
}
