#include "world/movers/SlideMotion.h"

#include <tinyxml.h>

#include <cmath>

#include "world/body/Body.h"
#include "world/level/LevelValues.h"

namespace {
Vector readVector(const std::string& text)
{
    Vector v;
    v.fromString(text);
    return v;
}
}

void SlideMotion::readSlideAttributes(const std::map<std::string, std::string>& attrs)
{
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "timeopen"))
            timeopen = readFloat(value);
        else if (sameName(name, "openoffset"))
            offset = readVector(value);
        else if (sameName(name, "speed"))
            speed = readFloat(value);
    }
    // A level's nonsense must not send a body to infinity.
    if (!std::isfinite(speed))
        speed = 0.0f;
    if (!std::isfinite(offset.x) || !std::isfinite(offset.y))
        offset = Vector();
}

void SlideMotion::readSlideState(TiXmlElement* element)
{
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

void SlideMotion::writeSlideState(TiXmlElement* element)
{
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

void SlideMotion::rememberStart(const Body& body)
{
    if (!startpointSet) {
        startpoint = body.pos;
        startpointSet = true;
    }
}

void SlideMotion::setMotion(Body& body, bool opening)
{
    Vector v = offset;
    v.normalise();
    v = v * (opening ? speed : -speed);
    xdirection = v.x > 0.0f;
    ydirection = v.y > 0.0f;
    body.vel = v;
}

void SlideMotion::beginOpening(Body& body)
{
    if (isopening || isopen)
        return;
    isopening = true;
    targetpos = startpoint + offset;
    setMotion(body, true);
}

bool SlideMotion::clampTowards(Body& body, const Vector& end) const
{
    Vector p = body.pos;
    if (xdirection ? end.x < p.x : p.x < end.x)
        p.x = end.x;
    if (ydirection ? end.y < p.y : p.y < end.y)
        p.y = end.y;
    if (p.x != body.pos.x || p.y != body.pos.y)
        body.setPosition(p);
    const float dx = body.pos.x - end.x, dy = body.pos.y - end.y;
    return std::sqrt(dx * dx + dy * dy) < arrivedDistance;
}

bool SlideMotion::slideThink(Body& body, float now)
{
    if (isopen && closetime < now && !isclosing && (timeopen > 0.0f || alwaysReturns)) {
        isclosing = true;
        setMotion(body, false);
    }
    if (isopening && clampTowards(body, targetpos)) {
        closetime = now + timeopen;
        isopen = true;
        isopening = false;
        body.vel = Vector();
    }
    if (isclosing && clampTowards(body, startpoint)) {
        isopen = isclosing = isopening = false;
        body.vel = Vector();
        return true;
    }
    return false;
}

void SlideMotion::slideStep(Body& body, float dt) const
{
    if ((!isopening && !isclosing) || dt <= 0.0f)
        return;
    const Vector& end = isopening ? targetpos : startpoint;
    const float dx = end.x - body.pos.x, dy = end.y - body.pos.y;
    if (std::sqrt(dx * dx + dy * dy) < speed * dt)
        body.vel = Vector(dx / dt, dy / dt);
}
