#pragma once
// Rigid-body physics of the world's convex polygons: gravity, integration
// with liquids and constant velocity, a swept separating-axis test with a
// time of impact, and the contact response (notification, separation, an
// impulse with restitution and friction, the on-ground flag). The Game owns
// one instance and drives it from its fixed step; the instance only keeps
// scratch storage so the per-pair test allocates nothing once warmed up.
#include <vector>

#include "world/geometry/Vector.h"

class Body;

class Collision {
public:
    // Overlaps and entry times are rounded towards zero to this resolution;
    // a contact that rounds to zero is "touching" and gets no response.
    static constexpr float quantum = 0.125f;

    // The outcome of the swept test.
    struct Hit {
        // Unit length, from the second polygon towards the first.
        Vector normal;
        // Fraction of the step at first contact (>= 0), or minus the depth
        // of an existing overlap.
        float time = 0.0f;
        // Set, with the normal, when the test answered no contact only
        // because the polygons merely touch.
        bool touching = false;
    };

    virtual ~Collision() = default;

    // Swept separating-axis test of polygon a (vertices relative to posA,
    // moving by dA this step) against b. True for a contact that deserves a
    // response; touching (less than one quantum) is no contact.
    bool sweptTest(const std::vector<Vector>& a, const Vector& posA, const Vector& dA,
                   const std::vector<Vector>& b, const Vector& posB, const Vector& dB, Hit& hit);

    // One pair, m being the body processed and o a candidate: notify both,
    // then (for two solid bodies) separate, push and set m's on-ground flag.
    void collide(Body& m, Body& o, float dt);

    // m's velocity change against o along the unit normal n (x and y only).
    static void applyImpulse(Body& m, Body& o, const Vector& n);
    // Riders take on a mover's displacement, so their contact with it is
    // answered as if it stood still.
    static bool isMover(const Body& body);
    // The response when `giver` gives way to `other` (n from other to giver):
    // the giver takes the impulse alone, the other just stops moving into it.
    static void giveWay(Body& giver, Body& other, const Vector& n);
    // Pull of the `gravity` variable: y grows upwards, so a negative value
    // pulls down. Immovable bodies are left alone.
    static void applyGravity(Body& body, float gravity, float dt);
    // The velocity the step integrates with, taken before collisions.
    static void freezeVelocity(Body& body);
    // Moves the body by its frozen and constant velocities (slowed by its
    // liquid friction while in a liquid) and refreshes its sweep.
    static void integrate(Body& body, float dt);

private:
    // The impulse with o taken to move at (ovx, ovy).
    static void impulse(Body& m, Body& o, const Vector& n, float ovx, float ovy);
    // `rider` stands on `mover`: it goes along with it this step.
    static void carryRider(Body& rider, const Body& mover, float dt);
    // Carries whichever of the two stands on the other when that one is a
    // mover; returns the rider, or null.
    static const Body* carryIfRiding(Body& m, Body& o, const Vector& n, float dt);

    struct Axis {
        float x = 0.0f, y = 0.0f;
        float value = 0.0f;
    };
    // Just the planar coordinates, packed so the projections stay in cache.
    struct Point {
        float x, y;
    };

    static void pack(const std::vector<Vector>& polygon, std::vector<Point>& out);
    static void project(const std::vector<Point>& poly, float ax, float ay, float& lo, float& hi);
    bool testAxis(Axis& axis, const Vector& offset, const Vector& v);
    void addEdgeAxes(const std::vector<Point>& polygon);
    // The body's local polygon turned by its rotation, written to `out`.
    static const std::vector<Vector>& shapeOf(const Body& body, std::vector<Vector>& out);

    // Grows with the polygons: one axis per edge of both plus the motion.
    std::vector<Axis> axes;
    std::vector<Vector> shapeM, shapeO;
    std::vector<Point> packedA, packedB;
};
