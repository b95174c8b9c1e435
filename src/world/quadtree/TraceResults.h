#pragma once
// The hits of one trace, in the order the quadtree found them until
// QuadTree::sortResults orders them nearest first.
#include <vector>

#include "world/quadtree/TraceResult.h"

class TraceResults {
public:
    virtual ~TraceResults() = default;

    void add(const TraceResult& r) { results.push_back(r); }
    void clear() { results.clear(); }
    bool empty() const { return results.empty(); }
    size_t size() const { return results.size(); }
    const TraceResult& operator[](size_t i) const { return results[i]; }
    // The nearest hit once sorted; only valid when not empty.
    const TraceResult& first() const { return results.front(); }

    std::vector<TraceResult> results;
};
