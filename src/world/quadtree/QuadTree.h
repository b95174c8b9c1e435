#pragma once
// The spatial index of a level. Every indexed body is held by exactly one
// node: the deepest one whose square contains all its vertices. The tree
// answers collision candidates, visibility, radius, segment and ray queries.
// Nodes only point at bodies; the world's lists own them.
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "world/geometry/BRect.h"
#include "world/geometry/Plane.h"
#include "world/geometry/RGBAColour.h"
#include "world/geometry/Vector.h"
#include "world/quadtree/Ray.h"
#include "world/quadtree/TraceResults.h"

class Body;
class IRenderer;

class QuadTree {
public:
    // A leaf holding this many bodies splits on the next non-entity insert.
    static constexpr size_t splitThreshold = 21;

    // Draws one line segment in world space (debug drawing).
    using LineSink = std::function<void(const Vector& from, const Vector& to, const RGBAColour& colour)>;
    // Draws one body (the renderer's full body drawing).
    using BodySink = std::function<void(Body& body)>;

    QuadTree();
    QuadTree(const QuadTree&) = delete;
    QuadTree& operator=(const QuadTree&) = delete;
    virtual ~QuadTree();

    // Sets the square up with `depth` levels of children below it (the level
    // assembly uses 2). False for a negative depth.
    virtual bool build(const Vector& centre, float size, int depth);
    // Takes the body out of this node's own list only; always true.
    virtual bool remove(Body* body);
    // False when this node does not contain the body; the body is then not
    // indexed anywhere.
    virtual bool insert(Body* body);
    // Re-index a body that moved: out of its node, then inserted from here
    // (the root). False when it left the root square.
    virtual bool update(Body* body);
    // Cell outlines: a cross at the centre and the square, children fainter.
    virtual void debugDraw(float alpha, const LineSink& line);
    // Hands every body of every node not outside the view to `draw`.
    virtual void drawVisible(const std::vector<Plane>& frustum, const BodySink& draw);
    // The visibility pass: appends the bodies in view to `out`, sets their
    // in-view flags and counts. `cullNodes` and `cullBodies` are the
    // frustumcull and frustumcull2 switches; `frustum` holds the view planes.
    virtual void collectVisible(const std::vector<Plane>& frustum, std::vector<Body*>& out, bool cullNodes,
                                bool cullBodies);
    // The same two passes against the renderer's view frustum; drawVisible
    // draws with the renderer's full body drawing.
    void drawVisible(IRenderer& renderer);
    void collectVisible(IRenderer& renderer, std::vector<Body*>& out, bool cullNodes, bool cullBodies);
    // Every world vertex inside the square, edges included.
    virtual bool contains(const Body& body) const;
    // Strict overlap of the body's swept box with the square.
    virtual bool overlaps(const Body& body) const;

    // Bodies whose boxes overlap `body`'s swept box (itself included),
    // without pairs of two immovable bodies.
    void candidates(Body& body, std::vector<Body*>& out, float dt);
    // Bodies whose swept radius reaches within `r` of `point`.
    void withinRadius(const Vector& point, float r, std::vector<Body*>& out);
    // Immovable bodies whose polygon the (3D) segment passes through.
    void staticBodiesOnSegment(const Ray& ray, std::vector<Body*>& out);
    // Appends a result for every body whose outline the ray crosses; sort
    // with sortResults to get the nearest first.
    void trace(const Ray& ray, TraceResults& results, bool includeNonSolid);
    // Nearest first; equal fractions keep their order.
    static void sortResults(TraceResults& results);
    void setSplitAllowed(bool allowed);
    // Deletes every descendant and forgets this node's bodies.
    void clear();

    // Counters of the last visibility pass.
    void resetCounters();
    int getVisibleNodeCount() const { return visibleNodeCount; }
    int getTotalBodyCount() const { return totalBodyCount; }
    int getVisibleBodyCount() const { return visibleBodyCount; }

    const Vector& getCentre() const { return centre; }
    float getSize() const { return size; }
    float getHalfSize() const { return halfSize; }
    bool isSplitAllowed() const { return splitAllowed; }
    const std::vector<std::unique_ptr<QuadTree>>& getChildren() const { return children; }
    const std::vector<Body*>& getBodies() const { return bodies; }
    int getBodyCount() const { return static_cast<int>(bodies.size()); }
    // The square as a body of type "quadtree"; null before build.
    const Body* getNodeBody() const { return nodeBody.get(); }
    const BRect* getNodeBounds() const { return nodeBounds.get(); }
    // Bodies held by this node and all its descendants.
    int countAllBodies() const;

    // The ray against a polygon's outline: the smallest crossing fraction.
    static bool rayHitsPolygon(const Ray& ray, const std::vector<Vector>& polygon, float& fraction);
    // The segment through the polygon's plane, inside the polygon.
    static bool segmentThroughPolygon(const Ray& ray, const std::vector<Vector>& polygon);
    // Outside when every corner lies behind one plane.
    static bool outsideFrustum(const std::vector<Plane>& frustum, const std::vector<Vector>& corners);

private:
    void setUp(const Vector& c, float s);
    void makeChildren(int depth, bool withDepth);
    void split();
    void add(Body* body);
    // Bounding box of a body's world vertices; containment in a square
    // then takes four comparisons instead of four per vertex.
    struct Extent {
        float minX = 0.0f, maxX = 0.0f, minY = 0.0f, maxY = 0.0f;
        bool empty = true;
        bool nan = false;
    };
    static Extent extentOf(const Body& body);
    bool containsExtent(const Extent& extent) const;
    bool insertExtent(Body* body, const Extent& extent);
    void collectCandidates(const BRect& box, bool immovable, std::vector<Body*>& out);
    void refreshPacked();
    void sumCounters(QuadTree& root);
    void collectVisibleInto(QuadTree& root, const std::vector<Plane>& frustum, std::vector<Body*>& out,
                            bool cullNodes, bool cullBodies);
    // -1: the ray clearly misses the square; 1: it clearly starts inside;
    // 0: too close to call without the exact test.
    int classifyRay(const Ray& ray) const;
    void refreshTraceBoxes();
    void traceNode(const Ray& ray, TraceResults& results, bool includeNonSolid);

    Vector centre;
    float size = 0.0f;
    float halfSize = 0.0f;
    std::vector<std::unique_ptr<QuadTree>> children;
    std::vector<Body*> bodies;
    // bodies[i]->bounds, kept beside the list for the candidate scan.
    std::vector<const BRect*> boxes;
    // A copy of the same boxes, four to a block and one coordinate to a row,
    // so four-wide compares test four boxes at once. Rebuilt when the list
    // changed or any box changed since (BRect::boxChanges).
    struct alignas(16) BoxBlock {
        float minX[4], maxX[4], minY[4], maxY[4];
    };
    std::vector<BoxBlock> packed;
    std::uint64_t packedAt = 0;
    bool packedValid = false;
    // The box of each body's world vertices, for traces to pass over bodies
    // clearly off the ray without touching them. Rebuilt when the list
    // changed or any body's vertices changed since (Body::vertexChanges).
    struct VertexBox {
        float minX, maxX, minY, maxY;
    };
    std::vector<VertexBox> traceBoxes;
    std::uint64_t traceBoxesAt = 0;
    bool traceBoxesValid = false;
    // The square's edges, as the node bounds hold them.
    float minX = 0.0f, maxX = 0.0f, minY = 0.0f, maxY = 0.0f;
    std::unique_ptr<Body> nodeBody;
    std::unique_ptr<BRect> nodeBounds;
    bool splitAllowed = true;
    int visibleNodeCount = 0;
    int totalBodyCount = 0;
    int visibleBodyCount = 0;
};
