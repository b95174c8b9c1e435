#pragma once
// Everything that exists in the world is a Body: a convex polygon with a
// position, a velocity, a mass and drawing attributes. Level geometry uses it
// as is; GameBody and every entity class derive from it and override the
// small virtual hooks below. The world's body lists own bodies; the quadtree,
// target lists and touch records only point at them.
#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "world/body/BodyParticleSystemObserver.h"
#include "world/body/TouchInfo.h"
#include "world/geometry/BRect.h"
#include "world/geometry/RGBAColour.h"
#include "world/geometry/TexCoord.h"
#include "world/geometry/Vector.h"

class IRenderer;
class ParticleSystem;
class QuadTree;
class TiXmlElement;

class Body {
public:
    // Below this a mass counts as zero: the body is immovable.
    static constexpr float minMass = 0.0001f;
    // apply force and add velocity never leave a body faster than this.
    static constexpr float maxSpeed = 950.0f;

    Body();
    Body(const Body&) = delete;
    Body& operator=(const Body&) = delete;
    virtual ~Body();

    // A new default instance of the same class. The factories keep one
    // prototype per type and call this; every concrete class overrides it.
    virtual std::unique_ptr<Body> clone() const;

    // Replace the polygon with a centred rectangle (counter-clockwise from the
    // bottom left) and transform it.
    virtual void makeRectangle(float width, float height, const RGBAColour& colour);
    virtual void makeRectangle(float width, float height);
    // Replace the polygon with a regular polygon of about `segments` sides.
    // A non-positive count or radius is refused with a message.
    virtual void makeCircle(float radius, int segments);

    // Called by the collision code for every contact, on both bodies of the
    // pair; fills the touch record and calls onTouch. Rarely overridden.
    virtual void touch(Body* other, Body* self, const Vector& normal, float time, const Vector& point);
    // The contact hook: empty here. Runs during the collide phase for solid
    // and non-solid contacts alike; must not delete either body (use
    // markForRemoval instead).
    virtual void onTouch(TouchInfo& info);
    // Asked by the collision response for each solid contact: true when this
    // body alone moves out of the way of `other` and never pushes it. False
    // here; enemies give way to the player.
    virtual bool givesWayTo(const Body& other) const;
    // A spare one-argument hook with no caller in the engine; empty.
    virtual void signal(int value);

    virtual void addTarget(Body* target);
    // Takes the first occurrence out of the target list; never deletes it.
    virtual void removeTarget(Body* target);
    // One line of text describing the body for the console and debug dumps.
    virtual std::string debugString();
    // Death; empty here. GameBody implements the rules.
    virtual void die();
    // Timed thinking, run by the gameplay controller when `thinks` is set and
    // `nextthink` has passed; the controller then schedules the next think.
    virtual void think(float dt);
    // Per-step update, called by the gameplay controller for every body once
    // per physics step before gravity and collisions. Empty here.
    virtual void step(float dt);
    // Reads the level file's free "attributes" pairs once after loading.
    // Overrides must call the base first. Names match without regard to case.
    virtual void readAttributes(const std::map<std::string, std::string>& attrs);
    // Level assembly hooks, all empty here: after the targets were resolved,
    // after a rebuild from a saved game, on a fresh level start.
    virtual void afterTargets();
    virtual void restored();
    virtual void levelStart();

    // Radius, base extents and box from the world vertices.
    virtual void updateBounds();
    // Next position and the box widened along this step's motion.
    virtual void updateSweep(float dt);
    // Strict overlap of the two current boxes.
    virtual bool boundsOverlap(const Body& other) const;
    // Teleports: pos, renderpos, oldpos and the next position.
    virtual void setPosition(const Vector& position);

    // Attached particle systems follow the body's drawn position.
    virtual void moveAttachedParticleSystems();
    virtual void attachParticleSystem(ParticleSystem* system);
    virtual void detachParticleSystem(ParticleSystem* system);
    virtual void detachAllParticleSystems();

    // Called by the renderer right after it drew this body's polygon and
    // outline; empty here. Classes with extra pieces draw them here.
    virtual void drawExtras(IRenderer& renderer);
    // Liquids answer true; the renderer then asks for the texture motion.
    virtual bool isLiquid() const;
    // True when the texture is laid on once, not tiled: every texture
    // coordinate lies within [0, 1] and the texture does not flow (liquids).
    // Such art is drawn with clamped edges.
    bool drawsTextureOnce() const;
    virtual void liquidTextureMotion(float& offsetU, float& offsetV, float unusedA, float unusedB,
                                     float& scaleU, float& scaleV);
    // Text bodies answer true; the renderer then calls drawText instead of
    // drawing a polygon.
    virtual bool isText() const;
    virtual void drawText(IRenderer& renderer);
    // A false answer from either body of a pair turns the solid response off
    // for that pair; both are still told about the contact.
    virtual bool collidesWith(Body* other);

    // Saved games. Overrides must call the base first.
    virtual void readState(TiXmlElement* element);
    virtual void writeState(TiXmlElement* element);

    // More level assembly hooks, empty here: before the targets are resolved,
    // and the very last step for the body.
    virtual void beforeTargets();
    virtual void afterAssembly();
    // Stores the name; the renderer looks the texture up again.
    virtual void setTexture(const std::string& name);

    // vel += force * invMass * dt, capped at maxSpeed; immovable bodies ignore it.
    void applyForce(const Vector& force, float dt);
    void addVelocity(const Vector& v);
    // World vertices from the local ones, the rotation and pos.
    void transform();
    // After level loading: local vertex = world vertex - pos.
    void makeLocalVertices();
    // Area centroid of the world polygon. False, with a message on standard
    // output, for a degenerate polygon; `out` is then left alone.
    bool centroid(Vector& out) const;
    // Appends a level vertex to the world and spare lists.
    void addVertex(float x, float y, float z);
    // Counts every change of any body's world vertices made by transform or
    // addVertex, so copies derived from them (the quadtree's trace boxes)
    // are trusted only while it stays the same.
    static std::uint64_t vertexChanges() { return vertexChangeCount.load(std::memory_order_relaxed); }

    // Empty when the polygon is usable; otherwise why not (fewer than three
    // vertices, non-finite coordinates, zero area).
    static std::string polygonProblem(const std::vector<Vector>& polygon);

    bool isMovable() const { return mass >= minMass; }
    bool isOnGround() const { return onGround; }
    const TouchInfo& getTouchInfo() const { return *touchInfo; }
    BodyParticleSystemObserver& getParticleObserver() const { return *particleObserver; }
    const std::vector<ParticleSystem*>& getAttachedParticleSystems() const { return attachedSystems; }
    int getAttachedParticleSystemCount() const { return static_cast<int>(attachedSystems.size()); }
    // Sets mass and the matching inverse mass (0 for anything that is not
    // clearly positive).
    void setMass(float m);

    std::vector<Vector> localVertices;
    std::vector<Vector> worldVertices;
    std::vector<Vector> spareVertices;
    std::vector<RGBAColour> colours;
    std::vector<TexCoord> texCoords;
    RGBAColour outlineColour;

    Vector renderpos;
    Vector oldpos;
    Vector pos;
    Vector vel;
    Vector constantvelocity;
    Vector frozenvel;

    std::string type = "default";
    std::string id = "generic";
    std::string targets;
    int autoid = 0;
    float rotation = 0.0f;
    float mass = 100.0f;
    float invMass = 0.01f;
    bool nonmassmover = false;
    float friction = 0.01f;
    float restitution = 0.05f;
    float staticFrictionSpeed = 0.1f;
    bool loaded = false;
    bool visible = true;
    bool solid = true;
    bool entity = false;
    bool onGround = false;
    // Displacement this step of the mover it stands on; the move pass adds
    // it so riders go along with doors and lifts.
    Vector carry;
    bool carried = false;
    bool outlined = true;
    int outlinewidth = 1;
    float texhshift = 0.0f, texvshift = 0.0f;
    float texhscale = 1.0f, texvscale = 1.0f;
    float texrotate = 0.0f;
    bool textured = false;
    bool normaliseTexCoords = false;
    bool inView = false;
    std::string texture;
    float zShift = 0.0f;
    bool isfiring = false;
    bool thinks = false;
    float thinkInterval = 200.0f;
    float nextthink = 0.0f;
    float radius = 0.0f;
    float sweptRadius = 0.0f;
    Vector nextPosition;
    // Made once and never replaced: the quadtree node keeps a pointer to it.
    const std::unique_ptr<BRect> bounds = std::make_unique<BRect>();
    float gravitymultiplier = 1.0f;
    float liquidfriction = 0.0f;
    bool inliquid = false;
    bool inliquidlastframe = false;
    bool cancleanup = false;
    std::vector<Body*> targetList;
    Vector camera;
    std::map<std::string, std::string> attributes;
    bool hasGlow = false;
    int glowsteps = 0;
    int textureId = -1;
    int kind = 0;
    bool alwaysactive = true;
    QuadTree* quadTreeNode = nullptr;

protected:
    static inline std::atomic<std::uint64_t> vertexChangeCount{0};
    std::unique_ptr<TouchInfo> touchInfo = std::make_unique<TouchInfo>();
    std::unique_ptr<BodyParticleSystemObserver> particleObserver;
    std::vector<ParticleSystem*> attachedSystems;
};
