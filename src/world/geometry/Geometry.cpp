#include "world/geometry/Geometry.h"

#include <cmath>
#include <cstdlib>

namespace {
float cross(const Vector& o, const Vector& a, const Vector& b)
{
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}
}

float randomInRange(float a, float b)
{
    // glibc's RAND_MAX is far above 32767; keep the documented resolution and range.
    const float unit = static_cast<float>(std::rand() % 32768) * (1.0f / 32768.0f);
    return a + (b - a) * unit;
}

Vector randomDirection()
{
    const float angle = (randomInRange(0.0f, 360.0f) + 90.0f) * (3.1415927f / 180.0f);
    return Vector(-std::cos(angle), -std::sin(angle));
}

bool pointAlongSegment(const Vector& start, const Vector& end, float t, Vector& out)
{
    if (t < 0.0f) {
        out = start;
        return false;
    }
    if (t > 1.0f) {
        out = end;
        return false;
    }
    out = start + (end - start) * t;
    return true;
}

Vector closestPointOnSegment(const Vector& a, const Vector& b, const Vector& p)
{
    const Vector ab = b - a;
    const float len2 = ab.x * ab.x + ab.y * ab.y;
    float t = 0.0f;
    if (len2 > 0.0f)
        t = ((p.x - a.x) * ab.x + (p.y - a.y) * ab.y) / len2;
    if (t < 0.0f)
        t = 0.0f;
    if (t > 1.0f)
        t = 1.0f;
    return Vector(a.x + ab.x * t, a.y + ab.y * t, a.z + ab.z * t);
}

bool circleTouchesPolygon(const Vector& centre, float radius, const std::vector<Vector>& polygon)
{
    if (polygon.empty())
        return false;
    if (pointInConvexPolygon(centre, polygon))
        return true;
    const float r2 = radius * radius;
    for (size_t i = 0; i < polygon.size(); ++i) {
        const Vector& a = polygon[i == 0 ? polygon.size() - 1 : i - 1];
        const Vector& b = polygon[i];
        const Vector c = closestPointOnSegment(a, b, centre);
        const float dx = c.x - centre.x;
        const float dy = c.y - centre.y;
        if (dx * dx + dy * dy <= r2)
            return true;
    }
    return false;
}

float signedArea2(const std::vector<Vector>& polygon)
{
    float area = 0.0f;
    for (size_t i = 0; i < polygon.size(); ++i) {
        const Vector& a = polygon[i];
        const Vector& b = polygon[(i + 1) % polygon.size()];
        area += a.x * b.y - b.x * a.y;
    }
    return area;
}

bool pointInConvexPolygon(const Vector& p, const std::vector<Vector>& polygon)
{
    const size_t n = polygon.size();
    if (n < 3)
        return false;
    // Work in counter-clockwise terms whatever the stored winding.
    const float s = signedArea2(polygon) < 0.0f ? -1.0f : 1.0f;
    const Vector& v0 = polygon[0];
    if (s * cross(v0, polygon[1], p) < 0.0f || s * cross(v0, polygon[n - 1], p) > 0.0f)
        return false;
    size_t lo = 1, hi = n - 1;
    while (hi - lo > 1) {
        const size_t mid = (lo + hi) / 2;
        if (s * cross(v0, polygon[mid], p) >= 0.0f)
            lo = mid;
        else
            hi = mid;
    }
    return s * cross(polygon[lo], polygon[hi], p) >= 0.0f;
}

bool segmentsIntersect(const Vector& a, const Vector& b, const Vector& c, const Vector& d, float& t)
{
    const float a1 = cross(a, b, d);
    const float a2 = cross(a, b, c);
    if (a1 * a2 >= 0.0f)
        return false;
    const float a3 = cross(c, d, a);
    const float a4 = a3 + a2 - a1;
    if (a3 * a4 >= 0.0f)
        return false;
    t = a3 / (a3 - a4);
    return true;
}

bool rayPlaneIntersection(const Vector& origin, const Vector& direction, const Plane& plane, float& t)
{
    const float denom = plane.normal.dot(direction);
    if (denom == 0.0f)
        return false;
    t = (plane.distance - plane.normal.dot(origin)) / denom;
    return true;
}
