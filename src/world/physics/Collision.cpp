#include "world/physics/Collision.h"

#include <cmath>

#include "world/body/Body.h"

namespace {
constexpr float tiny = 0.000001f;

bool finite2(const Vector& v) { return std::isfinite(v.x) && std::isfinite(v.y); }
}

void Collision::pack(const std::vector<Vector>& polygon, std::vector<Point>& out)
{
    out.resize(polygon.size());
    for (size_t i = 0; i < polygon.size(); ++i)
        out[i] = Point{polygon[i].x, polygon[i].y};
}

void Collision::project(const std::vector<Point>& poly, float ax, float ay, float& lo, float& hi)
{
    // Written as selects so they compile to min/max without branches;
    // NaN projections are skipped just as the comparisons skip them.
    float l = poly[0].x * ax + poly[0].y * ay;
    float h = l;
    const size_t n = poly.size();
    for (size_t i = 1; i < n; ++i) {
        const float p = poly[i].x * ax + poly[i].y * ay;
        l = p < l ? p : l;
        h = p > h ? p : h;
    }
    lo = l;
    hi = h;
}

void Collision::addEdgeAxes(const std::vector<Point>& polygon)
{
    const size_t n = polygon.size();
    for (size_t i = 0; i < n; ++i) {
        const Point& p = polygon[i];
        const Point& q = polygon[i + 1 < n ? i + 1 : 0];
        const float ex = q.x - p.x;
        const float ey = q.y - p.y;
        // A repeated vertex has no edge direction to test.
        if (ex == 0.0f && ey == 0.0f)
            continue;
        axes.push_back(Axis{-ey, ex, 0.0f});
    }
}

bool Collision::testAxis(Axis& axis, const Vector& offset, const Vector& v)
{
    float minA, maxA, minB, maxB;
    project(packedA, axis.x, axis.y, minA, maxA);
    project(packedB, axis.x, axis.y, minB, maxB);
    const float h = offset.x * axis.x + offset.y * axis.y;
    const float d0 = (minA + h) - maxB;
    const float d1 = minB - (maxA + h);
    if (d0 > 0.0f || d1 > 0.0f) {
        // Apart on this axis now: the value is the time of entry, already
        // independent of the axis length.
        const float w = v.x * axis.x + v.y * axis.y;
        if (std::fabs(w) < tiny)
            return false;
        float t0 = -d0 / w;
        float t1 = d1 / w;
        if (t0 > t1) {
            const float s = t0;
            t0 = t1;
            t1 = s;
        }
        const float value = t0 > 0.0f ? t0 : t1;
        if (value < 0.0f || value > 1.0f)
            return false;
        axis.value = value;
    } else {
        // Overlapping: the value is the (negative) penetration as a true
        // distance. Only the winning axis is normalised, after the loop.
        axis.value = (d0 > d1 ? d0 : d1) / std::sqrt(axis.x * axis.x + axis.y * axis.y);
    }
    return true;
}

bool Collision::sweptTest(const std::vector<Vector>& a, const Vector& posA, const Vector& dA,
                          const std::vector<Vector>& b, const Vector& posB, const Vector& dB, Hit& hit)
{
    if (a.size() < 3 || b.size() < 3 || !finite2(posA) || !finite2(posB) || !finite2(dA) || !finite2(dB))
        return false;
    const Vector offset(posA.x - posB.x, posA.y - posB.y);
    const Vector v(dA.x - dB.x, dA.y - dB.y);

    pack(a, packedA);
    pack(b, packedB);
    axes.clear();
    if (v.x * v.x + v.y * v.y > tiny)
        axes.push_back(Axis{-v.y, v.x, 0.0f});
    const size_t motionAxes = axes.size();
    addEdgeAxes(packedA);
    const size_t edgesA = axes.size() - motionAxes;
    addEdgeAxes(packedB);
    // A polygon squashed to a point has no edges: nothing sensible to test.
    if (edgesA == 0 || axes.size() - motionAxes - edgesA == 0)
        return false;

    size_t best = 0;
    for (size_t i = 0; i < axes.size(); ++i) {
        if (!testAxis(axes[i], offset, v))
            return false;
        if (i == 0 || axes[i].value > axes[best].value)
            best = i;
    }

    hit.touching = false;
    const float value = axes[best].value;
    const float t = std::trunc(value * 8.0f) / 8.0f;
    if (!std::isfinite(t))
        return false;

    const float len = std::sqrt(axes[best].x * axes[best].x + axes[best].y * axes[best].y);
    Vector n(axes[best].x / len, axes[best].y / len);
    if (n.x * offset.x + n.y * offset.y <= 0.0f) {
        n.x = -n.x;
        n.y = -n.y;
    }
    if (!finite2(n))
        return false;
    hit.normal = n;
    hit.time = t;
    if (t > -0.1f && t < tiny) {
        hit.touching = true;
        return false;
    }
    return true;
}

const std::vector<Vector>& Collision::shapeOf(const Body& body, std::vector<Vector>& out)
{
    out.resize(body.localVertices.size());
    const float c = std::cos(body.rotation);
    const float s = std::sin(body.rotation);
    for (size_t i = 0; i < out.size(); ++i) {
        const Vector& l = body.localVertices[i];
        out[i] = Vector(l.x * c + l.y * s, l.y * c - l.x * s, l.z);
    }
    return out;
}

void Collision::collide(Body& m, Body& o, float dt)
{
    if (&m == &o || (m.mass < Body::minMass && o.mass < Body::minMass))
        return;
    const Vector dM = m.vel * dt;
    const Vector dO = o.vel * dt;
    // Level geometry and most entities never turn: test their own lists.
    const std::vector<Vector>& polyM = m.rotation == 0.0f ? m.localVertices : shapeOf(m, shapeM);
    const std::vector<Vector>& polyO = o.rotation == 0.0f ? o.localVertices : shapeOf(o, shapeO);
    Hit hit;
    if (!sweptTest(polyM, m.pos, dM, polyO, o.pos, dO, hit)) {
        // Resting on a mover is mostly touching, not contact: it still carries.
        if (hit.touching && m.solid && o.solid && (isMover(o) || isMover(m)) && o.collidesWith(&m) &&
            m.collidesWith(&o))
            carryIfRiding(m, o, hit.normal, dt);
        return;
    }

    bool solidResponse = m.solid && o.solid;
    if (solidResponse && (!o.collidesWith(&m) || !m.collidesWith(&o)))
        solidResponse = false;

    const Vector n = hit.normal;
    const float t = hit.time;
    const Vector point = m.pos + dM * t;
    m.touch(&o, &m, n, t, point);
    o.touch(&m, &o, n, t, point);
    if (!solidResponse)
        return;

    if (n.y >= 0.5f && n.y <= 1.0f)
        m.onGround = true;
    const Body* rider = carryIfRiding(m, o, n, dt);

    // A body that gives way takes the whole separation and the whole
    // impulse; the other only stops moving into it. So a crowd can stop the
    // player but never shove it into walls or lift it.
    const bool mGives = m.mass >= Body::minMass && m.givesWayTo(o);
    const bool oGives = !mGives && o.mass >= Body::minMass && o.givesWayTo(m);

    if (t < 0.0f) {
        const Vector d = n * -t;
        const bool oMoves = o.mass >= Body::minMass && !mGives;
        const bool mMoves = m.mass >= Body::minMass && !oGives;
        if (oMoves && mMoves) {
            o.pos = o.pos - d * 0.5f;
            m.pos = m.pos + d * 0.5f;
        } else if (oMoves) {
            o.pos = o.pos - d;
        } else if (mMoves) {
            m.pos = m.pos + d;
        }
    }
    if (mGives || oGives) {
        giveWay(mGives ? m : o, mGives ? o : m, mGives ? n : n * -1.0f);
        return;
    }
    if (rider == &m)
        impulse(m, o, n, 0.0f, 0.0f);
    else if (rider == &o)
        impulse(m, o, n, o.vel.x + m.vel.x, o.vel.y + m.vel.y);
    else
        applyImpulse(m, o, n);
}

const Body* Collision::carryIfRiding(Body& m, Body& o, const Vector& n, float dt)
{
    // n points from o towards m.
    if (n.y >= 0.5f && m.isMovable() && isMover(o)) {
        carryRider(m, o, dt);
        return &m;
    }
    if (n.y <= -0.5f && o.isMovable() && isMover(m)) {
        carryRider(o, m, dt);
        return &o;
    }
    return nullptr;
}

bool Collision::isMover(const Body& body) { return body.nonmassmover && !body.isMovable(); }

void Collision::carryRider(Body& rider, const Body& mover, float dt)
{
    const float scale = mover.inliquid ? mover.liquidfriction : 1.0f;
    const Vector d = (mover.frozenvel + mover.constantvelocity) * (dt * scale);
    if (!finite2(d))
        return;
    rider.carry = Vector(d.x, d.y);
    rider.carried = true;
}

void Collision::giveWay(Body& giver, Body& other, const Vector& n)
{
    // `n` points from `other` towards `giver`. The giver bounces off the
    // other as off a wall moving with it; the other only loses its speed
    // into the giver.
    const float saved = other.invMass;
    other.invMass = 0.0f;
    applyImpulse(giver, other, n);
    other.invMass = saved;
    const float into = -(other.vel.x * n.x + other.vel.y * n.y);
    if (into < 0.0f) {
        other.vel.x += n.x * into;
        other.vel.y += n.y * into;
    }
}

void Collision::applyImpulse(Body& m, Body& o, const Vector& n) { impulse(m, o, n, o.vel.x, o.vel.y); }

void Collision::impulse(Body& m, Body& o, const Vector& n, float ovx, float ovy)
{
    const float invSum = m.invMass + o.invMass;
    if (!(invSum > 0.0f))
        return;
    const float rvx = m.vel.x - ovx;
    const float rvy = m.vel.y - ovy;
    const float vn = rvx * n.x + rvy * n.y;
    float vNx = n.x * vn, vNy = n.y * vn;
    const float vTx = rvx - vNx, vTy = rvy - vNy;
    if (vn > 0.0f)
        vNx = vNy = 0.0f;
    const float sfs = m.staticFrictionSpeed;
    const float f = (vTx * vTx + vTy * vTy < sfs * sfs) ? 1.0f : m.friction;
    const float k = -(1.0f + m.restitution);
    const float jx = vNx * k - vTx * f;
    const float jy = vNy * k - vTy * f;
    if (!std::isfinite(jx) || !std::isfinite(jy))
        return;
    const float shareM = m.invMass / invSum;
    const float shareO = o.invMass / invSum;
    m.vel.x += jx * shareM;
    m.vel.y += jy * shareM;
    o.vel.x -= jx * shareO;
    o.vel.y -= jy * shareO;
}

void Collision::applyGravity(Body& body, float gravity, float dt)
{
    if (body.mass < Body::minMass)
        return;
    body.applyForce(Vector(0.0f, body.gravitymultiplier * gravity * body.mass), dt);
}

void Collision::freezeVelocity(Body& body) { body.frozenvel = body.vel; }

void Collision::integrate(Body& body, float dt)
{
    if (body.mass < Body::minMass && !body.nonmassmover) {
        body.carried = false;
        body.vel.set(0.0f, 0.0f, 0.0f);
        return;
    }
    body.oldpos = body.pos;
    if (body.carried) {
        body.pos += body.carry;
        body.carried = false;
    }
    const float scale = body.inliquid ? body.liquidfriction : 1.0f;
    body.pos += body.frozenvel * (dt * scale);
    body.pos += body.constantvelocity * (dt * scale);
    body.inliquidlastframe = body.inliquid;
    body.inliquid = false;
    if (!finite2(body.pos) || !std::isfinite(body.pos.z)) {
        // Never let a bad number into the world: stay put and stop.
        body.pos = body.oldpos;
        body.vel = Vector();
        body.frozenvel = Vector();
    }
    body.updateSweep(dt);
    body.moveAttachedParticleSystems();
}
