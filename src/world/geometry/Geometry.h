#pragma once
// Free geometry helpers shared by collisions, traces and effects.
// Polygons are convex lists of corners in either winding.
#include <vector>

#include "world/geometry/Plane.h"
#include "world/geometry/Vector.h"

// a + (b - a) * u with u uniform in [0, 1) at a resolution of 1/32768.
float randomInRange(float a, float b);
// A unit vector in a random direction in the plane.
Vector randomDirection();
// start + (end - start) * t; t outside [0, 1] gives the nearer end and false.
bool pointAlongSegment(const Vector& start, const Vector& end, float t, Vector& out);
// The point of segment ab closest to p (planar).
Vector closestPointOnSegment(const Vector& a, const Vector& b, const Vector& p);
bool circleTouchesPolygon(const Vector& centre, float radius, const std::vector<Vector>& polygon);
bool pointInConvexPolygon(const Vector& p, const std::vector<Vector>& polygon);
// True when ab and cd cross; t is the fraction along ab.
bool segmentsIntersect(const Vector& a, const Vector& b, const Vector& c, const Vector& d, float& t);
// False when the ray runs parallel to the plane.
bool rayPlaneIntersection(const Vector& origin, const Vector& direction, const Plane& plane, float& t);
// Twice the signed area (positive for counter-clockwise).
float signedArea2(const std::vector<Vector>& polygon);
