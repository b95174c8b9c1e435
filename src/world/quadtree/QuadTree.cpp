#include "world/quadtree/QuadTree.h"

#include <algorithm>
#include <cmath>
#include <limits>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "render/Frustum.h"
#include "render/IRenderer.h"
#include "world/body/Body.h"
#include "world/geometry/Geometry.h"

QuadTree::QuadTree() = default;

QuadTree::~QuadTree()
{
    // Bodies outlive the tree; they must not keep pointing at a dead node.
    for (Body* b : bodies)
        if (b->quadTreeNode == this)
            b->quadTreeNode = nullptr;
}

void QuadTree::setUp(const Vector& c, float s)
{
    centre = c;
    size = s;
    halfSize = s * 0.5f;
    const float h = halfSize;
    nodeBody = std::make_unique<Body>();
    nodeBody->type = "quadtree";
    nodeBody->setMass(0.0f);
    nodeBody->solid = false;
    nodeBody->setPosition(centre);
    nodeBody->localVertices = {Vector(-h, -h), Vector(h, -h), Vector(h, h), Vector(-h, h)};
    nodeBody->transform();
    nodeBody->updateBounds();
    nodeBounds = std::make_unique<BRect>();
    nodeBounds->centreX = centre.x;
    nodeBounds->centreY = centre.y;
    nodeBounds->baseLeft = nodeBounds->baseRight = nodeBounds->baseBottom = nodeBounds->baseTop = h;
    nodeBounds->left = nodeBounds->right = nodeBounds->bottom = nodeBounds->top = h;
    nodeBounds->updateBox();
    minX = centre.x - h;
    maxX = centre.x + h;
    minY = centre.y - h;
    maxY = centre.y + h;
}

bool QuadTree::build(const Vector& c, float s, int depth)
{
    if (depth < 0)
        return false;
    clear();
    setUp(c, s);
    makeChildren(depth, true);
    return true;
}

void QuadTree::makeChildren(int depth, bool withDepth)
{
    const float q = halfSize * 0.5f;
    const Vector offsets[4] = {Vector(-q, q), Vector(q, q), Vector(-q, -q), Vector(q, -q)};
    for (const Vector& o : offsets) {
        auto child = std::make_unique<QuadTree>();
        child->splitAllowed = splitAllowed;
        const Vector c(centre.x + o.x, centre.y + o.y);
        if (withDepth) {
            if (!child->build(c, halfSize, depth - 1))
                continue;
        } else {
            child->setUp(c, halfSize);
        }
        children.push_back(std::move(child));
    }
}

bool QuadTree::remove(Body* body)
{
    const auto it = std::find(bodies.begin(), bodies.end(), body);
    if (it != bodies.end()) {
        boxes.erase(boxes.begin() + (it - bodies.begin()));
        bodies.erase(it);
        packedValid = false;
        traceBoxesValid = false;
    }
    return true;
}

void QuadTree::add(Body* body)
{
    bodies.push_back(body);
    boxes.push_back(body->bounds.get());
    body->quadTreeNode = this;
    packedValid = false;
    traceBoxesValid = false;
}

QuadTree::Extent QuadTree::extentOf(const Body& body)
{
    Extent e;
    const std::vector<Vector>& v = body.worldVertices;
    if (v.empty())
        return e;
    e.empty = false;
    e.minX = e.maxX = v[0].x;
    e.minY = e.maxY = v[0].y;
    for (const Vector& p : v) {
        // A NaN fails every containment test, as it does vertex by vertex.
        if (p.x != p.x || p.y != p.y) {
            e.nan = true;
            return e;
        }
        e.minX = std::min(e.minX, p.x);
        e.maxX = std::max(e.maxX, p.x);
        e.minY = std::min(e.minY, p.y);
        e.maxY = std::max(e.maxY, p.y);
    }
    return e;
}

bool QuadTree::containsExtent(const Extent& e) const
{
    if (e.empty)
        return true;
    return !e.nan && e.minX >= minX && e.maxX <= maxX && e.minY >= minY && e.maxY <= maxY;
}

bool QuadTree::insert(Body* body)
{
    if (!body || !nodeBounds)
        return false;
    return insertExtent(body, extentOf(*body));
}

bool QuadTree::insertExtent(Body* body, const Extent& extent)
{
    if (!nodeBounds || !containsExtent(extent))
        return false;
    if (children.empty()) {
        if (bodies.size() < splitThreshold || !splitAllowed || body->entity) {
            add(body);
            return true;
        }
        split();
    }
    for (auto& child : children)
        if (child->nodeBounds && child->containsExtent(extent))
            return child->insertExtent(body, extent);
    add(body);
    return true;
}

void QuadTree::split()
{
    makeChildren(0, false);
    std::vector<Body*> held;
    held.swap(bodies);
    boxes.clear();
    packedValid = false;
    traceBoxesValid = false;
    for (Body* b : held) {
        b->quadTreeNode = nullptr;
        insert(b);
    }
}

bool QuadTree::update(Body* body)
{
    if (!body)
        return false;
    if (body->quadTreeNode) {
        body->quadTreeNode->remove(body);
        body->quadTreeNode = nullptr;
    }
    return insert(body);
}

void QuadTree::debugDraw(float alpha, const LineSink& line)
{
    if (!nodeBounds || !line)
        return;
    const RGBAColour colour(255.0f, 225.0f, 255.0f, alpha);
    line(centre, centre, colour);
    line(Vector(centre.x - 2.0f, centre.y), Vector(centre.x + 2.0f, centre.y), colour);
    line(Vector(centre.x, centre.y - 2.0f), Vector(centre.x, centre.y + 2.0f), colour);
    const BRect& b = *nodeBounds;
    const Vector corners[4] = {Vector(b.minX, b.minY), Vector(b.maxX, b.minY), Vector(b.maxX, b.maxY),
                               Vector(b.minX, b.maxY)};
    for (int i = 0; i < 4; ++i)
        line(corners[i], corners[(i + 1) % 4], colour);
    for (auto& child : children)
        child->debugDraw(alpha - 100.0f, line);
}

namespace {
std::vector<Vector> boxCorners(const BRect& b)
{
    return {Vector(b.minX, b.maxY), Vector(b.maxX, b.maxY), Vector(b.maxX, b.minY), Vector(b.minX, b.minY)};
}
}

bool QuadTree::outsideFrustum(const std::vector<Plane>& frustum, const std::vector<Vector>& corners)
{
    for (const Plane& p : frustum) {
        bool anyInFront = false;
        for (const Vector& c : corners)
            if (p.inFront(c)) {
                anyInFront = true;
                break;
            }
        if (!anyInFront)
            return true;
    }
    return false;
}

void QuadTree::drawVisible(const std::vector<Plane>& frustum, const BodySink& draw)
{
    if (!nodeBounds || outsideFrustum(frustum, boxCorners(*nodeBounds)))
        return;
    if (draw)
        for (Body* b : bodies)
            draw(*b);
    for (auto& child : children)
        child->drawVisible(frustum, draw);
}

namespace {
std::vector<Plane> planesOf(const Frustum& frustum)
{
    std::vector<Plane> planes(Frustum::planeCount);
    for (int i = 0; i < Frustum::planeCount; ++i) {
        planes[static_cast<size_t>(i)].normal = frustum.getPlane(i).normal;
        planes[static_cast<size_t>(i)].distance = frustum.getPlane(i).distance;
    }
    return planes;
}
}

void QuadTree::drawVisible(IRenderer& renderer)
{
    drawVisible(planesOf(renderer.getFrustum()), [&renderer](Body& body) { renderer.drawBody(body); });
}

void QuadTree::collectVisible(IRenderer& renderer, std::vector<Body*>& out, bool cullNodes, bool cullBodies)
{
    collectVisible(planesOf(renderer.getFrustum()), out, cullNodes, cullBodies);
}

void QuadTree::resetCounters()
{
    visibleNodeCount = 0;
    totalBodyCount = 0;
    visibleBodyCount = 0;
}

void QuadTree::collectVisible(const std::vector<Plane>& frustum, std::vector<Body*>& out, bool cullNodes,
                              bool cullBodies)
{
    collectVisibleInto(*this, frustum, out, cullNodes, cullBodies);
}

void QuadTree::collectVisibleInto(QuadTree& root, const std::vector<Plane>& frustum, std::vector<Body*>& out,
                                  bool cullNodes, bool cullBodies)
{
    if (cullNodes && (!nodeBounds || outsideFrustum(frustum, boxCorners(*nodeBounds))))
        return;
    root.visibleNodeCount += 1;
    root.totalBodyCount += static_cast<int>(bodies.size());
    for (Body* b : bodies) {
        if (!cullBodies || !outsideFrustum(frustum, b->worldVertices)) {
            b->inView = true;
            out.push_back(b);
            root.visibleBodyCount += 1;
        } else {
            b->inView = false;
        }
    }
    for (auto& child : children)
        child->collectVisibleInto(root, frustum, out, cullNodes, cullBodies);
}

bool QuadTree::contains(const Body& body) const { return containsExtent(extentOf(body)); }

bool QuadTree::overlaps(const Body& body) const
{
    if (!nodeBounds)
        return false;
    const BRect& b = *body.bounds;
    return b.minY < maxY && b.maxY > minY && b.minX < maxX && b.maxX > minX;
}

void QuadTree::refreshPacked()
{
    const std::uint64_t now = BRect::boxChanges();
    if (packedValid && packedAt == now)
        return;
    // The padding of the last block is NaN: it fails every comparison.
    const float nan = std::numeric_limits<float>::quiet_NaN();
    packed.assign((boxes.size() + 3) / 4, BoxBlock{{nan, nan, nan, nan}, {nan, nan, nan, nan},
                                                   {nan, nan, nan, nan}, {nan, nan, nan, nan}});
    for (size_t i = 0; i < boxes.size(); ++i) {
        const BRect& b = *boxes[i];
        BoxBlock& block = packed[i / 4];
        block.minX[i % 4] = b.minX;
        block.maxX[i % 4] = b.maxX;
        block.minY[i % 4] = b.minY;
        block.maxY[i % 4] = b.maxY;
    }
    packedAt = now;
    packedValid = true;
}

void QuadTree::collectCandidates(const BRect& box, bool immovable, std::vector<Body*>& out)
{
    if (!nodeBounds || !(box.minY < maxY && box.maxY > minY && box.minX < maxX && box.maxX > minX))
        return;
    // Body::boundsOverlap against every box of the node: the broad phase's
    // hot loop. Hits come out in list order.
    refreshPacked();
    const auto take = [&](size_t i) {
        Body* b = bodies[i];
        if (!(immovable && b->mass < Body::minMass))
            out.push_back(b);
    };
#ifdef __SSE2__
    const __m128 qMinX = _mm_set1_ps(box.minX), qMaxX = _mm_set1_ps(box.maxX);
    const __m128 qMinY = _mm_set1_ps(box.minY), qMaxY = _mm_set1_ps(box.maxY);
    for (size_t k = 0; k < packed.size(); ++k) {
        const BoxBlock& b = packed[k];
        const __m128 inY = _mm_and_ps(_mm_cmplt_ps(qMinY, _mm_load_ps(b.maxY)),
                                      _mm_cmpgt_ps(qMaxY, _mm_load_ps(b.minY)));
        const __m128 inX = _mm_and_ps(_mm_cmplt_ps(qMinX, _mm_load_ps(b.maxX)),
                                      _mm_cmpgt_ps(qMaxX, _mm_load_ps(b.minX)));
        // Rarely any hit; each one in lane order, which is list order.
        for (unsigned hits = static_cast<unsigned>(_mm_movemask_ps(_mm_and_ps(inY, inX))); hits; hits &= hits - 1)
            take(k * 4 + static_cast<size_t>(__builtin_ctz(hits)));
    }
#else
    for (size_t i = 0; i < boxes.size(); ++i) {
        const BoxBlock& b = packed[i / 4];
        const size_t j = i % 4;
        if ((box.minY < b.maxY[j]) & (box.maxY > b.minY[j]) & (box.minX < b.maxX[j]) & (box.maxX > b.minX[j]))
            take(i);
    }
#endif
    for (const auto& child : children)
        child->collectCandidates(box, immovable, out);
}

void QuadTree::candidates(Body& body, std::vector<Body*>& out, float)
{
    // Depth first, children in order: the order of the pair tests, and so
    // the simulation's result, depends on it.
    collectCandidates(*body.bounds, body.mass < Body::minMass, out);
}

void QuadTree::withinRadius(const Vector& point, float r, std::vector<Body*>& out)
{
    if (!nodeBody || !circleTouchesPolygon(point, r, nodeBody->worldVertices))
        return;
    for (Body* b : bodies) {
        const float dx = point.x - b->pos.x;
        const float dy = point.y - b->pos.y;
        const float reach = b->sweptRadius + r;
        if (dx * dx + dy * dy <= reach * reach)
            out.push_back(b);
    }
    for (auto& child : children)
        child->withinRadius(point, r, out);
}

bool QuadTree::segmentThroughPolygon(const Ray& ray, const std::vector<Vector>& polygon)
{
    if (polygon.size() < 3)
        return false;
    // Level polygons lie flat at their own depth; the segment usually does not.
    Plane plane;
    plane.normal = Vector(0.0f, 0.0f, 1.0f, 0.0f);
    plane.distance = polygon[0].z;
    float t = 0.0f;
    if (!rayPlaneIntersection(ray.start, ray.direction, plane, t) || t < 0.0f || t > 1.0f)
        return false;
    const Vector hit = ray.start + ray.direction * t;
    return pointInConvexPolygon(hit, polygon);
}

void QuadTree::staticBodiesOnSegment(const Ray& ray, std::vector<Body*>& out)
{
    if (!nodeBody || !segmentThroughPolygon(ray, nodeBody->worldVertices))
        return;
    for (Body* b : bodies)
        if (b->mass < Body::minMass && segmentThroughPolygon(ray, b->worldVertices))
            out.push_back(b);
    for (auto& child : children)
        child->staticBodiesOnSegment(ray, out);
}

namespace {
// The same expression as the geometry helpers' cross product, so every
// side test below gives bit for bit the value segmentsIntersect computes.
float cross(const Vector& o, const Vector& a, const Vector& b)
{
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}
}

bool QuadTree::rayHitsPolygon(const Ray& ray, const std::vector<Vector>& polygon, float& fraction)
{
    // segmentsIntersect against each edge, with the side of the ray's line
    // worked out once per vertex rather than twice; an edge whose ends lie
    // on one side is out without the rest of the test.
    bool hit = false;
    const size_t n = polygon.size();
    if (n < 2)
        return false;
    const Vector& a = ray.start;
    const Vector& b = ray.end;
    const float first = cross(a, b, polygon[0]);
    float sideC = first;
    for (size_t i = 0; i < n; ++i) {
        const size_t next = i + 1 < n ? i + 1 : 0;
        const float sideD = next == 0 ? first : cross(a, b, polygon[next]);
        const float a1 = sideD;
        const float a2 = sideC;
        sideC = sideD;
        if (a1 * a2 >= 0.0f)
            continue;
        const Vector& c = polygon[i];
        const Vector& d = polygon[next];
        const float a3 = cross(c, d, a);
        const float a4 = a3 + a2 - a1;
        if (a3 * a4 >= 0.0f)
            continue;
        const float t = a3 / (a3 - a4);
        if (!hit || t < fraction) {
            fraction = t;
            hit = true;
        }
    }
    return hit;
}

void QuadTree::trace(const Ray& ray, TraceResults& results, bool includeNonSolid)
{
    traceNode(ray, results, includeNonSolid);
}

int QuadTree::classifyRay(const Ray& ray) const
{
    // Decided from boxes only when the answer is clear by far more than the
    // rounding of the exact test; anything near an edge gets the exact test.
    const float rMinX = std::min(ray.start.x, ray.end.x), rMaxX = std::max(ray.start.x, ray.end.x);
    const float rMinY = std::min(ray.start.y, ray.end.y), rMaxY = std::max(ray.start.y, ray.end.y);
    const float extent = std::max({std::fabs(rMinX), std::fabs(rMaxX), std::fabs(rMinY), std::fabs(rMaxY),
                                   std::fabs(minX), std::fabs(maxX), std::fabs(minY), std::fabs(maxY)});
    const float length = (rMaxX - rMinX) + (rMaxY - rMinY);
    const float margin = 0.001f * (1.0f + extent) * (1.0f + length / size);
    if (rMaxX < minX - margin || rMinX > maxX + margin || rMaxY < minY - margin || rMinY > maxY + margin)
        return -1;
    if (ray.start.x > minX + margin && ray.start.x < maxX - margin && ray.start.y > minY + margin &&
        ray.start.y < maxY - margin)
        return 1;
    return 0;
}

void QuadTree::refreshTraceBoxes()
{
    const std::uint64_t now = Body::vertexChanges();
    if (traceBoxesValid && traceBoxesAt == now)
        return;
    traceBoxes.resize(bodies.size());
    for (size_t i = 0; i < bodies.size(); ++i) {
        const std::vector<Vector>& v = bodies[i]->worldVertices;
        // No vertices: a box no ray is clear of, so the exact test decides.
        VertexBox box{-INFINITY, INFINITY, -INFINITY, INFINITY};
        if (!v.empty()) {
            box = {v[0].x, v[0].x, v[0].y, v[0].y};
            for (const Vector& p : v) {
                box.minX = std::min(box.minX, p.x);
                box.maxX = std::max(box.maxX, p.x);
                box.minY = std::min(box.minY, p.y);
                box.maxY = std::max(box.maxY, p.y);
            }
        }
        traceBoxes[i] = box;
    }
    traceBoxesAt = now;
    traceBoxesValid = true;
}

void QuadTree::traceNode(const Ray& ray, TraceResults& results, bool includeNonSolid)
{
    if (!nodeBody)
        return;
    const int side = classifyRay(ray);
    if (side < 0)
        return;
    if (side == 0) {
        float unused = 0.0f;
        const std::vector<Vector>& square = nodeBody->worldVertices;
        if (!rayHitsPolygon(ray, square, unused) && !pointInConvexPolygon(ray.start, square))
            return;
    }
    // A body whose vertex box is off the ray's box by more than the
    // rounding of the exact test cannot be crossed: passed over untouched.
    // A NaN anywhere fails every comparison and goes to the exact test.
    refreshTraceBoxes();
    const float rMinX = std::min(ray.start.x, ray.end.x), rMaxX = std::max(ray.start.x, ray.end.x);
    const float rMinY = std::min(ray.start.y, ray.end.y), rMaxY = std::max(ray.start.y, ray.end.y);
    const float rayExtent = std::max({std::fabs(rMinX), std::fabs(rMaxX), std::fabs(rMinY), std::fabs(rMaxY)});
    const size_t n = bodies.size();
    for (size_t i = 0; i < n; ++i) {
        const VertexBox& box = traceBoxes[i];
        const float extent = std::max({rayExtent, std::fabs(box.minX), std::fabs(box.maxX), std::fabs(box.minY),
                                       std::fabs(box.maxY)});
        const float margin = 0.001f * (1.0f + extent);
        if (rMaxX < box.minX - margin || rMinX > box.maxX + margin || rMaxY < box.minY - margin ||
            rMinY > box.maxY + margin)
            continue;
        Body* b = bodies[i];
        if (!b->solid && !includeNonSolid)
            continue;
        float f = 0.0f;
        if (!rayHitsPolygon(ray, b->worldVertices, f))
            continue;
        const Vector point = ray.start + (ray.end - ray.start) * f;
        const float dx = point.x - ray.start.x;
        const float dy = point.y - ray.start.y;
        results.add(TraceResult(f, dx * dx + dy * dy, point, b));
    }
    for (auto& child : children)
        child->traceNode(ray, results, includeNonSolid);
}

void QuadTree::sortResults(TraceResults& results)
{
    std::stable_sort(results.results.begin(), results.results.end(),
                     [](const TraceResult& a, const TraceResult& b) { return a.fraction < b.fraction; });
}

void QuadTree::setSplitAllowed(bool allowed)
{
    splitAllowed = allowed;
    for (auto& child : children)
        child->setSplitAllowed(allowed);
}

void QuadTree::clear()
{
    children.clear();
    for (Body* b : bodies)
        if (b->quadTreeNode == this)
            b->quadTreeNode = nullptr;
    bodies.clear();
    boxes.clear();
    packedValid = false;
    traceBoxesValid = false;
}

int QuadTree::countAllBodies() const
{
    int n = static_cast<int>(bodies.size());
    for (const auto& child : children)
        n += child->countAllBodies();
    return n;
}
