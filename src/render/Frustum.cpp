#include "render/Frustum.h"

#include <cmath>

namespace {
Vector cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vector unit(const Vector& v)
{
    const float len = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    if (len <= 0.0f)
        return v;
    return {v.x / len, v.y / len, v.z / len};
}
}

Frustum::Frustum()
{
    for (auto& plane : planes)
        plane = std::make_unique<Plane>();
    setCameraInternals(angle, ratio, nearDistance, farDistance);
}

void Frustum::setCameraInternals(float newAngle, float newRatio, float newNear, float newFar)
{
    angle = newAngle;
    ratio = newRatio;
    nearDistance = newNear;
    farDistance = newFar;
    constexpr float degreesToRadians = 3.1415927f / 180.0f;
    tangent = std::tan(angle * degreesToRadians * 0.5f);
    nearHeight = nearDistance * tangent;
    nearWidth = nearHeight * ratio;
    farHeight = farDistance * tangent;
    farWidth = farHeight * ratio;
}

void Frustum::setPlaneFromPoints(Plane& plane, const Vector& a, const Vector& b, const Vector& c)
{
    const Vector n = unit(cross(c - b, a - b));
    plane.normal = Vector(n.x, n.y, n.z, 0.0f);
    plane.distance = n.x * b.x + n.y * b.y + n.z * b.z;
}

void Frustum::setCameraDefinition(const Vector& position, const Vector& lookAt, const Vector& up)
{
    // Camera axes: z points from the target back to the eye.
    const Vector zAxis = unit(position - lookAt);
    const Vector xAxis = unit(cross(up, zAxis));
    const Vector yAxis = cross(zAxis, xAxis);

    const Vector p(position.x, position.y, position.z);
    const Vector nearCentre = p - zAxis * nearDistance;
    const Vector farCentre = p - zAxis * farDistance;

    ntl = nearCentre + yAxis * nearHeight - xAxis * nearWidth;
    ntr = nearCentre + yAxis * nearHeight + xAxis * nearWidth;
    nbl = nearCentre - yAxis * nearHeight - xAxis * nearWidth;
    nbr = nearCentre - yAxis * nearHeight + xAxis * nearWidth;
    ftl = farCentre + yAxis * farHeight - xAxis * farWidth;
    ftr = farCentre + yAxis * farHeight + xAxis * farWidth;
    fbl = farCentre - yAxis * farHeight - xAxis * farWidth;
    fbr = farCentre - yAxis * farHeight + xAxis * farWidth;

    setPlaneFromPoints(*planes[Top], ntr, ntl, ftl);
    setPlaneFromPoints(*planes[Bottom], nbl, nbr, fbr);
    setPlaneFromPoints(*planes[Left], ntl, nbl, fbl);
    setPlaneFromPoints(*planes[Right], nbr, ntr, fbr);
    setPlaneFromPoints(*planes[Near], ntl, ntr, nbr);
    setPlaneFromPoints(*planes[Far], ftr, ftl, fbl);
}

void Frustum::setPlaneFromCoefficients(Plane& plane, float a, float b, float c, float d)
{
    // a x + b y + c z + d >= 0 inside; the front test is n.p - distance >= 0.
    float len = std::sqrt(a * a + b * b + c * c);
    if (len <= 0.0f)
        len = 1.0f;
    plane.normal = Vector(a / len, b / len, c / len, 0.0f);
    plane.distance = -d / len;
}

void Frustum::setFromMatrices(const float mv[16], const float pr[16])
{
    // clip = projection * modelview, both column-major.
    float clip[16];
    for (int col = 0; col < 4; ++col)
        for (int row = 0; row < 4; ++row) {
            float sum = 0.0f;
            for (int k = 0; k < 4; ++k)
                sum += pr[k * 4 + row] * mv[col * 4 + k];
            clip[col * 4 + row] = sum;
        }
    auto rowOf = [&clip](int row, int col) { return clip[col * 4 + row]; };
    auto combine = [&](Plane& plane, int row, float sign) {
        setPlaneFromCoefficients(plane, rowOf(3, 0) + sign * rowOf(row, 0),
                                 rowOf(3, 1) + sign * rowOf(row, 1),
                                 rowOf(3, 2) + sign * rowOf(row, 2),
                                 rowOf(3, 3) + sign * rowOf(row, 3));
    };
    combine(*planes[Left], 0, 1.0f);
    combine(*planes[Right], 0, -1.0f);
    combine(*planes[Bottom], 1, 1.0f);
    combine(*planes[Top], 1, -1.0f);
    combine(*planes[Near], 2, 1.0f);
    combine(*planes[Far], 2, -1.0f);
}

Frustum::Classification Frustum::classifyPoint(const Vector& p) const
{
    for (const auto& plane : planes)
        if (!plane->inFront(p))
            return Outside;
    return Inside;
}

Frustum::Classification Frustum::classifyPoints(const Vector* points, size_t count) const
{
    if (count == 0)
        return Outside;
    Classification result = Inside;
    for (const auto& plane : planes) {
        size_t inFront = 0;
        for (size_t i = 0; i < count; ++i)
            if (plane->inFront(points[i]))
                ++inFront;
        if (inFront == 0)
            return Outside;
        if (inFront < count)
            result = Intersect;
    }
    return result;
}

Frustum::Classification Frustum::classifyBox(float minX, float minY, float maxX, float maxY) const
{
    const Vector corners[4] = {{minX, maxY}, {maxX, maxY}, {maxX, minY}, {minX, minY}};
    return classifyPoints(corners, 4);
}
