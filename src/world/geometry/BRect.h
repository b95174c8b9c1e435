#pragma once
// Axis-aligned bounds of a body: base extents from the polygon, current
// extents widened along this step's motion, and the absolute box.
#include <atomic>
#include <cstdint>

class BRect {
public:
    float centreX = 0.0f, centreY = 0.0f;
    float baseLeft = 0.0f, baseRight = 0.0f, baseBottom = 0.0f, baseTop = 0.0f;
    float left = 0.0f, right = 0.0f, bottom = 0.0f, top = 0.0f;
    // Written by updateBox only: copies of boxes (the quadtree's candidate
    // scan) trust them for as long as boxChanges() stays the same.
    float minX = 0.0f, maxX = 0.0f, minY = 0.0f, maxY = 0.0f;

    virtual ~BRect() = default;

    // Recomputes the absolute box from the centre and current extents.
    void updateBox()
    {
        minX = centreX - left;
        maxX = centreX + right;
        minY = centreY - bottom;
        maxY = centreY + top;
        changes.fetch_add(1, std::memory_order_relaxed);
    }
    bool overlaps(const BRect& o) const
    {
        return minX <= o.maxX && maxX >= o.minX && minY <= o.maxY && maxY >= o.minY;
    }
    // Counts every updateBox of every box, so any change shows as a new value.
    static std::uint64_t boxChanges() { return changes.load(std::memory_order_relaxed); }

private:
    static inline std::atomic<std::uint64_t> changes{0};
};
