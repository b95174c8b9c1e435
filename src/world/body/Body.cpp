#include "world/body/Body.h"

#include "particles/ParticleSystem.h"

#include <tinyxml.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <strings.h>

#include "world/geometry/Geometry.h"
#include "world/level/LevelValues.h"
#include "world/quadtree/QuadTree.h"
#include "world/geometry/TextForm.h"
#include "world/level/LevelValues.h"

namespace {
bool finite(const Vector& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z) && std::isfinite(v.w);
}

// Keeps |v| (all four components) at or below the cap; a velocity that is no
// longer finite is dropped rather than spread into the world.
void capSpeed(Vector& v, float cap)
{
    if (!finite(v)) {
        v = Vector();
        return;
    }
    // In double: a huge float squared must not overflow to infinity.
    const double len = std::sqrt(double(v.x) * v.x + double(v.y) * v.y + double(v.z) * v.z + double(v.w) * v.w);
    if (len > cap) {
        const double k = cap / len;
        v = Vector(float(v.x * k), float(v.y * k), float(v.z * k), float(v.w * k));
    }
}

const char* boolText(bool b) { return b ? "true" : "false"; }

std::string attr(const TiXmlElement* e, const char* key)
{
    const char* v = e->Attribute(key);
    return v ? v : "";
}

bool readBool(const TiXmlElement* e, const char* key) { return attr(e, key) == "true"; }

float readFloat(const TiXmlElement* e, const char* key)
{
    const float f = static_cast<float>(std::atof(attr(e, key).c_str()));
    return std::isfinite(f) ? f : 0.0f;
}

void readVector(const TiXmlElement* e, const char* key, Vector& out)
{
    Vector v = out;
    v.fromString(attr(e, key));
    if (finite(v))
        out = v;
}

std::string fixed(float f)
{
    char buf[64];
    std::snprintf(buf, sizeof buf, "%f", static_cast<double>(f));
    return buf;
}
}

Body::Body() : particleObserver(std::make_unique<BodyParticleSystemObserver>(*this)) {}

Body::~Body()
{
    // The tree must never hold a dangling pointer.
    if (quadTreeNode)
        quadTreeNode->remove(this);
    detachAllParticleSystems();
}

std::unique_ptr<Body> Body::clone() const { return std::make_unique<Body>(); }

void Body::makeRectangle(float width, float height, const RGBAColour& colour)
{
    const float hw = width * 0.5f;
    const float hh = height * 0.5f;
    localVertices = {Vector(-hw, -hh), Vector(hw, -hh), Vector(hw, hh), Vector(-hw, hh)};
    colours.assign(4, colour);
    texCoords = {TexCoord(0, 0), TexCoord(1, 0), TexCoord(1, 1), TexCoord(0, 1)};
    transform();
}

void Body::makeRectangle(float width, float height)
{
    makeRectangle(width, height, RGBAColour(255, 255, 255, 255));
}

void Body::makeCircle(float radiusIn, int segments)
{
    if (segments <= 0 || !(radiusIn > 0.0f) || !std::isfinite(radiusIn)) {
        std::printf("makeCircle: refusing radius %g with %d segments\n", static_cast<double>(radiusIn),
                    segments);
        return;
    }
    // A whole number of degrees per step, as level authors count them.
    const int stepDegrees = std::max(1, 360 / segments);
    localVertices.clear();
    colours.clear();
    texCoords.clear();
    for (int angle = 0; angle < 360; angle += stepDegrees) {
        const float a = (static_cast<float>(angle) + 90.0f) * 3.1415927f / 180.0f;
        localVertices.emplace_back(radiusIn * -std::cos(a), radiusIn * -std::sin(a));
        colours.emplace_back(255.0f, 255.0f, 255.0f, 255.0f);
    }
    transform();
}

void Body::touch(Body* other, Body* self, const Vector& normal, float time, const Vector& point)
{
    touchInfo->other = other;
    touchInfo->self = self;
    touchInfo->normal = normal;
    touchInfo->time = time;
    touchInfo->point = point;
    onTouch(*touchInfo);
}

void Body::onTouch(TouchInfo&) {}
void Body::signal(int) {}

void Body::addTarget(Body* target) { targetList.push_back(target); }

void Body::removeTarget(Body* target)
{
    const auto it = std::find(targetList.begin(), targetList.end(), target);
    if (it != targetList.end())
        targetList.erase(it);
}

std::string Body::debugString()
{
    std::ostringstream s;
    s << " pos: " << pos.toString() << " vel: " << vel.toString() << " type: " << type << " id: " << id
      << " targets: " << targets;
    if (!targetList.empty()) {
        s << " target pointers: ";
        for (const Body* t : targetList)
            s << (t ? t->id : std::string("(null)")) << ", ";
    }
    s << " mass: " << mass << " invMass: " << invMass << " visible: " << (visible ? 1 : 0)
      << " solid: " << (solid ? 1 : 0) << " camera: " << camera.toString();
    return s.str();
}

void Body::die() {}
void Body::think(float) {}
void Body::step(float) {}

bool Body::givesWayTo(const Body&) const { return false; }

void Body::readAttributes(const std::map<std::string, std::string>& attrs)
{
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "glow")) {
            hasGlow = value == "true";
        } else if (sameName(name, "glowsteps")) {
            glowsteps = std::atoi(value.c_str());
        }
    }
}

void Body::afterTargets() {}
void Body::restored() {}
void Body::levelStart() {}

void Body::updateBounds()
{
    if (worldVertices.empty()) {
        bounds->centreX = pos.x;
        bounds->centreY = pos.y;
        bounds->baseLeft = bounds->baseRight = bounds->baseBottom = bounds->baseTop = 0.0f;
        updateSweep(0.0f);
        return;
    }
    float minX = worldVertices[0].x, maxX = minX;
    float minY = worldVertices[0].y, maxY = minY;
    for (const Vector& v : worldVertices) {
        radius = std::max(radius, pos.distance2D(v));
        minX = std::min(minX, v.x);
        maxX = std::max(maxX, v.x);
        minY = std::min(minY, v.y);
        maxY = std::max(maxY, v.y);
    }
    BRect& b = *bounds;
    b.centreX = pos.x;
    b.centreY = pos.y;
    b.baseLeft = pos.x - minX;
    b.baseRight = maxX - pos.x;
    b.baseBottom = pos.y - minY;
    b.baseTop = maxY - pos.y;
    updateSweep(0.0f);
}

void Body::updateSweep(float dt)
{
    nextPosition = pos + vel * dt;
    BRect& b = *bounds;
    b.left = b.baseLeft;
    b.right = b.baseRight;
    b.bottom = b.baseBottom;
    b.top = b.baseTop;
    if (vel.x == 0.0f && vel.y == 0.0f && vel.z == 0.0f && vel.w == 0.0f) {
        sweptRadius = radius;
        b.centreX = pos.x;
        b.centreY = pos.y;
    } else {
        const float d = pos.distance2D(nextPosition);
        sweptRadius = d + (radius <= d ? 2.0f * radius : radius);
        b.centreX = nextPosition.x;
        b.centreY = nextPosition.y;
        const float dx = nextPosition.x - pos.x;
        const float dy = nextPosition.y - pos.y;
        if (dx <= 0.0f)
            b.left = b.baseLeft - dx;
        else
            b.right = b.baseRight + dx;
        if (dy <= 0.0f)
            b.bottom = b.baseBottom - dy;
        else
            b.top = b.baseTop + dy;
    }
    b.updateBox();
}

bool Body::boundsOverlap(const Body& other) const
{
    const BRect& a = *bounds;
    const BRect& o = *other.bounds;
    return a.minY < o.maxY && a.maxY > o.minY && a.minX < o.maxX && a.maxX > o.minX;
}

void Body::setPosition(const Vector& position)
{
    if (!finite(position)) {
        std::printf("setPosition: ignoring a non-finite position for %s\n", id.c_str());
        return;
    }
    pos = position;
    renderpos = position;
    oldpos = position;
    nextPosition = position;
}

void Body::moveAttachedParticleSystems()
{
    for (ParticleSystem* system : attachedSystems) {
        system->position.x = renderpos.x;
        system->position.y = renderpos.y;
    }
}

void Body::attachParticleSystem(ParticleSystem* system)
{
    if (!system || std::find(attachedSystems.begin(), attachedSystems.end(), system) != attachedSystems.end())
        return;
    attachedSystems.push_back(system);
    system->addObserver(particleObserver.get());
}

void Body::detachParticleSystem(ParticleSystem* system)
{
    const auto it = std::find(attachedSystems.begin(), attachedSystems.end(), system);
    if (it != attachedSystems.end()) {
        attachedSystems.erase(it);
        // A detached system may outlive the body: it must not tell it later.
        system->removeObserver(particleObserver.get());
    }
}

void Body::detachAllParticleSystems()
{
    // The systems fade out on their own; the manager deletes them later.
    for (ParticleSystem* system : attachedSystems) {
        system->end();
        system->removeObserver(particleObserver.get());
    }
    attachedSystems.clear();
}

void Body::drawExtras(IRenderer&) {}
bool Body::isLiquid() const { return false; }
void Body::liquidTextureMotion(float&, float&, float, float, float&, float&) {}
bool Body::isText() const { return false; }
void Body::drawText(IRenderer&) {}
bool Body::collidesWith(Body*) { return true; }

void Body::readState(TiXmlElement* e)
{
    if (!e)
        return;
    readVector(e, "renderpos", renderpos);
    readVector(e, "oldpos", oldpos);
    readVector(e, "pos", pos);
    readVector(e, "vel", vel);
    readVector(e, "frozenvel", frozenvel);
    readVector(e, "constantvelocity", constantvelocity);
    capSpeed(vel, maxSpeed);
    capSpeed(frozenvel, maxSpeed);
    nonmassmover = readBool(e, "nonmassmover");
    isfiring = readBool(e, "isfiring");
    nextthink = std::clamp(readFloat(e, "nextthink"), -maxTimeMs, maxTimeMs);
    gravitymultiplier = readFloat(e, "gravitymultiplier");
    liquidfriction = readFloat(e, "liquidfriction");
    inliquid = readBool(e, "inliquid");
    inliquidlastframe = readBool(e, "inliquidlastframe");
    cancleanup = readBool(e, "cancleanup");
    autoid = std::atoi(attr(e, "autoid").c_str());
    texture = attr(e, "texture");
}

void Body::writeState(TiXmlElement* e)
{
    if (!e)
        return;
    e->SetAttribute("renderpos", renderpos.toString());
    e->SetAttribute("oldpos", oldpos.toString());
    e->SetAttribute("pos", pos.toString());
    e->SetAttribute("vel", vel.toString());
    e->SetAttribute("frozenvel", frozenvel.toString());
    e->SetAttribute("constantvelocity", constantvelocity.toString());
    e->SetAttribute("nonmassmover", boolText(nonmassmover));
    e->SetAttribute("isfiring", boolText(isfiring));
    e->SetAttribute("nextthink", fixed(nextthink));
    e->SetAttribute("gravitymultiplier", fixed(gravitymultiplier));
    e->SetAttribute("liquidfriction", fixed(liquidfriction));
    e->SetAttribute("inliquid", boolText(inliquid));
    e->SetAttribute("inliquidlastframe", boolText(inliquidlastframe));
    e->SetAttribute("cancleanup", boolText(cancleanup));
    e->SetAttribute("texture", texture);
    e->SetAttribute("autoid", autoid);
}

void Body::beforeTargets() {}
void Body::afterAssembly() {}

bool Body::drawsTextureOnce() const
{
    if (texCoords.empty() || isLiquid())
        return false;
    return std::all_of(texCoords.begin(), texCoords.end(), [](const TexCoord& c) {
        return c.u >= 0.0f && c.u <= 1.0f && c.v >= 0.0f && c.v <= 1.0f;
    });
}

void Body::setTexture(const std::string& name)
{
    texture = name;
    textureId = -1;
}

void Body::applyForce(const Vector& force, float dt)
{
    if (!isMovable() || !finite(force) || !std::isfinite(dt))
        return;
    vel += force * (invMass * dt);
    capSpeed(vel, maxSpeed);
}

void Body::addVelocity(const Vector& v)
{
    if (!isMovable() || !finite(v))
        return;
    vel += v;
    capSpeed(vel, maxSpeed);
}

void Body::transform()
{
    vertexChangeCount.fetch_add(1, std::memory_order_relaxed);
    if (worldVertices.size() < localVertices.size())
        worldVertices.resize(localVertices.size());
    if (spareVertices.size() < localVertices.size())
        spareVertices.resize(localVertices.size());
    const float c = std::cos(rotation);
    const float s = std::sin(rotation);
    for (size_t i = 0; i < localVertices.size(); ++i) {
        const Vector& l = localVertices[i];
        Vector& w = worldVertices[i];
        w.x = l.x * c + l.y * s + pos.x;
        w.y = l.y * c - l.x * s + pos.y;
        w.z = l.z;
    }
}

void Body::makeLocalVertices()
{
    localVertices.resize(worldVertices.size());
    for (size_t i = 0; i < worldVertices.size(); ++i) {
        localVertices[i].x = worldVertices[i].x - pos.x;
        localVertices[i].y = worldVertices[i].y - pos.y;
        localVertices[i].z = worldVertices[i].z;
    }
}

std::string Body::polygonProblem(const std::vector<Vector>& polygon)
{
    if (polygon.size() < 3)
        return "it has " + std::to_string(polygon.size()) + " vertices (three or more needed)";
    for (const Vector& v : polygon)
        if (!std::isfinite(v.x) || !std::isfinite(v.y))
            return "a vertex is not a finite number";
    const float area2 = signedArea2(polygon);
    if (!std::isfinite(area2) || std::fabs(area2) < 1e-6f)
        return "its area is zero";
    return "";
}

bool Body::centroid(Vector& out) const
{
    const std::string problem = polygonProblem(worldVertices);
    if (!problem.empty()) {
        std::printf("degenerate polygon for body %s (%s): %s\n", id.c_str(), type.c_str(), problem.c_str());
        return false;
    }
    // Relative to the first vertex: far from the origin the plain sums lose
    // every digit of a small polygon.
    const Vector& o = worldVertices[0];
    double area = 0.0, cx = 0.0, cy = 0.0;
    const size_t n = worldVertices.size();
    for (size_t i = 0; i < n; ++i) {
        const double x0 = worldVertices[i].x - o.x, y0 = worldVertices[i].y - o.y;
        const double x1 = worldVertices[(i + 1) % n].x - o.x, y1 = worldVertices[(i + 1) % n].y - o.y;
        const double cross = x0 * y1 - x1 * y0;
        area += cross;
        cx += (x0 + x1) * cross;
        cy += (y0 + y1) * cross;
    }
    area *= 0.5;
    if (area == 0.0)
        return false;
    out.x = static_cast<float>(cx / (6.0 * area) + o.x);
    out.y = static_cast<float>(cy / (6.0 * area) + o.y);
    return true;
}

void Body::addVertex(float x, float y, float z)
{
    vertexChangeCount.fetch_add(1, std::memory_order_relaxed);
    worldVertices.emplace_back(x, y, z);
    spareVertices.emplace_back(x, y, z);
}

void Body::setMass(float m)
{
    if (std::isfinite(m) && m > 0.0000001f) {
        mass = m;
        invMass = 1.0f / m;
    } else {
        mass = 0.0f;
        invMass = 0.0f;
    }
}
