#pragma once
// Axis-aligned bounds of a body: base extents from the polygon, current
// extents widened along this step's motion, and the absolute box.

class BRect {
public:
    float centreX = 0.0f, centreY = 0.0f;
    float baseLeft = 0.0f, baseRight = 0.0f, baseBottom = 0.0f, baseTop = 0.0f;
    float left = 0.0f, right = 0.0f, bottom = 0.0f, top = 0.0f;
    float minX = 0.0f, maxX = 0.0f, minY = 0.0f, maxY = 0.0f;

    virtual ~BRect() = default;

    // Recomputes the absolute box from the centre and current extents.
    void updateBox()
    {
        minX = centreX - left;
        maxX = centreX + right;
        minY = centreY - bottom;
        maxY = centreY + top;
    }
    bool overlaps(const BRect& o) const
    {
        return minX <= o.maxX && maxX >= o.minX && minY <= o.maxY && maxY >= o.minY;
    }
};
