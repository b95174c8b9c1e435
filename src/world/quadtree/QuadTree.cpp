#include "world/quadtree/QuadTree.h"

#include <algorithm>

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
    if (it != bodies.end())
        bodies.erase(it);
    return true;
}

void QuadTree::add(Body* body)
{
    bodies.push_back(body);
    body->quadTreeNode = this;
}

bool QuadTree::insert(Body* body)
{
    if (!body || !nodeBounds || !contains(*body))
        return false;
    if (children.empty()) {
        if (bodies.size() < splitThreshold || !splitAllowed || body->entity) {
            add(body);
            return true;
        }
        split();
    }
    for (auto& child : children)
        if (child->contains(*body))
            return child->insert(body);
    add(body);
    return true;
}

void QuadTree::split()
{
    makeChildren(0, false);
    std::vector<Body*> held;
    held.swap(bodies);
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

bool QuadTree::contains(const Body& body) const
{
    const float h = halfSize;
    for (const Vector& v : body.worldVertices)
        if (!(v.x >= centre.x - h && v.x <= centre.x + h && v.y >= centre.y - h && v.y <= centre.y + h))
            return false;
    return true;
}

bool QuadTree::overlaps(const Body& body) const
{
    if (!nodeBounds)
        return false;
    const BRect& b = *body.bounds;
    const BRect& n = *nodeBounds;
    return b.minY < n.maxY && b.maxY > n.minY && b.minX < n.maxX && b.maxX > n.minX;
}

void QuadTree::collectNodes(const Body& body)
{
    // Iterative so the root's scratch list gathers every overlapped node.
    std::vector<QuadTree*> stack{this};
    while (!stack.empty()) {
        QuadTree* node = stack.back();
        stack.pop_back();
        if (!node->overlaps(body))
            continue;
        nodeList.push_back(node);
        for (auto it = node->children.rbegin(); it != node->children.rend(); ++it)
            stack.push_back(it->get());
    }
}

void QuadTree::candidates(Body& body, std::vector<Body*>& out, float)
{
    nodeList.clear();
    collectNodes(body);
    const bool bodyImmovable = body.mass < Body::minMass;
    for (QuadTree* node : nodeList)
        for (Body* b : node->bodies) {
            if (bodyImmovable && b->mass < Body::minMass)
                continue;
            if (body.boundsOverlap(*b))
                out.push_back(b);
        }
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

bool QuadTree::rayHitsPolygon(const Ray& ray, const std::vector<Vector>& polygon, float& fraction)
{
    bool hit = false;
    const size_t n = polygon.size();
    for (size_t i = 0; i < n && n >= 2; ++i) {
        float t = 0.0f;
        if (segmentsIntersect(ray.start, ray.end, polygon[i], polygon[(i + 1) % n], t) && (!hit || t < fraction)) {
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

void QuadTree::traceNode(const Ray& ray, TraceResults& results, bool includeNonSolid)
{
    if (!nodeBody)
        return;
    float unused = 0.0f;
    const std::vector<Vector>& square = nodeBody->worldVertices;
    if (!rayHitsPolygon(ray, square, unused) && !pointInConvexPolygon(ray.start, square))
        return;
    for (Body* b : bodies) {
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
    nodeList.clear();
}

int QuadTree::countAllBodies() const
{
    int n = static_cast<int>(bodies.size());
    for (const auto& child : children)
        n += child->countAllBodies();
    return n;
}
