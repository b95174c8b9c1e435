#pragma once
// The view volume of the world camera as six inward-facing planes. The
// quadtree and the particle manager ask it whether boxes, polygons and points
// can be seen, so only what is on screen is drawn. The planes come either from
// the camera's position and lens (setCameraDefinition after
// setCameraInternals) or straight from the GL matrices (setFromMatrices).
#include <array>
#include <memory>
#include <vector>

#include "world/geometry/Plane.h"
#include "world/geometry/Vector.h"

class Frustum {
public:
    enum Classification { Outside = 0, Intersect = 1, Inside = 2 };
    enum PlaneIndex { Top = 0, Bottom, Left, Right, Near, Far };

    Frustum();
    virtual ~Frustum() = default;

    // Lens: vertical field of view in degrees, width / height, near and far distances.
    void setCameraInternals(float angle, float ratio, float nearDistance, float farDistance);
    // Eye position, the point looked at and the up direction; rebuilds corners and planes.
    void setCameraDefinition(const Vector& position, const Vector& lookAt, const Vector& up);
    // Column-major GL matrices, as glGetFloatv returns them.
    void setFromMatrices(const float modelview[16], const float projection[16]);

    // A point is inside when it is on the front side of all six planes.
    Classification classifyPoint(const Vector& p) const;
    // All points behind one plane: outside; some point behind some plane: intersect.
    Classification classifyPoints(const Vector* points, size_t count) const;
    Classification classifyPoints(const std::vector<Vector>& points) const
    {
        return classifyPoints(points.data(), points.size());
    }
    // An axis-aligned box on the z = 0 plane.
    Classification classifyBox(float minX, float minY, float maxX, float maxY) const;

    const Plane& getPlane(int index) const { return *planes[static_cast<size_t>(index)]; }
    static constexpr int planeCount = 6;

    float getAngle() const { return angle; }
    float getRatio() const { return ratio; }
    float getNearDistance() const { return nearDistance; }
    float getFarDistance() const { return farDistance; }
    float getNearWidth() const { return nearWidth; }
    float getNearHeight() const { return nearHeight; }
    float getFarWidth() const { return farWidth; }
    float getFarHeight() const { return farHeight; }

    // Corners of the view volume: near and far, top/bottom, left/right.
    Vector ntl, ntr, nbl, nbr, ftl, ftr, fbl, fbr;

private:
    // Plane through three points, its normal facing the side from which a, b, c run anticlockwise.
    static void setPlaneFromPoints(Plane& plane, const Vector& a, const Vector& b, const Vector& c);
    static void setPlaneFromCoefficients(Plane& plane, float a, float b, float c, float d);

    std::array<std::unique_ptr<Plane>, planeCount> planes;
    float angle = 45.0f;
    float ratio = 1.0f;
    float nearDistance = 0.1f;
    float farDistance = 4096.0f;
    float tangent = 0.0f;
    float nearHeight = 0.0f;
    float nearWidth = 0.0f;
    float farHeight = 0.0f;
    float farWidth = 0.0f;
};
