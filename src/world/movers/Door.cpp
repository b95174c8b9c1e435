#include "world/movers/Door.h"

#include <tinyxml.h>

#include <cmath>

#include "world/level/LevelValues.h"

namespace {
Vector readVector(const std::string& text)
{
    Vector v;
    v.fromString(text);
    return v;
}
}

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
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "timeopen"))
            timeopen = readFloat(value);
        else if (sameName(name, "openoffset"))
            offset = readVector(value);
        else if (sameName(name, "speed"))
            speed = readFloat(value);
    }
}

void Door::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    if (hasValue(element, "startpoint")) {
        startpoint = readVector(attributeText(element, "startpoint"));
        startpointSet = true;
    }
    targetpos = readVector(attributeText(element, "targetpos"));
    offset = readVector(attributeText(element, "offset"));
    closetime = readFloat(attributeText(element, "closetime"));
    timeopen = readFloat(attributeText(element, "timeopen"));
    speed = readFloat(attributeText(element, "speed"));
    isopen = readBool(attributeText(element, "isopen"));
    isopening = readBool(attributeText(element, "isopening"));
    isclosing = readBool(attributeText(element, "isclosing"));
    xdirection = readBool(attributeText(element, "xdirection"));
    ydirection = readBool(attributeText(element, "ydirection"));
}

void Door::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("startpoint", startpoint.toString());
    element->SetAttribute("targetpos", targetpos.toString());
    element->SetAttribute("offset", offset.toString());
    element->SetAttribute("closetime", writeFloat(closetime));
    element->SetAttribute("timeopen", writeFloat(timeopen));
    element->SetAttribute("speed", writeFloat(speed));
    element->SetAttribute("isopen", writeBool(isopen));
    element->SetAttribute("isopening", writeBool(isopening));
    element->SetAttribute("isclosing", writeBool(isclosing));
    element->SetAttribute("xdirection", writeBool(xdirection));
    element->SetAttribute("ydirection", writeBool(ydirection));
}

void Door::afterTargets()
{
    GameBody::afterTargets();
    if (!startpointSet) {
        startpoint = pos;
        startpointSet = true;
    }
}

bool Door::collidesWith(Body* other) { return !(other && other->kind == 13); }

void Door::setMotion(bool opening)
{
    Vector v = offset;
    v.normalise();
    v = v * (opening ? speed : -speed);
    xdirection = v.x > 0.0f;
    ydirection = v.y > 0.0f;
    vel = v;
}

void Door::onTriggered(GameBody*)
{
    if (isopening || isopen)
        return;
    isopening = true;
    targetpos = startpoint + offset;
    setMotion(true);
}

bool Door::clampTowards(const Vector& end)
{
    Vector p = pos;
    if (xdirection ? end.x < p.x : p.x < end.x)
        p.x = end.x;
    if (ydirection ? end.y < p.y : p.y < end.y)
        p.y = end.y;
    if (p.x != pos.x || p.y != pos.y)
        setPosition(p);
    const float dx = pos.x - end.x, dy = pos.y - end.y;
    return std::sqrt(dx * dx + dy * dy) < arrivedDistance;
}

void Door::think(float dt)
{
    GameBody::think(dt);
    if (isopen && closetime < now() && !isclosing && timeopen > 0.0f) {
        isclosing = true;
        setMotion(false);
    }
    if (isopening && clampTowards(targetpos)) {
        closetime = now() + timeopen;
        isopen = true;
        isopening = false;
        vel = Vector();
    }
    if (isclosing && clampTowards(startpoint)) {
        isopen = isclosing = isopening = false;
        vel = Vector();
    }
}

void Door::step(float dt)
{
    GameBody::step(dt);
    if ((!isopening && !isclosing) || dt <= 0.0f)
        return;
    const Vector& end = isopening ? targetpos : startpoint;
    const float dx = end.x - pos.x, dy = end.y - pos.y;
    if (std::sqrt(dx * dx + dy * dy) < speed * dt)
        vel = Vector(dx / dt, dy / dt);
}
