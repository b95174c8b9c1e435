#include "gameplay/enemies/SearchLight.h"

#include <algorithm>
#include <cmath>

#include <tinyxml.h>

#include "gameplay/player/Player.h"
#include "render/IRenderer.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int lockOnSound = 31;
constexpr float degreesToRadians = 3.14159265f / 180.0f;

float cross(const Vector& a, const Vector& b, const Vector& p)
{
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

float segmentDistance(const Vector& a, const Vector& b, const Vector& p)
{
    const Vector ab = b - a;
    const float len2 = ab.x * ab.x + ab.y * ab.y;
    float t = len2 > 0.0f ? ((p.x - a.x) * ab.x + (p.y - a.y) * ab.y) / len2 : 0.0f;
    t = std::clamp(t, 0.0f, 1.0f);
    const Vector closest = a + ab * t;
    return (p - closest).length2D();
}
}

SearchLight::SearchLight()
{
    type = "searchlight";
    thinkInterval = 25.0f;
    health = initialhealth = 100;
    hasGlow = false;
    vel = Vector();
    setMass(0.0f);
    setImage("data/images/searchlight.png");
}

std::unique_ptr<Body> SearchLight::clone() const { return std::make_unique<SearchLight>(); }

void SearchLight::readAttributes(const std::map<std::string, std::string>& attrs)
{
    EnemyBase::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "startangle"))
            startangle = readInt(value);
        else if (sameName(name, "endangle"))
            endangle = readInt(value);
        else if (sameName(name, "minangle"))
            minangle = readInt(value);
        else if (sameName(name, "speed"))
            speed = readFloat(value);
        else if (sameName(name, "conewidth"))
            conewidth = readFloat(value);
        else if (sameName(name, "conelength"))
            conelength = readFloat(value);
        else if (sameName(name, "untriggertimer"))
            untriggertimer = readFloat(value);
        else if (sameName(name, "timepaused"))
            timepaused = readFloat(value);
    }
    currentangle = static_cast<float>(startangle);
}

void SearchLight::readState(TiXmlElement* element)
{
    EnemyBase::readState(element);
    if (!element)
        return;
    currentangle = readFloat(attributeText(element, "currentangle"));
    direction = readBool(attributeText(element, "direction"));
    untriggertime = readFloat(attributeText(element, "untriggertime"));
}

void SearchLight::writeState(TiXmlElement* element)
{
    EnemyBase::writeState(element);
    if (!element)
        return;
    element->SetAttribute("currentangle", writeFloat(currentangle));
    element->SetAttribute("direction", writeBool(direction));
    element->SetAttribute("untriggertime", writeFloat(untriggertime));
}

void SearchLight::step(float dt)
{
    EnemyBase::step(dt);
    vel = Vector();
    const float t = now();
    if (t < pausedUntil)
        return;
    const float move = speed * dt;
    if (direction) {
        currentangle += move;
        if (currentangle >= static_cast<float>(endangle)) {
            currentangle = static_cast<float>(endangle);
            direction = false;
            pausedUntil = t + timepaused;
        }
    } else {
        currentangle -= move;
        if (currentangle <= static_cast<float>(minangle)) {
            currentangle = static_cast<float>(minangle);
            direction = true;
            pausedUntil = t + timepaused;
        }
    }
}

void SearchLight::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo || dying)
        return;
    Player* player = targetPlayer();
    if (!player || (player->pos - pos).length2D() > watchRange)
        return;
    if (inCone(player->pos, player->radius) && canSee(true))
        setSighted(player);
    else
        clearSighted();
}

void SearchLight::setSighted(Body* body)
{
    EnemyBase::setSighted(body);
    const float t = now();
    if (t < untriggertime)
        return;
    for (Body* target : targetList)
        if (auto* g = dynamic_cast<GameBody*>(target))
            g->onTriggered(this);
    untriggertime = t + untriggertimer;
}

void SearchLight::sightedChanged() { playSoundHere(lockOnSound); }

Vector SearchLight::beamDirection(float degrees)
{
    const float a = (degrees + 90.0f) * degreesToRadians;
    return Vector(-std::cos(a), -std::sin(a));
}

std::vector<Vector> SearchLight::cone() const
{
    const Vector beam = beamDirection(currentangle);
    const Vector side(-beam.y, beam.x);
    const Vector far = pos + beam * conelength;
    return {pos, far + side * conewidth, far - side * conewidth};
}

bool SearchLight::inCone(const Vector& centre, float circleRadius) const
{
    const std::vector<Vector> tri = cone();
    const float c0 = cross(tri[0], tri[1], centre);
    const float c1 = cross(tri[1], tri[2], centre);
    const float c2 = cross(tri[2], tri[0], centre);
    const bool inside = (c0 >= 0.0f && c1 >= 0.0f && c2 >= 0.0f) || (c0 <= 0.0f && c1 <= 0.0f && c2 <= 0.0f);
    if (inside)
        return true;
    for (int i = 0; i < 3; ++i)
        if (segmentDistance(tri[i], tri[(i + 1) % 3], centre) <= circleRadius)
            return true;
    return false;
}

void SearchLight::drawExtras(IRenderer& renderer)
{
    if (dying || inlimbo)
        return;
    std::vector<Vector> tri = cone();
    const Vector offset = renderpos - pos;
    const float z = renderpos.z + zShift - 0.05f;
    for (Vector& v : tri) {
        v = v + offset;
        v.z = z;
    }
    const bool lit = sighted != nullptr;
    const RGBAColour core = lit ? RGBAColour(255.0f, 90.0f, 60.0f, 120.0f) : RGBAColour(255.0f, 245.0f, 170.0f, 110.0f);
    const RGBAColour rim = lit ? RGBAColour(255.0f, 60.0f, 40.0f, 0.0f) : RGBAColour(255.0f, 240.0f, 150.0f, 0.0f);
    renderer.setTexturing(false);
    renderer.setBlending(true);
    renderer.setAdditiveBlend();
    renderer.drawPolygon(3, tri, {core, rim, rim});
    renderer.setAlphaBlend();
    renderer.setTexturing(true);
}
